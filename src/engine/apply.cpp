// The apply: from the selection to the state of the game directory. All questions come before the
// first change, and the journal stands on the disk before the first file moves.
#include <utility>

#include "engine/frmMain.h"
#include "platform/failure.h"

namespace engine {

/// Passes over every failure; files that cannot be moved are reported by MoveFile.
void frmMain::moveFiles() {
    setResting(true);
    carryOut(makePlan());
    setResting(false);
}

Plan frmMain::makePlan() {
    MessageRow clashes;
    MessageRow programs;
    const auto askIn = [this](MessageRow& row) {
        return [this, &row](const std::string& question) {
            return askInRow(row, question, {"Yes", "No"}) == 0;
        };
    };
    const auto absolute = [this](const std::string& path) {
        return path.empty() || path.starts_with('\\') ? TADir + path : TADir + "\\" + path;
    };
    const Listings listings{[&](StringArray& names, const std::string& path) {
                                return folderArray(names, absolute(path));
                            },
                            [&](StringArray& names, const std::string& path) {
                                return fileArray(names, absolute(path));
                            }};
    Plan plan;
    const auto gather = [&](ReleaseType type, std::span<const std::string> names) {
        for (const auto& name : names)
            plan.gatherRelease(type, name, listings, askIn(clashes));
    };
    plan.gatherGame(listings);
    gather(ReleaseType::map, selMaps.entries());
    gather(ReleaseType::unit, selUnits.entries());
    gather(ReleaseType::tc, {&selTC, 1});
    gather(ReleaseType::race, selRaces.entries());
    gather(ReleaseType::mod, selMods.entries());
    gather(ReleaseType::ai, {&selAI, 1});
    plan.chooseExe(askIn(programs));
    return plan;
}

void frmMain::carryOut(const Plan& plan) {
    // What the reset moved back must not be lost once the journal that tells of it is replaced.
    platform::attempt([this] { disk().flush(); });
    platform::attempt(
        [&] { disk().writeFile(inDataTree("VXL-Changes\\Human.txt"), humanText(plan)); });
    platform::attempt(
        [&] { disk().replaceFile(inDataTree("VXL-Changes\\Internal.txt"), journalText(plan)); });
    openLog("Rearranging TA Directory...", "Updating for chosen settings...");
    showReadme_.setLogText("Creating Needed Subdirectories...");
    toolkit().show(showReadme_);
    toolkit().doEvents();
    for (const auto& answered : std::exchange(answeredAlike_, {}))
        showReadme_.appendLogLine(answered);
    for (const auto& folder : plan.mkdirs().entries()) {
        showReadme_.appendLogLine(folder);
        platform::attempt([&] { disk().makeFolder(TADir + "\\" + folder); });
        toolkit().doEvents();
    }
    showReadme_.appendLogLine("Moving Files...");
    moveFailures_ = {};
    for (const auto& entry : plan.entries()) {
        if (!entry.moves())
            continue;
        showReadme_.appendLogLine(entry.fromPath + " to " + entry.toPath);
        MoveFile(TADir + "\\" + entry.fromPath, TADir + "\\" + entry.toPath, false);
        toolkit().doEvents();
    }
    const auto problem = mnuMMenable.checked() ? runMenuModifier() : std::string();
    showReadme_.appendLogLine("Done");
    showLogForASecond();
    if (!problem.empty())
        tell(problem);
}

} // namespace engine
