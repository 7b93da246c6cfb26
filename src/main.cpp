// The program: the real disk, the real windows, one frmMain.
#include <QApplication>
#include <QMessageBox>

#include "engine/frmMain.h"
#include "platform/instance_lock.h"
#include "views/qt_toolkit.h"
#include "views/style.h"

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QApplication::setApplicationName("Vexillum");
    QApplication::setQuitOnLastWindowClosed(false);
    views::applyStyle(application);

    const auto folder = platform::programFolder();
    const auto lock = platform::lockFolder(folder);
    if (!lock) {
        QMessageBox::information(nullptr, "Vexillum v3.1 BETA",
                                 "Vexillum is already running in this directory.");
        return 1;
    }
    const auto disk = platform::makeDisk();
    const auto programs = platform::makePrograms(*disk);
    views::QtToolkit toolkit;
    const auto arguments = QApplication::arguments().mid(1).join(' ');
    engine::frmMain main(
        {*disk, toolkit, *programs, folder, platform::programName(), arguments.toStdString()});
    main.run();
    return 0;
}
