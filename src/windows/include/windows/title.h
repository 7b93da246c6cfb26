// The title of the main window and of all boxes. It is a name, not the version.
#pragma once

namespace windows {

inline constexpr auto applicationTitle = "Vexillum v3.1 BETA";

} // namespace windows
