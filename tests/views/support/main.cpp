// Tests of windows run without a screen, on the platform of Qt that has none.
#include <QApplication>
#include <cstdio>

#include <gtest/gtest.h>

namespace {

/// The platform says with each window what it cannot do.
void passOn(QtMsgType /*type*/, const QMessageLogContext& /*context*/, const QString& message) {
    if (!message.startsWith("This plugin does not support"))
        std::fprintf(stderr, "%s\n", qPrintable(message));
}

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler(passOn);
    const QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
