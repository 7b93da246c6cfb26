// Paths of the program taken apart: bytes, with backslashes. Nothing here looks at a disk; whether
// a path may be followed is RelativePath's to say.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace platform {

/// The parts between backslashes; empty parts are left out.
std::vector<std::string> splitPath(std::string_view path);

/// A letter and a colon, and nothing else.
bool isDrive(std::string_view part);

/// A part that names the folder itself or its parent, or that the system could take for more than
/// one part or for a drive, leads away from the folder it is looked for in. What that is depends on
/// the system.
bool leadsAway(std::string_view part);

/// Whether a path is the game directory or begins with it, with no look at the rest. The two are
/// compared byte by byte, since every path below it is put together from it. Nothing is below an
/// empty one.
bool isBelow(std::string_view path, std::string_view gameDirectory);

/// The rule of Disk::isInside. The game directory itself is not inside.
bool isPlainPathBelow(std::string_view path, std::string_view gameDirectory);

} // namespace platform
