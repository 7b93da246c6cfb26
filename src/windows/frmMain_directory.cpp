// Another game directory: the program ends as ever and begins there.
#include "platform/failure.h"
#include "windows/frmDirectories.h"
#include "windows/frmMain.h"

namespace windows {

/// A program that lies in its game directory has no other one.
void frmMain::offerDirectories() {
    mnuFDirectory.setVisible(machine_.installation != nullptr &&
                             machine_.installation->isInstalled());
}

void frmMain::mnuFDirectory_Click() {
    if (machine_.installation == nullptr)
        return;
    std::optional<std::string> wanted;
    {
        frmDirectories window(toolkit(), *machine_.installation, game_.TADir());
        toolkit().showModal(window);
        wanted = window.wanted();
    }
    if (!wanted || !moveFiles())
        return;
    saveSelsOrTell();
    startVexillum(*wanted);
    endProgram();
}

/// A copy in a game directory is started there by its name; else this program is, for that
/// directory.
void frmMain::startVexillum(const std::string& directory, const std::string& arguments,
                            const std::string& handedOver) {
    const auto program = machine_.installation == nullptr
                             ? std::nullopt
                             : machine_.installation->programFor(directory);
    if (!program)
        return startProgram({platform::Command::Kind::program, game_.at("Vexillum.exe"), arguments,
                             platform::StartWindow::normal, handedOver},
                            "Vexillum.exe");
    startProgram({platform::Command::Kind::program,
                  *program,
                  arguments,
                  platform::StartWindow::normal,
                  handedOver,
                  {},
                  {"--directory=" + directory}},
                 platform::shownPath(*program));
}

void frmMain::startProgram(const platform::Command& command, const std::string& name) {
    if (toolkit().isEnding())
        return;
    try {
        machine_.programs.start(command);
    } catch (const platform::Failure& failure) {
        warnNotStarted(name, failure);
    }
}

} // namespace windows
