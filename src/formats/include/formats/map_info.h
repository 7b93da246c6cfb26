// What a map says of itself, in the `.ota` beside it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace formats {

/// A size for people: units of 512 pixels, about a screen. 0 x 0 where it is not known.
struct MapSize {
    int width = 0;
    int height = 0;
    bool operator==(const MapSize&) const = default;
};

/// Texts are empty and numbers missing where the file has none; of a key that occurs twice the
/// first value counts.
struct MapInfo {
    std::string name;
    std::string description;
    std::string planet;
    std::vector<int> players; ///< for how many it is made, each once, ascending; from 1 to 64
    MapSize size;
    std::string memory;
    std::optional<std::int64_t> tide;
    std::optional<std::int64_t> sun;
    std::optional<std::int64_t> leastWind;
    std::optional<std::int64_t> mostWind;
    std::optional<std::int64_t> gravity;
    bool isLavaWorld = false;
    bool waterDoesDamage = false;
    /// Whether a schema of it is for play with several.
    bool isForNetwork = false;
};

/// Whether a path in an archive, or below a folder of the game's, is that of a file that describes
/// a map, or holds one.
bool isMapInfoFile(std::string_view path);
bool isMapFile(std::string_view path);

/// Nothing where the text has no section GlobalHeader.
std::optional<MapInfo> readMapInfo(std::string_view text);

/// "2 to 4 players" also for "2, 4", or "1 player"; empty where nothing is known.
std::string playersText(const MapInfo& info);
/// "12 x 12"; empty where it is not known.
std::string shownSize(const MapSize& size);

} // namespace formats
