// The widget of each kind of control.
#include <algorithm>

#include <QComboBox>
#include <QKeyEvent>
#include <QListWidget>
#include <QProgressBar>
#include <QTimer>

#include "cut_text_tip.h"
#include "elided.h"
#include "figure_bar.h"
#include "mark_list_view.h"
#include "picture_view.h"
#include "tab_badges.h"
#include "text_follower.h"
#include "tree_view.h"
#include "views/qt_toolkit.h"
#include "views/window_view.h"

namespace views {
namespace {

windows::Action chooseTab(windows::TabStrip& control, int tab) {
    return windows::choose(control, control.captions()[static_cast<std::size_t>(tab)]);
}

/// With the mark of an access key before the first such letter, or else before the first of all.
QString underlined(QString caption, QChar letter) {
    if (letter.isNull() || caption.isEmpty())
        return caption;
    auto at = caption.indexOf(letter, 0, Qt::CaseSensitive);
    if (at < 0)
        at = caption.indexOf(letter, 0, Qt::CaseInsensitive);
    return caption.insert(std::max<qsizetype>(at, 0), '&');
}

/// Some menu items have keys that mean something else in a text.
class KeepsTextKeys final : public QObject {
  public:
    using QObject::QObject;

    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        if (event->type() != QEvent::ShortcutOverride ||
            !static_cast<QKeyEvent*>(event)->matches(QKeySequence::SelectAll))
            return false;
        event->accept();
        return true;
    }
};

} // namespace

QLabel* WindowView::label(windows::Label& control, bool heading) {
    auto* widget = heading ? new ElidedLabel(this) : new QLabel(this);
    widget->setTextFormat(Qt::PlainText);
    widget->setProperty("heading", heading);
    // A long release name must not set the width of the window.
    widget->setSizePolicy(heading ? QSizePolicy::Ignored : QSizePolicy::Preferred,
                          QSizePolicy::Fixed);
    tipWhereCut(widget);
    bind(control, widget, [&control, widget] { widget->setText(shown(control.text())); });
    return widget;
}

QPushButton* WindowView::link(windows::Label& control) {
    auto* widget = new QPushButton(this);
    widget->setProperty("link", true);
    widget->setFlat(true);
    widget->setCursor(Qt::PointingHandCursor);
    bind(control, widget, [&control, widget] { widget->setText(shown(control.text())); });
    connect(widget, &QPushButton::clicked, this,
            [this, &control] { post(windows::press(control)); });
    return widget;
}

QPushButton* WindowView::button(windows::Button& control, QChar letter) {
    return bindButton(control, new QPushButton(this), letter);
}

QPushButton* WindowView::elidedButton(windows::Button& control, QChar letter) {
    return bindButton(control, new ElidedButton(this), letter);
}

QPushButton* WindowView::bindButton(windows::Button& control, QPushButton* widget, QChar letter) {
    widget->setAutoDefault(false);
    tipWhereCut(widget);
    bind(control, widget, [&control, widget, letter] {
        widget->setText(underlined(shown(control.text()).replace("&", "&&"), letter));
        widget->setAccessibleName(shown(control.text()).replace("\n", " "));
    });
    connect(widget, &QPushButton::clicked, this,
            [this, &control] { post(windows::press(control)); });
    return widget;
}

QCheckBox* WindowView::checkBox(windows::CheckBox& control, QChar letter) {
    auto* widget = new QCheckBox(this);
    bind(control, widget, [&control, widget, letter] {
        widget->setText(underlined(shown(control.text()).replace("&", "&&"), letter));
        widget->setChecked(control.checked());
    });
    connect(widget, &QCheckBox::clicked, this, [this, &control, widget] {
        // The logic turns the check over, not the click.
        widget->setChecked(control.checked());
        post(windows::press(control));
    });
    return widget;
}

QLineEdit* WindowView::lineEdit(windows::TextBox& control) {
    auto* widget = new QLineEdit(this);
    widget->setReadOnly(control.readOnly());
    tipWhereCut(widget);
    bind(control, widget, [&control, widget] {
        const bool isHint = !control.hint.empty() && control.text() == control.hint;
        widget->setPlaceholderText(shown(control.hint));
        if (const auto text = isHint ? QString() : shown(control.text()); widget->text() != text) {
            const QSignalBlocker quiet(widget);
            widget->setText(text);
            widget->setCursorPosition(0);
        }
    });
    // What is typed is state, not an event: the logic looks at it when a button is pressed. Screen
    // readers change it without a key.
    connect(widget, &QLineEdit::textChanged, this,
            [&control](const QString& text) { control.setText(entered(text)); });
    watchLeaving(control, widget);
    return widget;
}

