// Trees for screen readers: each row is an item that can be gone to, and opened if it has others
// below it.
#pragma once

namespace views {

/// Tells Qt how to describe every TreeView from now on.
void makeTreesAccessible();

} // namespace views
