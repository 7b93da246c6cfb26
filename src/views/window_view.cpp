// Widgets for controls.
#include "views/window_view.h"

#include <QCloseEvent>
#include <QComboBox>
#include <QKeyEvent>
#include <QListWidget>
#include <QMimeData>
#include <QProgressBar>
#include <QScrollBar>
#include <QStyle>
#include <QTextCursor>
#include <QTimer>

#include "views/cut_text_tip.h"
#include "views/mark_list_view.h"
#include "views/qt_toolkit.h"

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

/// Shows the part of a text that has come since the last time, or all of a text that is another.
class TextFollower {
  public:
    TextFollower(const platform::TextBox& control, QPlainTextEdit* edit)
        : control_(control), edit_(edit) {}

    void operator()() {
        const auto& text = control_.text();
        if (revision_ != control_.revision() || text.size() < shown_) {
            showAll(shown(text));
            revision_ = control_.revision();
        } else if (text.size() > shown_) {
            QTextCursor end(edit_->document());
            end.movePosition(QTextCursor::End);
            end.insertText(shown(std::string_view(text).substr(shown_)));
        }
        shown_ = text.size();
        if (control_.atEnd())
            edit_->verticalScrollBar()->setValue(edit_->verticalScrollBar()->maximum());
    }

  private:
    /// What the user has typed is there already, and setting it anew would move the cursor.
    void showAll(const QString& text) {
        if (!control_.readOnly() && edit_->toPlainText() == text)
            return;
        const QSignalBlocker quiet(edit_);
        edit_->setPlainText(text);
    }

    const platform::TextBox& control_;
    QPlainTextEdit* edit_;
    unsigned revision_ = 0;
    std::size_t shown_ = 0;
};

void showBadge(QTabBar& tabs, int tab, const platform::TabStrip::Badge& badge) {
    auto* label = static_cast<QLabel*>(tabs.tabButton(tab, QTabBar::RightSide));
    if (label == nullptr) {
        label = new QLabel(&tabs);
        label->setProperty("badge", true);
        tabs.setTabButton(tab, QTabBar::RightSide, label);
    }
    const auto text = badge.marked == 0
                          ? QString::number(badge.all)
                          : QString::number(badge.marked) + " / " + QString::number(badge.all);
    if (text == label->text())
        return;
    label->setText(text);
    label->setProperty("some", badge.marked > 0);
    label->style()->unpolish(label);
    label->style()->polish(label);
    label->setAccessibleName(tabs.tabText(tab) + ": " + QString::number(badge.marked) + " of " +
                             QString::number(badge.all) + " marked");
    tabs.setTabToolTip(tab, label->accessibleName());
    label->adjustSize();
    // Has the strip measure the tab anew.
    tabs.setTabText(tab, tabs.tabText(tab));
}

} // namespace

WindowView::WindowView(platform::Window& window, QtToolkit& toolkit)
    : window_(window), toolkit_(toolkit) {
    setObjectName(QString::fromStdString(window.name()));
    setAcceptDrops(static_cast<bool>(window.onDrop));
    addBinding(window, [this] {
        setWindowTitle(shown(window_.text()));
        setEnabled(window_.enabled() && !window_.resting());
    });
}

void WindowView::addBinding(platform::Element& element, std::function<void()> refresh) {
    bindings_.push_back(
        std::make_unique<Binding>(toolkit_.refresher(), element, std::move(refresh)));
}

void WindowView::bind(platform::Control& control, QWidget* widget, std::function<void()> showText) {
    widget->setObjectName(QString::fromStdString(control.name()));
    addBinding(control, [&control, widget, showText = std::move(showText)] {
        showText();
        widget->setEnabled(control.enabled());
        widget->setVisible(control.visible());
    });
}

void WindowView::post(platform::Control& control, std::function<void()> action) {
    toolkit_.post(window_, &control, std::move(action));
}

QLabel* WindowView::label(platform::Label& control, bool heading) {
    auto* widget = new QLabel(this);
    widget->setTextFormat(Qt::PlainText);
    widget->setProperty("heading", heading);
    // A long release name must not set the width of the window.
    widget->setSizePolicy(heading ? QSizePolicy::Ignored : QSizePolicy::Preferred,
                          QSizePolicy::Fixed);
    tipWhereCut(widget);
    bind(control, widget, [&control, widget] { widget->setText(shown(control.text())); });
    return widget;
}

QPushButton* WindowView::link(platform::Label& control) {
    auto* widget = new QPushButton(this);
    widget->setProperty("link", true);
    widget->setFlat(true);
    widget->setCursor(Qt::PointingHandCursor);
    bind(control, widget, [&control, widget] { widget->setText(shown(control.text())); });
    connect(widget, &QPushButton::clicked, this, [this, &control] {
        if (control.onClick)
            post(control, control.onClick);
    });
    return widget;
}

QPushButton* WindowView::button(platform::Button& control) {
    auto* widget = new QPushButton(this);
    widget->setAutoDefault(false);
    tipWhereCut(widget);
    bind(control, widget, [&control, widget] {
        widget->setText(shown(control.text()).replace("&", "&&"));
        widget->setAccessibleName(shown(control.text()).replace("\n", " "));
    });
    connect(widget, &QPushButton::clicked, this, [this, &control] {
        if (control.onClick)
            post(control, control.onClick);
    });
    return widget;
}

