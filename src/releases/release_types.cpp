// The table of the types, and what follows from a row of it.
#include "releases/release_types.h"

#include <algorithm>

#include "platform/text.h"

namespace releases {
namespace {

constexpr std::string_view aboutRaces =
    "Races add entire new sides to play as to TA.\r\n\r\n"
    "Please be sure to note the difference between EXE races and Warpgate Races:\r\n"
    "  - EXE races use a custom exe to add another side.  These Races are VERY RARELY compatible "
    "with one another.  Even under the best conditions, there can be a maximum of 2 enabled.\r\n"
    "  - Warpgate Races provide a commander built from a Warpgate.  These races require the "
    "Warpgate mod to be activated, but CAN coexist with each other, although they can still "
    "conflict with each other like any other unit pack.\r\n\r\n"
    "Make sure that there are no races selected in this dialog when adding/removing races";

constexpr std::string_view aboutMods =
    "Modifications generally change something put in place by the TC.\r\n\r\n"
    "Make sure that there are no modifications selected in this dialog when adding/removing "
    "modifications";

constexpr std::string_view aboutMaps =
    "Maps add new fields of battle for TA.\r\n\r\n"
    "Make sure that there are no maps selected in this dialog when adding/removing maps";

constexpr std::string_view aboutUnits =
    "Units are new structures or mobile units to play with.\r\n\r\n"
    "Make sure that there are no units selected in this dialog when adding/removing units";

constexpr std::array types = {
    TypeInfo{
        .type = ReleaseType::map,
        .shortName = "Map",
        .typeName = "Map",
        .hasLooseFolder = true,
        .tab = 4,
        .tabCaption = "Maps",
        .wizardRow = 4,
        .selectionFile = "selMaps.txt",
        .controlName = "lblSelMaps",
        .boxName = "txtSelMaps",
        .label = "Maps:",
        .firstSummary = "0 Maps Enabled",
        .enabled = " 3rd Party Maps Enabled",
        .selected = " 3rd Party Maps Selected",
        .aboutHeading = "About Maps:",
        .about = aboutMaps,
        .one = "map",
        .several = "maps",
    },
    TypeInfo{
        .type = ReleaseType::unit,
        .shortName = "Unit",
        .typeName = "Unit",
        .hasLooseFolder = true,
        .tab = 5,
        .tabCaption = "Units",
        .wizardRow = 5,
        .selectionFile = "selUnits.txt",
        .controlName = "lblSelUnits",
        .boxName = "txtSelUnits",
        .label = "Units:",
        .firstSummary = "0 Units Enabled",
        .enabled = " 3rd Party Units Enabled",
        .selected = " 3rd Party Units Selected",
        .aboutHeading = "About Units:",
        .about = aboutUnits,
        .one = "unit",
        .several = "units",
    },
    TypeInfo{
        .type = ReleaseType::tc,
        .shortName = "TC",
        .typeName = "Total Conversion",
        .choice = Choice::one,
        .tab = 0,
        .tabCaption = "Total Conversions",
        .wizardRow = 0,
        .selectionFile = "selTC.txt",
        .defaultName = defaultTC,
        .controlName = "lblSelTC",
        .boxName = "txtSelTC",
        .label = "TC:",
        .firstSummary = defaultTC,
    },
    TypeInfo{
        .type = ReleaseType::race,
        .shortName = "Race",
        .typeName = "Race",
        .tab = 2,
        .tabCaption = "Races",
        .wizardRow = 1,
        .selectionFile = "selRaces.txt",
        .controlName = "lblSelRace",
        .boxName = "txtSelRaces",
        .label = "Races:",
        .firstSummary = "0 3rd Party Races Enabled",
        .enabled = " 3rd Party Races Enabled",
        .selected = " 3rd Party Races Selected",
        .aboutHeading = "About Races:",
        .about = aboutRaces,
        .one = "race",
        .several = "races",
    },
    TypeInfo{
        .type = ReleaseType::mod,
        .shortName = "Mod",
        .typeName = "Modification",
        .tab = 3,
        .tabCaption = "Mods",
        .wizardRow = 3,
        .selectionFile = "selMods.txt",
        .controlName = "lblSelMods",
        .boxName = "txtSelMods",
        .label = "Mods:",
        .firstSummary = "0 Mods Enabled",
        .enabled = " Modifications Enabled",
        .selected = " Modifications Selected",
        .aboutHeading = "About Modifications:",
        .about = aboutMods,
        .one = "modification",
        .several = "modifications",
    },
    TypeInfo{
        .type = ReleaseType::ai,
        .shortName = "AI",
        .typeName = "AI",
        .choice = Choice::one,
        .tab = 1,
        .tabCaption = "AIs",
        .wizardRow = 2,
        .selectionFile = "selAI.txt",
        .defaultName = defaultAI,
        .controlName = "lblSelAI",
        .boxName = "txtSelAI",
        .label = "AI:",
        .firstSummary = defaultAI,
    },
};

constexpr std::size_t placeOf(ReleaseType type) {
    return static_cast<std::size_t>(type) - 1;
}

constexpr bool standsInOrder() {
    for (std::size_t i = 0; i < types.size(); ++i)
        if (placeOf(types[i].type) != i)
            return false;
    return true;
}
static_assert(standsInOrder(), "the rows stand in the order of their numbers");

constexpr bool hasEachPlaceOnce(int TypeInfo::*place) {
    for (std::size_t i = 0; i < types.size(); ++i)
        if (std::ranges::count(types, static_cast<int>(i), place) != 1)
            return false;
    return true;
}
static_assert(hasEachPlaceOnce(&TypeInfo::tab), "each tab belongs to one type");
static_assert(hasEachPlaceOnce(&TypeInfo::wizardRow), "each row of the wizard belongs to one type");

} // namespace

std::span<const TypeInfo> releaseTypes() {
    return types;
}

std::span<const TypeInfo* const> typesByTab() {
    static const auto byTab = [] {
        std::array<const TypeInfo*, types.size()> rows{};
        for (const auto& row : types)
            rows[static_cast<std::size_t>(row.tab)] = &row;
        return rows;
    }();
    return byTab;
}

const TypeInfo& infoOf(ReleaseType type) {
    return types[placeOf(type)];
}

const TypeInfo* typeOfTab(std::string_view caption) {
    const auto at = std::find_if(types.begin(), types.end(),
                                 [&](const auto& row) { return row.tabCaption == caption; });
    return at == types.end() ? nullptr : at;
}

bool isDefaultRelease(std::string_view displayName) {
    return std::ranges::any_of(
        types, [&](const auto& row) { return row.isSingle() && row.defaultName == displayName; });
}

std::optional<std::string_view> withoutPrefix(std::string_view folder, ReleaseType type) {
    const auto prefix = std::string(infoOf(type).shortName) + "-";
    if (!platform::equalIgnoringCase(folder.substr(0, prefix.size()), prefix))
        return std::nullopt;
    return folder.substr(prefix.size());
}

bool isLooseFolder(std::string_view name, ReleaseType type) {
    return infoOf(type).hasLooseFolder && platform::equalIgnoringCase(name, "misc");
}

std::string folderForm(std::string_view displayName) {
    return platform::replaceAll(displayName, "/", "~");
}

std::string displayForm(std::string_view folderName) {
    return platform::replaceAll(folderName, "~", "/");
}

} // namespace releases
