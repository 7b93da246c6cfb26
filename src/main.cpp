// The program: the real disk, the real windows, one frmMain; or one command without any window.
#include <iostream>

#include <QApplication>

#include "commandline/commands.h"
#include "platform/console.h"
#include "platform/instance_lock.h"
#include "views/doorbell.h"
#include "views/qt_toolkit.h"
#include "views/session_end.h"
#include "views/style.h"
#include "windows/frmMain.h"
#include "windows/title.h"

namespace {

constexpr auto isRunningAlready = "Vexillum is already running in this directory.";

int runCommand(const std::vector<std::string>& arguments) {
    platform::useConsoleOfCaller();
    const auto disk = platform::makeDisk();
    const auto programs = platform::makePrograms(*disk);
    return commandline::run({*disk, *programs, platform::programFolder(), std::cout, std::cerr},
                            arguments);
}

int runWindows(int argc, char** argv) {
    QApplication application(argc, argv);
    QApplication::setApplicationName("Vexillum");
    QApplication::setApplicationVersion(VEXILLUM_VERSION);
    QApplication::setQuitOnLastWindowClosed(false);
    views::applyStyle(application);

    const auto folder = platform::programFolder();
    views::QtToolkit toolkit;
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
    const auto arguments = QApplication::arguments().mid(1).join(' ');
    windows::frmMain main({*disk, toolkit, *programs, folder, platform::programName(),
                           arguments.toStdString(), platform::takeHandedOver()});
    main.run();
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    return commandline::isCommand(arguments) ? runCommand(arguments) : runWindows(argc, argv);
}
