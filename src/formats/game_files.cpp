// What the game looks for.
#include "formats/game_files.h"

#include <algorithm>
#include <array>

#include "platform/text.h"

namespace formats {

bool isGameArchive(std::string_view fileName) {
    constexpr std::array<std::string_view, 4> endings = {".ufo", ".hpi", ".ccx", ".gp3"};
    return std::any_of(endings.begin(), endings.end(), [&](std::string_view ending) {
        return platform::endsWithIgnoringCase(fileName, ending);
    });
}

bool isGameFolder(std::string_view folderName) {
    constexpr std::array<std::string_view, 20> names = {
        "ai",       "anims",    "bitmaps",  "camps",     "download", "features", "fonts",
        "gamedata", "guis",     "maps",     "objects3d", "palettes", "scripts",  "sections",
        "sounds",   "textures", "unitpics", "units",     "useonly",  "weapons"};
    return std::find(names.begin(), names.end(), platform::foldCase(folderName)) != names.end();
}

} // namespace formats
