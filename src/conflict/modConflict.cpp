// The scan takes the weapon files out of all archives, so that the last archive to bring a file
// wins, as it does in the game, and reads what is left.
#include "conflict/modConflict.h"

#include "conflict/weapon_table.h"
#include "menumod/extraction.h"
#include "platform/failure.h"
#include "platform/text.h"

namespace conflict {
namespace {

constexpr auto workFolder = "VXL-WID";

} // namespace

std::string modConflict::Report::summary() const {
    if (conflictIDs.empty())
        return "No conflicts";
    std::string line = std::to_string(conflictIDs.size()) +
                       (conflictIDs.size() == 1 ? " conflict: ID " : " conflicts: IDs ");
    for (const auto& id : conflictIDs)
        line += (id == conflictIDs.front() ? "" : ", ") + std::to_string(id);
    return line;
}

modConflict::Report modConflict::scanWeaponIDs() {
    auto& disk = game_.disk();
    auto& log = game_.log();
    const auto work = game_.inDataTree(workFolder);
    game_.totallyKillFolder(work, false);
    platform::attempt([&] { disk.makeFolder(work); });
    menumod::Extraction extraction(game_);
    extraction.forEachArchive(
        [&](int handle) { extraction.extractFolder(handle, "weapons", "tdf", workFolder, true); });
    WeaponTable table;
    releases::StringArray files;
    game_.fileArray(files, work + "\\weapons");
    for (const auto& file : files.entries()) {
        log.breathe();
        // A weapon file that cannot be read is passed over.
        platform::attempt([&] {
            for (const auto& line :
                 platform::splitLines(disk.readFile(work + "\\weapons\\" + file))) {
                log.breathe();
                table.readLine(line);
            }
        });
    }
    Report report;
    for (int id = 0; id <= WeaponTable::lastListedID; ++id) {
        report.text += table.reportLine(id);
        if (!table.isConflict(id))
            continue;
        report.conflicts += table.reportLine(id);
        report.conflictIDs.push_back(id);
    }
    game_.totallyKillFolder(work, false);
    return report;
}

} // namespace conflict
