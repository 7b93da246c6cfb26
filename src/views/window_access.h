// Windows for screen readers: which of them is the program's own, and which a dialog.
#pragma once

namespace views {

/// Tells Qt how to describe every WindowView from now on.
void makeWindowsAccessible();

} // namespace views
