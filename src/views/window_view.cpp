// The window's part of the work: when its widgets are shown anew, and its own keys and drops.
#include "views/window_view.h"

#include <utility>

#include <QCloseEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QTimer>

#include "drop_hint.h"
#include "views/qt_toolkit.h"
#include "window_access.h"

namespace views {
namespace {

/// Another window that takes the focus for a while is no leaving.
class LeaveFilter final : public QObject {
  public:
    LeaveFilter(QObject* watched, std::function<void()> onLeave)
        : QObject(watched), onLeave_(std::move(onLeave)) {}

    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        if (event->type() != QEvent::FocusOut)
            return false;
        const auto reason = static_cast<QFocusEvent*>(event)->reason();
        if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason)
            onLeave_();
        return false;
    }

  private:
    std::function<void()> onLeave_;
};

} // namespace

WindowView::WindowView(windows::Window& window, QtToolkit& toolkit)
    : window_(window), toolkit_(toolkit) {
    makeWindowsAccessible();
    setObjectName(QString::fromStdString(window.name()));
    setAcceptDrops(static_cast<bool>(window.onDrop));
    addBinding(window, [this] {
        setWindowTitle(shown(window_.text()));
        showRest(!window_.enabled() || window_.resting());
        if (const auto* control = window_.takeLead())
            if (auto* widget = findChild<QWidget*>(QString::fromStdString(control->name())))
                widget->setFocus(Qt::OtherFocusReason);
    });
}

void WindowView::showRest(bool rests) {
    if (std::exchange(rests_, rests) == rests)
        return;
    if (rests)
        hadFocus_ = focusWidget();
    else
        // Its widget wakes in this same round of changes.
        QTimer::singleShot(0, this, [this] {
            if (hadFocus_ != nullptr && hadFocus_->isVisible() && hadFocus_->isEnabled())
                hadFocus_->setFocus(Qt::OtherFocusReason);
        });
    for (const auto& binding : bindings_)
        binding->changed();
    for (auto* widget : restToo_)
        widget->setEnabled(!rests);
}

void WindowView::post(windows::Action action) {
    toolkit_.post(std::move(action));
}

/// A window that rests greys its controls one by one, so that a button can stay which has a wish.
bool WindowView::takesInput(const windows::Control& control) const {
    const auto* button = dynamic_cast<const windows::Button*>(&control);
    const bool mayHoldWish = dynamic_cast<const windows::Frame*>(&control) != nullptr;
    const bool hasWish = button != nullptr && button->wish != nullptr;
    return control.enabled() && !control.idle() && (!rests_ || hasWish || mayHoldWish);
}

void WindowView::addBinding(windows::Element& element, std::function<void()> refresh) {
    bindings_.push_back(
        std::make_unique<Binding>(toolkit_.refresher(), element, std::move(refresh)));
}

void WindowView::bind(windows::Control& control, QWidget* widget, std::function<void()> showText) {
    widget->setObjectName(QString::fromStdString(control.name()));
    addBinding(control, [this, &control, widget, showText = std::move(showText)] {
        showText();
        widget->setEnabled(takesInput(control));
        widget->setVisible(shows(control));
    });
}

/// Enter presses the button that has the focus, or else the default button. Escape closes what is
/// no main window, as in every dialog.
void WindowView::keyPressEvent(QKeyEvent* event) {
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (auto* focused = qobject_cast<QPushButton*>(focusWidget()); isEnter && focused != nullptr)
        focused->click();
    else if (isEnter && window_.defaultButton != nullptr)
        pressDefaultButton();
    else if (event->key() == Qt::Key_Escape && parentWidget() != nullptr && window_.onClose)
        post(windows::escape(window_));
    else
        QWidget::keyPressEvent(event);
}

/// The box that the user types in is left first, as with a click.
void WindowView::pressDefaultButton() {
    const auto name = QString::fromStdString(window_.defaultButton->name());
    if (auto* widget = findChild<QPushButton*>(name); widget != nullptr && widget->isEnabled()) {
        widget->setFocus(Qt::OtherFocusReason);
        widget->click();
    }
}

void WindowView::watchLeaving(windows::TextBox& control, QWidget* widget) {
    if (control.onLeave)
        widget->installEventFilter(
            new LeaveFilter(widget, [this, &control] { post(windows::leave(control)); }));
}

void WindowView::dragEnterEvent(QDragEnterEvent* event) {
    if (event->mimeData()->hasUrls() && toolkit_.takesInput(window_))
        event->acceptProposedAction();
    if (!event->isAccepted())
        return;
    if (dropHint_ == nullptr)
        dropHint_ = new DropHint(dropText(), this);
    dropHint_->appear();
}

void WindowView::dragLeaveEvent(QDragLeaveEvent* /*event*/) {
    if (dropHint_ != nullptr)
        dropHint_->hide();
}

void WindowView::dropEvent(QDropEvent* event) {
    if (dropHint_ != nullptr)
        dropHint_->hide();
    std::vector<std::string> paths;
    for (const auto& url : event->mimeData()->urls())
        if (url.isLocalFile())
            paths.push_back(nativePath(url.toLocalFile()));
    event->acceptProposedAction();
    if (!paths.empty() && window_.onDrop)
        post(windows::drop(window_, std::move(paths)));
}

void WindowView::closeEvent(QCloseEvent* event) {
    event->ignore();
    if (window_.onClose)
        post(windows::close(window_));
}

} // namespace views
