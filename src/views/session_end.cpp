// A window may refuse to close while work runs, so it is asked again and again.
#include "views/session_end.h"

#include <chrono>

#include <QApplication>
#include <QDialog>
#include <QSessionManager>
#include <QSocketNotifier>

#include "platform/termination.h"
#include "views/qt_toolkit.h"

namespace views {

SessionEnd::SessionEnd(QtToolkit& toolkit) : toolkit_(toolkit) {
    constexpr auto betweenTries = std::chrono::milliseconds(50);
    closing_.setInterval(betweenTries);
    connect(&closing_, &QTimer::timeout, this, &SessionEnd::closeOne);
    connect(qApp, &QGuiApplication::commitDataRequest, this,
            [this](QSessionManager& /*manager*/) { closing_.start(); });
    const int wishes = platform::watchTermination();
    if (wishes == -1)
        return;
    signals_ = std::make_unique<QSocketNotifier>(wishes, QSocketNotifier::Read);
    connect(signals_.get(), &QSocketNotifier::activated, this, [this] {
        signals_->setEnabled(false);
        closing_.start();
    });
}

SessionEnd::~SessionEnd() = default;

void SessionEnd::closeOne() {
    toolkit_.noteEnding();
    auto* top = QApplication::activeModalWidget();
    if (auto* dialog = qobject_cast<QDialog*>(top))
        dialog->done(QDialog::Rejected);
    else if (top != nullptr)
        top->close();
    else
        toolkit_.closeMain();
}

} // namespace views