QLineEdit* WindowView::lineEdit(platform::TextBox& control) {
    auto* widget = new QLineEdit(this);
    widget->setReadOnly(control.readOnly());
    tipWhereCut(widget);
    bind(control, widget, [&control, widget] {
        if (const auto text = shown(control.text()); widget->text() != text) {
            widget->setText(text);
            widget->setCursorPosition(0);
        }
    });
    // What is typed is state, not an event: the logic looks at it when a button is pressed.
    connect(widget, &QLineEdit::textEdited, this,
            [&control](const QString& text) { control.setText(entered(text)); });
    watchLeaving(control, widget);
    return widget;
}

QPlainTextEdit* WindowView::textEdit(platform::TextBox& control) {
    auto* widget = new QPlainTextEdit(this);
    widget->setReadOnly(control.readOnly());
    widget->setTabChangesFocus(true);
    widget->setUndoRedoEnabled(!control.readOnly());
    if (control.readOnly())
        widget->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    connect(widget, &QPlainTextEdit::textChanged, this, [&control, widget] {
        if (!control.readOnly())
            control.setText(entered(widget->toPlainText()));
    });
    watchLeaving(control, widget);
    bind(control, widget,
         [follow = std::make_shared<TextFollower>(control, widget)] { (*follow)(); });
    return widget;
}

QTabBar* WindowView::tabBar(platform::TabStrip& control) {
    auto* widget = new QTabBar(this);
    widget->setExpanding(false);
    widget->setDrawBase(false);
    widget->setUsesScrollButtons(true);
    for (const auto& caption : control.captions())
        widget->addTab(shown(caption));
    bind(control, widget, [&control, widget] {
        const QSignalBlocker quiet(widget);
        widget->setCurrentIndex(control.index());
        for (int tab = 0; tab < static_cast<int>(control.badges().size()); ++tab)
            showBadge(*widget, tab, control.badges()[static_cast<std::size_t>(tab)]);
    });
    // A click on the current tab counts too, so the change alone is not what is listened to.
    connect(widget, &QTabBar::tabBarClicked, this, [this, &control](int index) {
        post(control, [&control, index] { control.click(index); });
    });
    // Keys, the wheel and screen readers change it without a click.
    connect(widget, &QTabBar::currentChanged, this, [this, &control](int index) {
        post(control, [&control, index] {
            if (index != control.index())
                control.click(index);
        });
    });
    return widget;
}

MarkListView* WindowView::markList(platform::MarkList& control) {
    const auto click = [this, &control](int item) {
        post(control, [&control, item] { control.click(item); });
    };
    auto* widget = new MarkListView(control, click, this);
    bind(control, widget, [widget] { widget->follow(); });
    return widget;
}

QComboBox* WindowView::comboBox(platform::ComboBox& control) {
    auto* widget = new QComboBox(this);
    for (const auto& row : control.rows())
        widget->addItem(shown(row));
    bind(control, widget, [&control, widget] { widget->setCurrentIndex(control.index()); });
    connect(widget, &QComboBox::activated, this, [this, &control](int index) {
        post(control, [&control, index] { control.pick(index); });
    });
    return widget;
}

QListWidget* WindowView::listBox(platform::ListBox& control) {
    auto* widget = new QListWidget(this);
    widget->setSelectionMode(QAbstractItemView::NoSelection);
    bind(control, widget, [&control, widget] {
        widget->clear();
        for (const auto& item : control.items()) {
            const auto text = shown(item.text);
            const auto note = item.note.empty() ? "" : "   (" + shown(item.note) + ")";
            auto* row = new QListWidgetItem(text + note, widget);
            if (!item.note.empty())
                row->setForeground(widget->palette().color(QPalette::PlaceholderText));
        }
    });
    return widget;
}

QProgressBar* WindowView::progressBar(platform::ProgressBar& control) {
    auto* widget = new QProgressBar(this);
    widget->setRange(0, platform::ProgressBar::whole);
    widget->setAccessibleName("Copying");
    bind(control, widget, [&control, widget] { widget->setValue(control.done()); });
    return widget;
}

void WindowView::timer(platform::Timer& control) {
    auto* ticker = new QTimer(this);
    ticker->setObjectName(QString::fromStdString(control.name()));
    connect(ticker, &QTimer::timeout, this,
            [this, &control] { toolkit_.postTick(control, control.onTick); });
    addBinding(control, [&control, ticker] {
        if (!control.enabled())
            ticker->stop();
        else if (!ticker->isActive() || ticker->interval() != control.interval())
            ticker->start(control.interval());
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
        toolkit_.post(window_, nullptr, window_.onClose);
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

void WindowView::watchLeaving(platform::TextBox& control, QWidget* widget) {
    if (control.onLeave)
        widget->installEventFilter(
            new LeaveFilter(widget, [this, &control] { post(control, control.onLeave); }));
}

void WindowView::dragEnterEvent(QDragEnterEvent* event) {
    if (event->mimeData()->hasUrls())
        event->acceptProposedAction();
}

void WindowView::dropEvent(QDropEvent* event) {
    std::vector<std::string> paths;
    for (const auto& url : event->mimeData()->urls())
        if (url.isLocalFile())
            paths.push_back(nativePath(url.toLocalFile()));
    event->acceptProposedAction();
    if (!paths.empty() && window_.onDrop)
        toolkit_.post(window_, nullptr, [this, paths] { window_.onDrop(paths); });
}

void WindowView::closeEvent(QCloseEvent* event) {
    event->ignore();
    if (window_.onClose)
        toolkit_.post(window_, nullptr, window_.onClose);
}

} // namespace views
