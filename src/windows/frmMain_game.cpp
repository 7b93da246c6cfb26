// The game and the program in turn: the one runs, the other waits and then goes on as it was.
#include "cycle/selection_files.h"
#include "platform/failure.h"
#include "windows/frmMain.h"
#include "windows/title.h"

namespace windows {
namespace {

constexpr int betweenLooks = 500;
constexpr auto gameRuns = "The game is running. Vexillum comes back when it ends.";

} // namespace

void frmMain::readComesBack() {
    const auto failure = cycle::readComesBack(game_, comesBack_);
    if (!failure.empty())
        warn("Whether to come back when the game ends could not be read, so Vexillum does "
             "not:\r\n\r\n" +
             failure);
}

/// Where it cannot be remembered it holds for this run.
void frmMain::mnuFComeBack_Click() {
    comesBack_ = !comesBack_;
    show(List::stays);
    try {
        cycle::saveComesBack(game_, comesBack_);
    } catch (const platform::Failure& failure) {
        warn(std::string("This setting could not be remembered.\r\n\r\n") + failure.what());
    }
}

void frmMain::readWrapper() {
    const auto failure = cycle::readWrapper(game_, wrapper_);
    if (!failure.empty())
        warn("What the game is to be started with could not be read, so it starts "
             "alone:\r\n\r\n" +
             failure);
    const auto reason = platform::reasonAgainstWrapper(wrapper_);
    if (!reason.empty())
        warn("The game cannot be started with \"" + wrapper_ + "\".\r\n\r\n" + reason);
}

/// One that could not run the game is asked for once more.
void frmMain::mnuFWrapper_Click() {
    auto wrapper = wrapper_;
    for (std::string reason = "?"; !reason.empty();) {
        const auto answer = toolkit().askForText(
            {"Please Enter The Command That The Game Is To Be Started With, Such As "
             "\"gamemoderun\" Or \"prime-run\". Without One It Starts Alone:",
             "Start The Game With", wrapper});
        if (!answer)
            return;
        wrapper = *answer;
        reason = platform::reasonAgainstWrapper(wrapper);
        if (!reason.empty())
            warn("The game cannot be started with this.\r\n\r\n" + reason);
    }
    wrapper_ = wrapper;
    try {
        cycle::saveWrapper(game_, wrapper_);
    } catch (const platform::Failure& failure) {
        warn(std::string("This setting could not be remembered.\r\n\r\n") + failure.what());
    }
}

platform::Command frmMain::gameCommand() const {
    return {platform::Command::Kind::program,
            game_.at(releases::gameProgram),
            "",
            platform::StartWindow::normal,
            "",
            wrapper_};
}

/// Whatever becomes of this program while it waits, the next start finds what a launch leaves
/// without it.
void frmMain::playAndComeBack() {
    saveSelsOrTell();
    removeUnusedTexts();
    setResting(true);
    log_.close();
    showGame(gameRuns);
    setText(std::string(applicationTitle) + ": the game is running");
    // A window that goes later might take the focus from the game.
    toolkit().minimize(*this);
    const std::string name(releases::gameProgram);
    std::optional<platform::Failure> failure;
    try {
        waitForEnd(*machine_.programs.startWatched(gameCommand()));
    } catch (const platform::Failure& why) {
        failure = why;
    }
    setText(applicationTitle);
    lookForGame();
    toolkit().restore(*this);
    if (failure)
        warnNotStarted(name, *failure);
    platform::attempt([this] { resetGameDirectory(); });
    lookForGame();
    platform::attempt([this] { readReleases(); });
    goOnLooking();
    show();
    setResting(false);
}

/// The user may have started the game once more, by other means.
void frmMain::waitForEnd(platform::RunningProgram& running) {
    leaving_.noted = false;
    closeWish = &leaving_;
    const auto program = game_.at(releases::gameProgram);
    tmrSleep.setInterval(betweenLooks);
    while (running.isRunning() || machine_.programs.isRunning(program)) {
        tmrSleep.setEnabled(true);
        while (tmrSleep.enabled() && !leaving_.noted)
            toolkit().waitForTimer();
        if (leaving_.noted)
            endProgram();
    }
    closeWish = nullptr;
}

/// Where releases have other names by now the list is a new one, and else it stays as it was.
void frmMain::readReleases() {
    store_.read();
    newNames_.clear();
    countReleases();
    if (store_.releasesOf(currentType().type) != listed_)
        tspMain_Click();
}

void frmMain::lookForGame() {
    showGame(game_.DoesFileExist(game_.at(releases::gameProgram))
                 ? ""
                 : "\"" + std::string(releases::gameProgram) + "\" was not found here.");
}

/// Below the button that starts it.
void frmMain::showGame(const std::string& state) {
    lblGo.setText(state);
    lblGo.setVisible(!state.empty());
}

} // namespace windows
