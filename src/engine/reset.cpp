// The reset: at every start the journal of the last run is undone, so that the game directory is
// plain while the catalogue is open.
#include <unordered_set>

#include "engine/frmMain.h"
#include "platform/failure.h"
#include "platform/text.h"

namespace engine {
namespace {

/// Where the journal sent the files of the game that had to make room, by their places.
DisplacedFiles displacedFiles(const Journal& journal) {
    DisplacedFiles waiting;
    for (const auto& move : journal.moves)
        waiting.emplace(platform::foldCase(move.source), move.destination);
    return waiting;
}

} // namespace

/// Passes over every failure: what cannot be undone is reported by MoveFile alone.
void frmMain::resetGameDirectory(const Journal& journal) {
    setResting(true);
    openLog("Resetting TA Directory...", "Undoing all changes...");
    toolkit().show(showReadme_);
    toolkit().doEvents();
    showReadme_.setLogText("Unmoving Files...");
    moveFailures_ = {};
    undoMoves(journal);
    showReadme_.appendLogLine("Removing Extra Subdirectories...");
    for (const auto& folder : journal.folders) {
        showReadme_.appendLogLine(folder);
        platform::attempt([&] { disk().removeFolder(TADir + "\\" + folder); });
        toolkit().doEvents();
    }
    showReadme_.appendLogLine("Removing Trellis Data Files...");
    if (mnuMMenable.checked())
        for (const auto* folder : {"\\anims", "\\download", "\\guis"})
            totallyKillFolder(TADir + folder, true);
    showReadme_.appendLogLine("Done");
    showLogForASecond();
    platform::attempt([this] { killSels(); });
    toolkit().hide(showReadme_);
    setResting(false);
}

void frmMain::undoMoves(const Journal& journal) {
    const auto displaced = displacedFiles(journal);
    std::unordered_set<std::string> folders;
    for (const auto& folder : journal.folders)
        folders.insert(platform::foldCase(folder));
    std::string lastFolder;
    bool folderIsThere = true;
    for (auto move = journal.moves.rbegin(); move != journal.moves.rend(); ++move) {
        showReadme_.appendLogLine(move->destination + " to " + move->source);
        const auto from = TADir + "\\" + move->destination;
        const auto to = TADir + "\\" + move->source;
        // A folder of the journal may stand where a file was that made room for a release's.
        if (folders.contains(platform::foldCase(move->source)))
            platform::attempt([&] { disk().removeFolder(to); });
        const auto folder = to.substr(0, to.rfind('\\'));
        if (folder != lastFolder) {
            folderIsThere = DoesFolderExist(folder);
            lastFolder = folder;
        }
        if (!folderIsThere && isGamesOwn(*move, displaced))
            tellOfFailedMove(from, to);
        else
            MoveFile(from, to, false);
        toolkit().doEvents();
    }
}

/// Whether the entry at a move's destination is not the release's file, of a release that is gone:
/// it is a folder, or the file of the game that had to make room there does not wait elsewhere, so
/// it is back. A journal undone once more must not move that entry away.
bool frmMain::isGamesOwn(const Journal::Move& move, const DisplacedFiles& displaced) {
    if (disk().kindOf(TADir + "\\" + move.destination) == platform::EntryKind::folder)
        return true;
    const auto waiting = displaced.find(platform::foldCase(move.destination));
    return waiting != displaced.end() && !DoesFileExist(TADir + "\\" + waiting->second);
}

void frmMain::openLog(const std::string& title, const std::string& heading) {
    showReadme_.Form_Load();
    showReadme_.setText(title);
    showReadme_.lblWhat.setText(heading);
    showReadme_.txtReadme.setText("");
    showReadme_.closed.noted = false;
}

/// The log stands for a second, or until the user closes it.
void frmMain::showLogForASecond() {
    tmrSleep.setInterval(1000);
    tmrSleep.setEnabled(true);
    while (tmrSleep.enabled() && showReadme_.visible() && !showReadme_.closed.noted)
        toolkit().waitForTimer();
    tmrSleep.setEnabled(false);
}

void frmMain::tmrSleep_Timer() {
    tmrSleep.setEnabled(false);
}

} // namespace engine
