// Events are sent to the widgets, which do with them what they do with a person's.
#include "views/support/widget_hands.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAction>
#include <QComboBox>
#include <QDropEvent>
#include <QLineEdit>
#include <QListView>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QTabBar>
#include <QTreeView>
#include <QUrl>

#include <gtest/gtest.h>

#include "views/binding.h"

namespace test {
namespace {

template <typename Widget>
Widget* of(const headless::Gesture& gesture, const QWidget& view) {
    auto* widget = view.findChild<Widget*>(QString::fromStdString(gesture.control->name()));
    EXPECT_NE(widget, nullptr) << gesture.control->name() << " has no such widget";
    return widget;
}

void press(const headless::Gesture& gesture, const QWidget& view) {
    if (dynamic_cast<windows::MenuItem*>(gesture.control) != nullptr) {
        if (auto* action = of<QAction>(gesture, view))
            action->trigger();
    } else if (auto* button = of<QAbstractButton>(gesture, view)) {
        click(button, button->rect().center());
    }
}

void chooseTab(const headless::Gesture& gesture, const QWidget& view) {
    auto* tabs = of<QTabBar>(gesture, view);
    for (int tab = 0; tabs != nullptr && tab < tabs->count(); ++tab)
        if (tabs->tabText(tab) == views::shown(gesture.text))
            return click(tabs, tabs->tabRect(tab).center());
}

void clickRow(const headless::Gesture& gesture, const QWidget& view, Qt::MouseButton button) {
    auto* list = of<QListView>(gesture, view);
    for (int row = 0; list != nullptr && row < list->model()->rowCount(); ++row) {
        const auto index = list->model()->index(row, 0);
        if (index.data().toString() != views::shown(gesture.text))
            continue;
        list->scrollTo(index);
        return click(list->viewport(), list->visualRect(index).center(), button);
    }
}

/// Folders on the way are opened first, as a person must.
bool clickBranch(QTreeView* tree, const QModelIndex& parent, const QString& key) {
    auto* rows = tree->model();
    for (int row = 0; row < rows->rowCount(parent); ++row) {
        const auto index = rows->index(row, 0, parent);
        if (index.data(Qt::UserRole).toString() == key) {
            for (auto above = index.parent(); above.isValid(); above = above.parent())
                tree->expand(above);
            tree->scrollTo(index);
            click(tree->viewport(), tree->visualRect(index).center());
            return true;
        }
        if (clickBranch(tree, index, key))
            return true;
    }
    return false;
}

void pickRow(const headless::Gesture& gesture, const QWidget& view) {
    if (dynamic_cast<windows::TreeList*>(gesture.control) != nullptr) {
        auto* tree = of<QTreeView>(gesture, view);
        EXPECT_TRUE(tree == nullptr || clickBranch(tree, {}, views::shown(gesture.text)))
            << "no row " << gesture.text;
        return;
    }
    auto* box = of<QComboBox>(gesture, view);
    if (box == nullptr)
        return;
    box->showPopup();
    box->view()->setCurrentIndex(box->model()->index(box->findText(views::shown(gesture.text)), 0));
    key(box->view(), Qt::Key_Return);
}

/// Enters the box, types over what stands there, and leaves with the tabulator key.
void type(const headless::Gesture& gesture, const QWidget& view) {
    auto* box = of<QWidget>(gesture, view);
    if (box == nullptr)
        return;
    box->setFocus(Qt::TabFocusReason);
    if (auto* line = qobject_cast<QLineEdit*>(box))
        line->selectAll();
    else if (auto* lines = qobject_cast<QPlainTextEdit*>(box))
        lines->selectAll();
    key(box, Qt::Key_Delete);
    for (const auto& letter : views::shown(gesture.text))
        if (letter == '\n')
            key(box, Qt::Key_Return);
        else
            key(box, 0, letter);
    key(box, Qt::Key_Tab, "\t");
}

} // namespace

void key(QWidget* widget, int code, const QString& text) {
    QKeyEvent press(QEvent::KeyPress, code, Qt::NoModifier, text);
    QApplication::sendEvent(widget, &press);
}

void drop(QWidget& view, const QList<QUrl>& files) {
    QMimeData data;
    data.setUrls(files);
    QDragEnterEvent enter({10, 10}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&view, &enter);
    EXPECT_TRUE(enter.isAccepted());
    const auto* hint = view.findChild<QWidget*>("dropHint");
    EXPECT_TRUE(hint != nullptr && hint->isVisible()) << "nothing says what a drop would do";
    QDropEvent drop({10, 10}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&view, &drop);
    EXPECT_TRUE(hint == nullptr || !hint->isVisible());
}

void click(QWidget* widget, const QPoint& at, Qt::MouseButton button) {
    for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
        const Qt::MouseButtons held = type == QEvent::MouseButtonPress ? button : Qt::NoButton;
        QMouseEvent event(type, at, widget->mapToGlobal(at), button, held, Qt::NoModifier);
        QApplication::sendEvent(widget, &event);
    }
}

void perform(const headless::Gesture& gesture, QWidget& view) {
    using Kind = headless::Gesture::Kind;
    if (gesture.control == nullptr) {
        if (gesture.kind == Kind::drop)
            drop(view, {QUrl::fromLocalFile(views::shown(gesture.text))});
        else if (gesture.kind == Kind::escape)
            key(&view, Qt::Key_Escape);
        else
            view.close();
        return;
    }
    switch (gesture.kind) {
    case Kind::tab:
        return chooseTab(gesture, view);
    case Kind::mark:
        return clickRow(gesture, view, Qt::LeftButton);
    case Kind::read:
        return clickRow(gesture, view, Qt::RightButton);
    case Kind::click:
        return press(gesture, view);
    case Kind::pick:
        return pickRow(gesture, view);
    case Kind::type:
        return type(gesture, view);
    case Kind::drop:
    case Kind::close:
    case Kind::escape:
        break;
    }
}

} // namespace test
