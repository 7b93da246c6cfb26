// What the game reads by name: the endings of its archives, and the folders that it looks into.
#pragma once

#include <string_view>

namespace formats {

/// Case is ignored, as the game ignores it.
bool isGameArchive(std::string_view fileName);
/// A name without a path, as "maps" or "Units".
bool isGameFolder(std::string_view folderName);

} // namespace formats
