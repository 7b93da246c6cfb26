// The catalogue's list for screen readers: each row is a check box that can be turned over.
#pragma once

namespace views {

/// Tells Qt how to describe every MarkListView from now on.
void makeMarkListsAccessible();

} // namespace views
