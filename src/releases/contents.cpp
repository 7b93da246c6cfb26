// What is found is put into words here, so that pane, tiles and screen readers tell the same.
#include "releases/contents.h"

#include <algorithm>
#include <initializer_list>
#include <optional>

#include "platform/text.h"

namespace releases {
namespace {

void add(std::string& list, const std::string& part) {
    if (!part.empty())
        list += (list.empty() ? "" : ", ") + part;
}

std::string counted(std::uint64_t count, const std::string& one) {
    return count == 0 ? "" : platform::withSeparators(count) + " " + one + (count == 1 ? "" : "s");
}

std::string withLineBreak(const std::string& text) {
    return text.empty() ? "" : text + std::string(platform::lineBreak);
}

std::string faultText(const std::string& fault) {
    return fault.empty() ? "" : "No picture: " + fault + ".";
}

std::string rangeText(std::optional<std::int64_t> least, std::optional<std::int64_t> most) {
    if (!least || !most || *least == *most)
        return std::to_string(least ? *least : *most);
    return std::to_string(*least) + " to " + std::to_string(*most);
}

/// Those that are not empty.
std::string inLines(std::initializer_list<std::string> lines) {
    std::string text;
    for (const auto& line : lines)
        if (!line.empty())
            text += (text.empty() ? "" : std::string(platform::lineBreak)) + platform::toUtf8(line);
    return text;
}

} // namespace

bool Contents::hasPictures() const {
    const auto has = [](const auto& each) { return each.picture != nullptr; };
    return std::ranges::any_of(maps, has) || std::ranges::any_of(units, has);
}

std::string summaryText(const Contents& contents) {
    std::string text;
    add(text, counted(contents.archives, "archive"));
    add(text, counted(contents.files, "file"));
    add(text, counted(contents.maps.size(), "map"));
    add(text, counted(contents.units.size(), "unit"));
    add(text, counted(contents.weapons, "weapon"));
    return text.empty() ? "No files" : text;
}

std::string spokenText(const MapContent& map) {
    auto text = "map " + platform::toUtf8(map.name);
    add(text, formats::shownSize(map.info.size));
    add(text, formats::playersText(map.info));
    return text;
}

std::string spokenText(const UnitContent& unit) {
    auto text = "unit " + platform::toUtf8(unit.name);
    add(text, platform::toUtf8(unit.info.description));
    return text;
}

std::string factsText(const MapContent& map) {
    const auto& info = map.info;
    std::string facts;
    add(facts, formats::shownSize(info.size));
    add(facts, formats::playersText(info));
    add(facts, platform::toUtf8(info.planet));
    std::string weather;
    if (info.leastWind || info.mostWind)
        add(weather, "wind " + rangeText(info.leastWind, info.mostWind));
    add(weather, info.tide ? "tide " + std::to_string(*info.tide) : "");
    add(weather, info.gravity ? "gravity " + std::to_string(*info.gravity) : "");
    return inLines({info.description, facts, weather, faultText(map.fault)});
}

std::string factsText(const UnitContent& unit) {
    const auto& info = unit.info;
    std::string facts;
    add(facts, platform::toUtf8(info.side));
    add(facts, info.energy ? std::to_string(*info.energy) + " energy" : "");
    add(facts, info.metal ? std::to_string(*info.metal) + " metal" : "");
    return inLines({info.description, facts, faultText(unit.fault)});
}

std::string aboutText(const formats::MapInfo& info) {
    std::string facts;
    add(facts, formats::shownSize(info.size));
    add(facts, formats::playersText(info));
    add(facts, info.planet);
    return withLineBreak(info.description) + withLineBreak(facts);
}

std::string aboutText(const formats::UnitInfo& info) {
    std::string facts;
    add(facts, info.side);
    add(facts, info.energy ? platform::withSeparators(static_cast<std::uint64_t>(
                                 std::max<std::int64_t>(0, *info.energy))) +
                                 " energy"
                           : "");
    add(facts, info.metal ? platform::withSeparators(static_cast<std::uint64_t>(
                                std::max<std::int64_t>(0, *info.metal))) +
                                " metal"
                          : "");
    return withLineBreak(info.description) + withLineBreak(facts);
}

} // namespace releases