QPlainTextEdit* WindowView::textEdit(windows::TextBox& control) {
    auto* widget = new QPlainTextEdit(this);
    widget->setReadOnly(control.readOnly());
    widget->setTabChangesFocus(true);
    widget->setUndoRedoEnabled(!control.readOnly());
    widget->installEventFilter(new KeepsTextKeys(widget));
    if (control.readOnly())
        widget->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    connect(widget, &QPlainTextEdit::textChanged, this, [&control, widget] {
        if (!control.readOnly())
            control.setText(entered(widget->toPlainText()));
    });
    watchLeaving(control, widget);
    bind(control, widget,
         [this, &control, follow = std::make_shared<TextFollower>(control, widget)] {
             auto& refresher = toolkit_.refresher();
             (*follow)(refresher.pace());
             if (follow->lags())
                 refresher.putOff(static_cast<Binding*>(control.view));
         });
    return widget;
}

QTabBar* WindowView::tabBar(windows::TabStrip& control) {
    auto* widget = new QTabBar(this);
    widget->setExpanding(false);
    widget->setDrawBase(false);
    widget->setUsesScrollButtons(true);
    for (const auto& caption : control.captions())
        widget->addTab(shown(caption));
    bind(control, widget, [&control, widget] {
        const QSignalBlocker quiet(widget);
        widget->setCurrentIndex(control.index());
        showBadges(*widget, control);
    });
    // A click on the current tab counts too, so the change alone is not what is listened to.
    connect(widget, &QTabBar::tabBarClicked, this, [this, &control](int tab) {
        if (tab >= 0)
            post(chooseTab(control, tab));
    });
    // Keys, the wheel and screen readers change it without a click; after a click it is done
    // already.
    connect(widget, &QTabBar::currentChanged, this, [this, &control](int tab) {
        auto change = chooseTab(control, tab);
        change.stillMeant = [&control, tab] { return tab != control.index(); };
        post(std::move(change));
    });
    return widget;
}

MarkListView* WindowView::markList(windows::MarkList& control) {
    const MarkListView::Gestures gestures = {
        [this, &control](const std::string& text, unsigned revision) {
            post(windows::click(control, text, revision));
        },
        [this, &control](const std::string& text, unsigned revision) {
            post(windows::read(control, text, revision));
        },
        [this, &control](std::vector<std::string> texts, bool marked, unsigned revision) {
            post(windows::markAll(control, std::move(texts), marked, revision));
        }};
    auto* widget = new MarkListView(control, gestures, this);
    bind(control, widget, [widget] { widget->follow(); });
    return widget;
}

TreeView* WindowView::treeList(windows::TreeList& control) {
    const auto picked = [this, &control](const std::string& key, unsigned revision) {
        post(windows::choose(control, key, revision));
    };
    auto* widget = new TreeView(control, picked, this);
    bind(control, widget, [widget] { widget->follow(); });
    return widget;
}

QComboBox* WindowView::comboBox(windows::ComboBox& control) {
    auto* widget = new QComboBox(this);
    for (const auto& row : control.rows())
        widget->addItem(shown(row));
    bind(control, widget, [&control, widget] { widget->setCurrentIndex(control.index()); });
    connect(widget, &QComboBox::activated, this, [this, &control](int row) {
        post(windows::choose(control, control.rows()[static_cast<std::size_t>(row)]));
    });
    return widget;
}

QListWidget* WindowView::listBox(windows::ListBox& control) {
    auto* widget = new QListWidget(this);
    widget->setUniformItemSizes(true);
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

PictureView* WindowView::picture(windows::PictureBox& control, QSize size) {
    auto* widget = new PictureView(size, this);
    bind(control, widget, [&control, widget] {
        widget->setPicture(control.picture());
        widget->setAccessibleName(shown(control.text()));
    });
    connect(widget, &QAbstractButton::clicked, this,
            [this, &control] { post(windows::press(control)); });
    return widget;
}

QProgressBar* WindowView::progressBar(windows::ProgressBar& control) {
    auto* widget = new FigureBar(this);
    widget->setRange(0, windows::ProgressBar::whole);
    bind(control, widget, [&control, widget] {
        widget->setValue(control.done());
        const auto text = shown(control.text());
        widget->setFormat(text.isEmpty() ? "%p%" : text);
        widget->setAccessibleName("Progress");
        widget->setAccessibleDescription(widget->text());
    });
    return widget;
}

void WindowView::timer(windows::Timer& control) {
    auto* ticker = new QTimer(this);
    ticker->setObjectName(QString::fromStdString(control.name()));
    connect(ticker, &QTimer::timeout, this, [this, &control] { toolkit_.postTick(control); });
    addBinding(control, [&control, ticker] {
        if (!control.enabled())
            ticker->stop();
        else if (!ticker->isActive() || ticker->interval() != control.interval())
            ticker->start(control.interval());
    });
}

} // namespace views
