// The event loop waits for the bell as for any other news.
#include "views/doorbell.h"

#ifdef Q_OS_WIN
#include <QWinEventNotifier>
#else
#include <QSocketNotifier>
#endif

#include "views/qt_toolkit.h"

namespace views {

AnswersDoorbell::AnswersDoorbell(std::unique_ptr<platform::Doorbell> bell, QtToolkit& toolkit)
    : bell_(std::move(bell)) {
    if (bell_ == nullptr)
        return;
#ifdef Q_OS_WIN
    using Notifier = QWinEventNotifier;
    auto waits = std::make_unique<Notifier>(reinterpret_cast<Qt::HANDLE>(bell_->handle()));
#else
    using Notifier = QSocketNotifier;
    auto waits = std::make_unique<Notifier>(bell_->handle(), QSocketNotifier::Read);
#endif
    connect(waits.get(), &Notifier::activated, this, [this, &toolkit] {
        bell_->answer();
        toolkit.raise();
    });
    waits_ = std::move(waits);
}

AnswersDoorbell::~AnswersDoorbell() = default;

} // namespace views
