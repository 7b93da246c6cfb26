// Lists of players are written in many ways: "2, 4", "2-4", "2 to 4", "2,3 or 4 players".
#include "formats/map_info.h"

#include <algorithm>
#include <array>

#include "formats/tdf.h"
#include "platform/text.h"

namespace formats {
namespace {

constexpr std::string_view folder = "maps\\";
constexpr std::size_t longestName = 255;
constexpr std::size_t longestText = 4096;
constexpr int mostPlayers = 64;
constexpr int longestSide = 1000;
constexpr int outOfRange = 100'000;

bool isIn(std::string_view path, std::string_view ending) {
    return platform::equalIgnoringCase(path.substr(0, folder.size()), folder) &&
           path.find('\\', folder.size()) == std::string_view::npos &&
           platform::endsWithIgnoringCase(path, ending);
}

/// The next number without a sign, and what stands ahead of it. Nothing at the end.
std::optional<int> cutNumber(std::string_view& text, std::string_view& ahead) {
    const auto start = std::min(text.find_first_of("0123456789"), text.size());
    ahead = text.substr(0, start);
    text.remove_prefix(start);
    if (text.empty())
        return std::nullopt;
    int number = 0;
    while (!text.empty() && text[0] >= '0' && text[0] <= '9') {
        number = std::min(number * 10 + (text[0] - '0'), outOfRange);
        text.remove_prefix(1);
    }
    return number;
}

std::vector<int> readPlayers(std::string_view text) {
    std::vector<int> players;
    std::string_view ahead;
    while (const auto number = cutNumber(text, ahead)) {
        if (*number < 1 || *number > mostPlayers)
            continue;
        const bool isRange = ahead.find_first_of("-~") != std::string_view::npos ||
                             platform::foldCase(ahead).find("to") != std::string::npos;
        if (isRange && !players.empty())
            for (int between = players.back() + 1; between < *number; ++between)
                players.push_back(between);
        players.push_back(*number);
    }
    std::ranges::sort(players);
    players.erase(std::unique(players.begin(), players.end()), players.end());
    return players;
}

MapSize readSize(std::string_view text) {
    std::string_view ahead;
    const auto width = cutNumber(text, ahead);
    const auto height = cutNumber(text, ahead);
    const auto isSide = [](const std::optional<int>& side) {
        return side && *side > 0 && *side <= longestSide;
    };
    return isSide(width) && isSide(height) ? MapSize{*width, *height} : MapSize();
}

struct TextKey {
    std::string_view key;
    std::string MapInfo::*text;
    std::size_t longest;
};
constexpr std::array<TextKey, 4> textKeys = {
    {{"missionname", &MapInfo::name, longestName},
     {"missiondescription", &MapInfo::description, longestText},
     {"planet", &MapInfo::planet, longestName},
     {"memory", &MapInfo::memory, longestName}}};

struct NumberKey {
    std::string_view key;
    std::optional<std::int64_t> MapInfo::*number;
};
constexpr std::array<NumberKey, 5> numberKeys = {{{"tidalstrength", &MapInfo::tide},
                                                  {"solarstrength", &MapInfo::sun},
                                                  {"minwindspeed", &MapInfo::leastWind},
                                                  {"maxwindspeed", &MapInfo::mostWind},
                                                  {"gravity", &MapInfo::gravity}}};

void take(MapInfo& info, std::string_view key, std::string_view value) {
    const auto is = [key](std::string_view name) { return platform::equalIgnoringCase(key, name); };
    for (const auto& each : textKeys)
        if (is(each.key) && (info.*each.text).empty())
            info.*each.text = shownValue(value, each.longest);
    for (const auto& each : numberKeys)
        if (is(each.key) && !(info.*each.number))
            info.*each.number = numberIn(value);
    const bool isSet = numberIn(value).value_or(0) != 0;
    if (is("numplayers") && info.players.empty())
        info.players = readPlayers(value.substr(0, longestName));
    else if (is("size") && info.size == MapSize())
        info.size = readSize(value.substr(0, longestName));
    else if (is("lavaworld"))
        info.isLavaWorld = info.isLavaWorld || isSet;
    else if (is("waterdoesdamage"))
        info.waterDoesDamage = info.waterDoesDamage || isSet;
}

} // namespace

bool isMapInfoFile(std::string_view path) {
    return isIn(path, ".ota");
}

bool isMapFile(std::string_view path) {
    return isIn(path, ".tnt");
}

std::optional<MapInfo> readMapInfo(std::string_view text) {
    std::optional<MapInfo> info;
    bool isInside = false;
    const auto onSection = [&](const TdfPlace& section) {
        if (section.depth != 0)
            return;
        isInside = platform::equalIgnoringCase(section.section, "globalheader");
        if (isInside && !info)
            info.emplace();
    };
    readTdf(text,
            {.onSection = onSection,
             .onValue = [&](const TdfPlace& place, std::string_view key, std::string_view value) {
                 if (!isInside)
                     return;
                 if (place.depth == 0)
                     take(*info, key, value);
                 else if (place.depth == 1 && platform::equalIgnoringCase(key, "type") &&
                          platform::foldCase(value).starts_with("network"))
                     info->isForNetwork = true;
             }});
    return info;
}

std::string playersText(const MapInfo& info) {
    const auto& players = info.players;
    if (players.empty())
        return {};
    if (players.size() == 1)
        return std::to_string(players[0]) + (players[0] == 1 ? " player" : " players");
    return std::to_string(players.front()) + " to " + std::to_string(players.back()) + " players";
}

std::string shownSize(const MapSize& size) {
    return size == MapSize() ? ""
                             : std::to_string(size.width) + " x " + std::to_string(size.height);
}

} // namespace formats
