// The program: the real disk, the real windows, one frmMain.
#include <QApplication>
#include <QMessageBox>

#include "platform/instance_lock.h"
#include "views/qt_toolkit.h"
#include "views/session_end.h"
#include "views/style.h"
#include "windows/frmMain.h"
#include "windows/title.h"

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QApplication::setApplicationName("Vexillum");
    QApplication::setApplicationVersion(VEXILLUM_VERSION);
    QApplication::setQuitOnLastWindowClosed(false);
    views::applyStyle(application);

    const auto folder = platform::programFolder();
    const auto lock = platform::lockFolder(folder);
    if (!lock) {
        QMessageBox::information(nullptr, windows::applicationTitle,
                                 "Vexillum is already running in this directory.");
        return 1;
    }
    const auto disk = platform::makeDisk();
    const auto programs = platform::makePrograms(*disk);
    views::QtToolkit toolkit;
    const views::SessionEnd sessionEnd(toolkit);
    const auto arguments = QApplication::arguments().mid(1).join(' ');
    windows::frmMain main(
        {*disk, toolkit, *programs, folder, platform::programName(), arguments.toStdString()});
    main.run();
    return 0;
}
