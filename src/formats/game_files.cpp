// What the game looks for.
#include "formats/game_files.h"

#include <algorithm>
#include <array>

#include "platform/text.h"

namespace formats {
namespace {

/// In the order in which the game lays them over one another.
constexpr std::array<std::string_view, 4> endings = {".hpi", ".ufo", ".ccx", ".gp3"};

auto endingOf(std::string_view fileName) {
    return std::find_if(endings.begin(), endings.end(), [&](std::string_view ending) {
        return platform::endsWithIgnoringCase(fileName, ending);
    });
}

} // namespace

bool isGameArchive(std::string_view fileName) {
    return endingOf(fileName) != endings.end();
}

bool lessInGameOrder(std::string_view archive, std::string_view other) {
    const auto ending = endingOf(archive);
    const auto otherEnding = endingOf(other);
    return ending == otherEnding ? platform::lessIgnoringCase(archive, other)
                                 : ending < otherEnding;
}

bool isGameFolder(std::string_view folderName) {
    constexpr std::array<std::string_view, 20> names = {
        "ai",       "anims",    "bitmaps",  "camps",     "download", "features", "fonts",
        "gamedata", "guis",     "maps",     "objects3d", "palettes", "scripts",  "sections",
        "sounds",   "textures", "unitpics", "units",     "useonly",  "weapons"};
    return std::find(names.begin(), names.end(), platform::foldCase(folderName)) != names.end();
}

} // namespace formats
