// Paths of the program taken apart.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace platform {

/// The parts between backslashes; empty parts are left out.
std::vector<std::string> splitPath(std::string_view path);

/// A letter and a colon.
bool isDrive(std::string_view part);

/// A part that names the folder itself or its parent, or that the system could take for more than
/// one part or for a drive, leads away from the folder it is looked for in.
bool leadsAway(std::string_view part);

/// What follows the game directory in a path below it; nothing if the path lies elsewhere.
bool isBelow(std::string_view path, std::string_view gameDirectory);

/// The rule of Disk::isInside.
bool isPlainPathBelow(std::string_view path, std::string_view gameDirectory);

} // namespace platform
