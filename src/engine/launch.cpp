// The ways out of a run.
#include "engine/frmMain.h"
#include "platform/failure.h"

namespace engine {

void frmMain::cmdGo_Click() {
    moveFiles();
    startProgram("totala.exe");
    saveSelsOrTell();
    endProgram();
}

void frmMain::cmdRevert_Click() {
    revertSels(true);
    const auto type = currentType().type;
    if (type == ReleaseType::tc || type == ReleaseType::ai)
        lstList_Click();
}

void frmMain::startProgram(const std::string& name, const std::string& arguments) {
    try {
        machine_.programs.start({platform::Command::Kind::program, TADir + "\\" + name, arguments,
                                 platform::StartWindow::normal});
    } catch (const platform::Failure& failure) {
        tell("The program \"" + name + "\" could not be started.\r\n\r\n" + failure.what());
    }
}

void frmMain::saveSelsOrTell() {
    try {
        saveSels();
    } catch (const platform::Failure& failure) {
        tell(std::string("The selection could not be saved.\r\n\r\n") + failure.what());
    }
}

void frmMain::endProgram() {
    throw platform::ProgramEnd();
}

} // namespace engine
