// Both readers take a file as people write it: keys in any case and any order.
#include "formats/unit_file.h"

#include <algorithm>
#include <array>

#include "formats/tdf.h"
#include "platform/text.h"

namespace formats {
namespace {

constexpr std::string_view folder = "units\\";
constexpr std::string_view ending = ".fbi";
constexpr std::string_view key = "unitname";
constexpr std::size_t longestName = 255;

bool isName(std::string_view text) {
    return !text.empty() && text.size() <= longestName &&
           std::ranges::none_of(text, [](char c) { return static_cast<unsigned char>(c) < ' '; });
}

struct TextKey {
    std::string_view key;
    std::string UnitInfo::*text;
};
constexpr std::array<TextKey, 5> textKeys = {{{"unitname", &UnitInfo::unitName},
                                              {"name", &UnitInfo::name},
                                              {"description", &UnitInfo::description},
                                              {"side", &UnitInfo::side},
                                              {"category", &UnitInfo::category}}};

struct NumberKey {
    std::string_view key;
    std::optional<std::int64_t> UnitInfo::*number;
};
constexpr std::array<NumberKey, 4> numberKeys = {{{"buildcostenergy", &UnitInfo::energy},
                                                  {"buildcostmetal", &UnitInfo::metal},
                                                  {"maxdamage", &UnitInfo::maxDamage},
                                                  {"buildtime", &UnitInfo::buildTime}}};

void take(UnitInfo& info, std::string_view name, std::string_view value) {
    for (const auto& each : textKeys)
        if (platform::equalIgnoringCase(name, each.key) && (info.*each.text).empty())
            info.*each.text = shownValue(value, longestName);
    for (const auto& each : numberKeys)
        if (platform::equalIgnoringCase(name, each.key) && !(info.*each.number))
            info.*each.number = numberIn(value);
}

} // namespace

bool isUnitFile(std::string_view path) {
    return platform::equalIgnoringCase(path.substr(0, folder.size()), folder) &&
           path.find('\\', folder.size()) == std::string_view::npos &&
           platform::endsWithIgnoringCase(path, ending);
}

std::optional<std::string> unitNameIn(std::string_view text) {
    std::optional<std::string> found;
    readTdf(text, {.onValue = [&](const TdfPlace& /*place*/, std::string_view name,
                                  std::string_view value) {
                if (!found && platform::equalIgnoringCase(name, key))
                    found = value;
            }});
    return found && isName(*found) ? found : std::nullopt;
}

std::optional<UnitInfo> readUnitInfo(std::string_view text) {
    std::optional<UnitInfo> info;
    const auto isOurs = [](const TdfPlace& place) {
        return place.depth == 0 && platform::equalIgnoringCase(place.section, "unitinfo");
    };
    readTdf(text, {.onSection =
                       [&](const TdfPlace& section) {
                           if (!info && isOurs(section))
                               info.emplace();
                       },
                   .onValue =
                       [&](const TdfPlace& place, std::string_view name, std::string_view value) {
                           if (isOurs(place))
                               take(*info, name, value);
                       }});
    return info;
}

} // namespace formats
