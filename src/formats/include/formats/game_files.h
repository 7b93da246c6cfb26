// What the game reads by name: the endings of its archives, and the folders that it looks into.
#pragma once

#include <string_view>

namespace formats {

/// Case is ignored, as the game ignores it.
bool isGameArchive(std::string_view fileName);
/// The order in which the game lays archives over one another, by the names of their files: of a
/// file that two of them hold it takes the later one's. Archives go by their endings (.hpi, .ufo,
/// .ccx, .gp3), those of one ending as in a listing.
bool lessInGameOrder(std::string_view archive, std::string_view other);
/// A name without a path, as "maps" or "Units".
bool isGameFolder(std::string_view folderName);

} // namespace formats
