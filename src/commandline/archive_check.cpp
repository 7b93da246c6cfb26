// Reports as findings and as JSON.
#include "archive_check.h"

#include <algorithm>
#include <set>

#include "formats/game_files.h"
#include "platform/paths.h"

namespace commandline {
namespace {

std::string theGame() {
    return cycle::Owner{releases::ReleaseType::tc, std::string(releases::defaultTC)}.text();
}

/// A release, by the place that one of its files came from.
std::string ownerOf(const std::string& source) {
    const auto parts = platform::splitPath(source);
    if (parts.size() < 3)
        return theGame();
    for (const auto& info : releases::releaseTypes())
        if (const auto name = releases::withoutPrefix(parts[1], info.type))
            return cycle::Owner{info.type, releases::isLooseFolder(*name, info.type)
                                               ? parts[2]
                                               : releases::displayForm(*name)}
                .text();
    return theGame();
}

template <typename Rows>
std::set<std::string> releasesAmong(const Rows& rows) {
    std::set<std::string> owners;
    for (const auto& row : rows)
        if (row.source.owner != theGame())
            owners.insert(row.source.owner);
    return owners;
}

std::string joined(const std::set<std::string>& owners) {
    std::string text;
    for (const auto& owner : owners)
        text += (text.empty() ? "" : ", ") + owner;
    return text;
}

Json jsonOf(const conflict::Source& source) {
    return {{"archive", shown(source.archive)},
            {"owner", platform::toUtf8(source.owner)},
            {"path", shown(source.path)}};
}

Json jsonOf(const std::vector<conflict::OverflowingMenu::Entry>& entries) {
    auto rows = Json::array();
    for (const auto& entry : entries) {
        auto row = jsonOf(entry.source);
        row["unit"] = platform::toUtf8(entry.unit);
        rows.push_back(std::move(row));
    }
    return rows;
}

Json jsonOf(const conflict::OverflowingMenu& menu) {
    Json row = {{"builder", platform::toUtf8(menu.builder)},
                {"sharedButtons", Json::array()},
                {"leftOut", jsonOf(menu.leftOut)}};
    for (const auto& shared : menu.sharedButtons)
        row["sharedButtons"].push_back(
            {{"menu", shared.menu}, {"button", shared.button}, {"units", jsonOf(shared.units)}});
    return row;
}

Json jsonOf(const conflict::DamagedArchive& damaged) {
    Json row = {{"archive", shown(damaged.archive)},
                {"owner", platform::toUtf8(damaged.owner)},
                {"reason", platform::toUtf8(damaged.reason)},
                {"files", Json::array()}};
    for (const auto& file : damaged.files)
        row["files"].push_back(
            {{"path", shown(file.path)}, {"reason", platform::toUtf8(file.reason)}});
    return row;
}

} // namespace

std::vector<conflict::ChosenArchive> appliedArchives(const Workspace& work) {
    std::vector<conflict::ChosenArchive> archives;
    const auto names = work.game.list(work.game.TADir()).value_or(platform::FolderNames());
    for (const auto& name : names.files) {
        if (!formats::isGameArchive(name))
            continue;
        const auto& moves = work.last().journal.moves;
        const auto move = std::ranges::find_if(moves, [&](const auto& each) {
            return platform::equalIgnoringCase(each.destination, name);
        });
        archives.push_back(
            {name, work.game.at(name), move == moves.end() ? theGame() : ownerOf(move->source)});
    }
    return archives;
}

std::vector<Finding> findingsOf(const conflict::ArchiveReports& reports, bool modifierIsOn) {
    std::vector<Finding> findings;
    for (const auto& damaged : reports.damagedArchives) {
        if (!damaged.reason.empty())
            findings.push_back(
                {"damaged-archive", damaged.archive, "is damaged: " + damaged.reason});
        for (const auto& file : damaged.files)
            findings.push_back(
                {"damaged-archive", damaged.archive,
                 "is damaged: " + platform::shownPath(file.path) + ": " + file.reason});
    }
    for (const auto& file : reports.doubledFiles)
        if (const auto owners = releasesAmong(file.versions); owners.size() > 1)
            findings.push_back({"doubled-file", file.path,
                                "differs in archives of " + joined(owners) +
                                    "; the game takes it "
                                    "out of \"" +
                                    file.versions.front().source.archive + "\""});
    for (const auto& unit : reports.doubledUnits)
        if (const auto owners = releasesAmong(unit.definitions); owners.size() > 1)
            findings.push_back({"doubled-unit", "",
                                "The unit \"" + unit.name + "\" is defined by " + joined(owners)});
    for (const auto& menu : reports.overflowingMenus) {
        auto owners = releasesAmong(menu.leftOut);
        // The modifier finds another button for those.
        for (const auto& shared : menu.sharedButtons)
            if (!modifierIsOn)
                owners.merge(releasesAmong(shared.units));
        if (!owners.empty())
            findings.push_back({"overflowing-menu", "",
                                "The menu of \"" + menu.builder +
                                    "\" has not enough room for the units of " + joined(owners)});
    }
    return findings;
}

Json jsonOf(const conflict::ArchiveReports& reports) {
    Json document = {{"summary", reports.summary()},
                     {"doubledFiles", Json::array()},
                     {"doubledUnits", Json::array()},
                     {"overflowingMenus", Json::array()},
                     {"damagedArchives", Json::array()}};
    for (const auto& file : reports.doubledFiles) {
        Json row = {{"path", shown(file.path)}, {"versions", Json::array()}};
        for (const auto& version : file.versions) {
            auto source = jsonOf(version.source);
            source["bytes"] = version.size;
            source["same"] = version.isSame;
            row["versions"].push_back(std::move(source));
        }
        document["doubledFiles"].push_back(std::move(row));
    }
    for (const auto& unit : reports.doubledUnits) {
        Json row = {{"name", platform::toUtf8(unit.name)}, {"definitions", Json::array()}};
        for (const auto& definition : unit.definitions) {
            auto source = jsonOf(definition.source);
            source["taken"] = definition.isTaken;
            row["definitions"].push_back(std::move(source));
        }
        document["doubledUnits"].push_back(std::move(row));
    }
    for (const auto& menu : reports.overflowingMenus)
        document["overflowingMenus"].push_back(jsonOf(menu));
    for (const auto& damaged : reports.damagedArchives)
        document["damagedArchives"].push_back(jsonOf(damaged));
    return document;
}

} // namespace commandline
