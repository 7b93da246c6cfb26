// The program: the real disk, the real windows, one frmMain; or one command without any window.
#include <iostream>
#include <memory>

#include <QApplication>

#include "commandline/commands.h"
#include "installation/installation.h"
#include "platform/console.h"
#include "platform/instance_lock.h"
#include "platform/user_places.h"
#include "views/doorbell.h"
#include "views/qt_toolkit.h"
#include "views/session_end.h"
#include "views/style.h"
#include "windows/choose_directory.h"
#include "windows/frmMain.h"
#include "windows/title.h"

namespace {

constexpr auto isRunningAlready = "Vexillum is already running in this directory.";

/// What is known beside the game directories, with a disk of its own.
struct Places {
    std::unique_ptr<platform::Disk> disk = platform::makeDisk();
    installation::Installation installation{*disk, platform::userPlaces(),
                                            platform::programFolder(), platform::programName(),
                                            platform::stockFolder()};
};

int runCommand(const std::vector<std::string>& arguments) {
    platform::useConsoleOfCaller();
    Places places;
    const auto disk = platform::makeDisk();
    const auto programs = platform::makePrograms(*disk);
    return commandline::run({*disk, *programs, places.installation.usual().value_or(""), std::cout,
                             std::cerr, &places.installation},
                            arguments);
}

int runWindows(int argc, char** argv, const commandline::WindowsLine& line) {
    QApplication application(argc, argv);
    QApplication::setApplicationName("Vexillum");
    QApplication::setApplicationVersion(VEXILLUM_VERSION);
    QApplication::setQuitOnLastWindowClosed(false);
    views::applyStyle(application);

    Places places;
    views::QtToolkit toolkit;
    const auto chosen = windows::chooseDirectory(toolkit, places.installation, line.directory);
    if (!chosen)
        return line.directory ? 1 : 0;
    const auto& folder = *chosen;
    const auto [lock, wasAnswered] = platform::lockFolder(folder, platform::Holder::isAsked);
    if (wasAnswered)
        return 0;
    if (!lock) {
        toolkit.showMessage({isRunningAlready, windows::applicationTitle, {"OK"}});
        return 1;
    }
    const views::AnswersDoorbell doorbell(platform::hangDoorbell(folder), toolkit);
    const auto disk = platform::makeDisk();
    const auto programs = platform::makePrograms(*disk);
    // Beside the other notes of the program, where there is a data tree at all.
    const auto notes = folder + "/Vexillum/VXL-Misc";
    if (disk->kindOf(notes) == platform::EntryKind::folder)
        toolkit.rememberIn(notes + "/Windows.ini");
    const views::SessionEnd sessionEnd(toolkit);
    windows::frmMain main({*disk, toolkit, *programs, folder, platform::programName(), line.rest,
                           platform::takeHandedOver(), &places.installation});
    main.run();
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    const auto line = commandline::windowsLine(arguments);
    return line ? runWindows(argc, argv, *line) : runCommand(arguments);
}
