// The way in and out: start and reset, close, launch, restart.
#include <utility>

#include "conflict/modConflict.h"
#include "cycle/apply.h"
#include "cycle/reset.h"
#include "cycle/selection_files.h"
#include "menumod/modifier_step.h"
#include "platform/failure.h"
#include "platform/text.h"
#include "windows/frmMain.h"
#include "windows/frmPreview.h"
#include "windows/title.h"

namespace windows {
namespace {

constexpr auto fallbackDirectory = "P:\\Ostler\\virginTA";
constexpr auto scanSwitch = "--WIDCF";

} // namespace

/// Commands rest until the game directory is plain and the catalogue stands: a launch out of the
/// middle of the start would take what is still to be reset for the game's own.
void frmMain::Form_Load() {
    setResting(true);
    setText(applicationTitle);
    platform::attempt([this] { toolkit().show(*this); });
    log_.breathe();
    platform::attempt([this] { Init(); });
    platform::attempt([this] { tspMain_Click(); });
    platform::attempt([this] {
        countReleases();
        show();
    });
    setResting(false);
}

void frmMain::Init() {
    for (const auto& folder : {machine_.programFolder, std::string(fallbackDirectory)}) {
        game_.open(folder);
        if (game_.DoesFolderExist(game_.at(releases::dataTree)))
            break;
    }
    if (!game_.DoesFolderExist(game_.at(releases::dataTree))) {
        warn("The Vexillum Data Files seem to be missing.\r\n\r\nPlease reinstall VXL.");
        endProgram();
    }
    widcfRun = machine_.commandLine == scanSwitch;
    if (widcfRun) {
        mnuFCweapon_Click();
        startVexillum(game_.TADir());
        endProgram();
    }
    waitForGame();
    checkGameDirectory();
    store_.read();
    readSelection();
    readAnswers();
    readComesBack();
    readWrapper();
    resetGameDirectory();
    takeBackCleared();
}

/// Ticks that the last copy has cleared before it started this one.
void frmMain::takeBackCleared() {
    if (machine_.handedOver.empty())
        return;
    Cleared cleared{selection_};
    cycle::readText(machine_.handedOver, cleared.selection);
    std::swap(selection_, cleared.selection);
    noteCleared();
    std::swap(selection_, cleared.selection);
}

/// Files that the game has open could not be moved back.
void frmMain::waitForGame() {
    const auto program = game_.at(releases::gameProgram);
    while (machine_.programs.isRunning(program)) {
        const auto answer = game_.questions().ask(
            {"The game is still running in this directory, so its files cannot be moved back "
             "safely.\r\n\r\nWould you like to wait until it has ended, go on all the same, or "
             "leave?",
             {"Wait", "Go on", "Leave"}});
        if (answer == 2 || toolkit().isEnding())
            endProgram();
        if (answer == 1)
            return;
        log_.open("Waiting...", "Waiting for the game to end...", LogWindow::Shows::atOnce);
        do
            showLogForASecond();
        while (showReadme_.visible() && !toolkit().isEnding() &&
               machine_.programs.isRunning(program));
        log_.close();
        if (toolkit().isEnding())
            endProgram();
    }
}

/// What would fail at the launch is told ahead of it.
void frmMain::checkGameDirectory() {
    lookForGame();
    std::vector<std::string> closed;
    for (const auto& folder : {game_.TADir(), game_.at(releases::dataTree),
                               game_.inDataTree("VXL-Changes"), game_.inDataTree("VXL-Sel")})
        try {
            game_.disk().checkWritable(folder);
        } catch (const platform::Failure& failure) {
            closed.push_back(platform::shownPath(folder) + ": " + failure.reason());
        }
    if (!closed.empty())
        warn("These folders cannot be written, so releases cannot be applied:\r\n\r\n" +
             platform::shownList(closed) +
             "\r\nPlease allow writing there and start Vexillum again.");
}

void frmMain::readSelection() {
    const auto unread = cycle::readSels(game_, selection_);
    selectionWasRead_ = true;
    show();
    if (!unread.empty())
        warn("These files of the selection could not be read and count as blank:\r\n\r\n" +
             platform::joinLines(unread));
}

void frmMain::readAnswers() {
    const auto failure = cycle::readAnswers(game_, answers_);
    savedAnswers_ = answers_.text();
    if (!failure.empty())
        warn("The remembered answers could not be read, so all is asked anew:\r\n\r\n" + failure);
}

void frmMain::saveAnswers() {
    const auto text = answers_.text();
    if (text == savedAnswers_)
        return;
    try {
        cycle::saveAnswers(game_, answers_);
        savedAnswers_ = text;
    } catch (const platform::Failure& failure) {
        warn(std::string("The answers could not be remembered.\r\n\r\n") + failure.what());
    }
}

/// Where a journal is lost the selection stays on the disk too: it is what lies in the game
/// directory.
void frmMain::resetGameDirectory() {
    const auto last = cycle::readLastLaunch(game_);
    tellOfDamage(last);
    log_.open("Resetting TA Directory...", "Undoing all changes...", LogWindow::Shows::atOnce);
    unfinished_ = cycle::undo(game_, last, selection_.modifier.enabled);
    showLogForASecond();
    if (!last.lostJournal)
        try {
            cycle::killSels(game_);
        } catch (const platform::Failure& failure) {
            game_.questions().ask({"The selection could not be blanked, so it may be shown once "
                                   "more at the next start.\r\n\r\nPlease allow writing to \"" +
                                       platform::shownPath(game_.inDataTree("VXL-Sel")) + "\".",
                                   {"OK"},
                                   0,
                                   failure.what()});
        }
    log_.close();
}

void frmMain::tellOfDamage(const cycle::LastLaunch& last) {
    const auto told = [this](const cycle::LastLaunch::Damage& damage, const std::string& what) {
        game_.questions().ask(
            {what + " \"" + platform::shownPath(damage.file) +
                 "\" is missing or damaged, so files of the last launch may still lie in the "
                 "game directory.\r\n\r\nWhat can be told safely is moved back. Please look "
                 "through the game directory, and at \"Human.txt\" beside that file, before "
                 "you launch.",
             {"OK"},
             0,
             damage.reason});
    };
    if (last.lostJournal)
        told(*last.lostJournal, "The journal");
    if (last.damagedPending)
        told(*last.damagedPending, "The list of files that could not be moved back,");
}

bool frmMain::moveFiles() {
    setResting(true);
    stopLooking();
    const auto journal =
        cycle::makePlan(game_, selection_, unfinished_, {&chosen_, &answers_, wasPreviewed_})
            .journal();
    saveAnswers();
    log_.open("Rearranging TA Directory...", "Updating for chosen settings...",
              LogWindow::Shows::withText);
    std::string problem;
    const auto modifier = [&] {
        auto outcome =
            menumod::runModifier(game_, {selection_.modifier.compress, selection_.modifier.small});
        selection_.modifier.enabled = outcome.isOn;
        problem = std::move(outcome.problem);
    };
    const bool isMoved =
        cycle::carryOut(game_, journal, unfinished_,
                        selection_.modifier.enabled ? std::function<void()>(modifier) : nullptr);
    show();
    if (isMoved)
        showLogForASecond();
    else
        log_.close();
    if (!problem.empty())
        warn(problem);
    if (!isMoved)
        goOnLooking();
    setResting(false);
    return isMoved;
}

/// The log stands for a second, or until the user closes it.
void frmMain::showLogForASecond() {
    tmrSleep.setInterval(1000);
    tmrSleep.setEnabled(true);
    while (tmrSleep.enabled() && showReadme_.visible()) {
        toolkit().waitForTimer();
        log_.breathe();
    }
    tmrSleep.setEnabled(false);
}

void frmMain::tmrSleep_Timer() {
    tmrSleep.setEnabled(false);
}

void frmMain::Form_Unload() {
    moveFiles();
    saveSelsOrTell();
    endProgram();
}

void frmMain::cmdGo_Click() {
    if (!moveFiles())
        return;
    if (comesBack_)
        return playAndComeBack();
    startProgram(gameCommand(), std::string(releases::gameProgram));
    saveSelsOrTell();
    endProgram();
}

void frmMain::mnuFPreview_Click() {
    wasPreviewed_ = true;
    frmPreview preview(
        toolkit(), {game_, selection_, unfinished_, chosen_, answers_, [this] { saveAnswers(); }});
    preview.Form_Load();
}

/// The weapon report needs the selection in place: it is applied, a copy of the program with the
/// switch shows the report before any reset, and starts the plain program behind it.
void frmMain::mnuFCweapon_Click() {
    if (!widcfRun) {
        if (!moveFiles())
            return;
        saveSelsOrTell();
        startVexillum(game_.TADir(), scanSwitch);
        endProgram();
    }
    showWorking();
    const auto report = conflict::modConflict(game_).scanWeaponIDs();
    showReadme_.showReport("Weapon IDs", "List of Weapon IDs and their assignments",
                           {report.text, report.summary(), report.conflicts}, ask_);
    hideWorking();
}

void frmMain::RestartVXL(bool askUser) {
    if (askUser && !ask_.askYesNo("It is suggested that you close and then restart Vexillum now."
                                  "\r\n\r\nWould you like to do so?"))
        return;
    revertSels(true);
    saveSelsOrTell();
    startVexillum(game_.TADir(), {}, cleared_ ? cycle::textOf(cleared_->selection) : "");
    endProgram();
}

void frmMain::saveSels() {
    cycle::saveSels(game_, selection_);
}

void frmMain::saveSelsOrTell() {
    try {
        saveSels();
    } catch (const platform::Failure& failure) {
        warn(std::string("The selection could not be saved.\r\n\r\n") + failure.what());
    }
}

void frmMain::warnNotStarted(const std::string& name, const platform::Failure& failure) {
    warn("The program \"" + name + "\" could not be started.\r\n\r\n" + failure.what());
}

void frmMain::endProgram() {
    removeUnusedTexts();
    throw platform::ProgramEnd();
}

} // namespace windows
