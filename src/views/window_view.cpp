// Widgets for controls.
#include "views/window_view.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QScrollBar>
#include <QTextCursor>
#include <QTimer>

#include "views/mark_list_model.h"
#include "views/qt_toolkit.h"

namespace views {
namespace {

/// Space does what a click does; all other keys are the list's own.
class SpaceKey final : public QObject {
  public:
    SpaceKey(QListView* list, std::function<void(int)> click)
        : QObject(list), list_(list), click_(std::move(click)) {}

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::KeyPress &&
            static_cast<QKeyEvent*>(event)->key() == Qt::Key_Space &&
            list_->currentIndex().isValid()) {
            click_(list_->currentIndex().row());
            return true;
        }
        return QObject::eventFilter(watched, event);
    }

  private:
    QListView* list_;
    std::function<void(int)> click_;
};

/// Shows the part of a text that has come since the last time, or all of a text that is another.
class TextFollower {
  public:
    TextFollower(const platform::TextBox& control, QPlainTextEdit* edit)
        : control_(control), edit_(edit) {}

    void operator()() {
        const auto& text = control_.text();
        if (revision_ != control_.revision() || text.size() < shown_) {
            edit_->setPlainText(shown(text));
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
    const platform::TextBox& control_;
    QPlainTextEdit* edit_;
    unsigned revision_ = 0;
    std::size_t shown_ = 0;
};

} // namespace

WindowView::WindowView(platform::Window& window, QtToolkit& toolkit)
    : window_(window), toolkit_(toolkit) {
    setObjectName(QString::fromStdString(window.name()));
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
    bind(control, widget, [&control, widget] {
        widget->setText(shown(control.text()));
        widget->setToolTip(widget->text());
    });
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
    bind(control, widget, [&control, widget] {
        if (const auto text = shown(control.text()); widget->text() != text) {
            widget->setText(text);
            widget->setCursorPosition(0);
        }
    });
    return widget;
}

QPlainTextEdit* WindowView::textEdit(platform::TextBox& control) {
    auto* widget = new QPlainTextEdit(this);
    widget->setReadOnly(control.readOnly());
    widget->setTabChangesFocus(true);
    widget->setUndoRedoEnabled(!control.readOnly());
    if (control.readOnly())
        widget->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
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
    });
    // A click on the current tab counts too, so the change alone is not what is listened to.
    connect(widget, &QTabBar::tabBarClicked, this, [this, &control](int index) {
        post(control, [&control, index] { control.click(index); });
    });
    connect(widget, &QTabBar::currentChanged, this, [this, &control, widget](int index) {
        if (widget->hasFocus() && index != control.index())
            post(control, [&control, index] {
                if (index != control.index())
                    control.click(index);
            });
    });
    return widget;
}

QListView* WindowView::markList(platform::MarkList& control) {
    auto* widget = new QListView(this);
    auto* model = new MarkListModel(control, widget);
    widget->setModel(model);
    widget->setUniformItemSizes(true);
    widget->setTextElideMode(Qt::ElideRight);
    widget->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    bind(control, widget, [widget, model] {
        if (model->follow())
            widget->scrollToTop();
    });
    const auto click = [this, &control](int row) {
        post(control, [&control, row] { control.click(row); });
    };
    connect(widget, &QListView::clicked, this,
            [click](const QModelIndex& index) { click(index.row()); });
    widget->installEventFilter(new SpaceKey(widget, click));
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

/// Enter presses the default button, Escape closes what is no main window, as in every dialog.
void WindowView::keyPressEvent(QKeyEvent* event) {
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isEnter && window_.defaultButton != nullptr && window_.defaultButton->onClick)
        post(*window_.defaultButton, window_.defaultButton->onClick);
    else if (event->key() == Qt::Key_Escape && parentWidget() != nullptr && window_.onClose)
        toolkit_.post(window_, nullptr, window_.onClose);
    else
        QWidget::keyPressEvent(event);
}

void WindowView::closeEvent(QCloseEvent* event) {
    event->ignore();
    if (window_.onClose)
        toolkit_.post(window_, nullptr, window_.onClose);
}

} // namespace views
