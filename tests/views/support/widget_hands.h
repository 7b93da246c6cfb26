// Mouse and keys on real widgets.
#pragma once

#include <QApplication>
#include <QKeyEvent>
#include <QUrl>
#include <QWidget>

#include "headless/gesture.h"

namespace test {

/// The window of that name, or the widget of that name in any window. Null where there is none.
template <typename Widget>
Widget* find(const char* name) {
    for (auto* window : QApplication::topLevelWidgets())
        if (window->objectName() == name)
            return qobject_cast<Widget*>(window);
        else if (auto* widget = window->findChild<Widget*>(name))
            return widget;
    return nullptr;
}

void key(QWidget* widget, int code, const QString& text = {});
void click(QWidget* widget, const QPoint& at, Qt::MouseButton button = Qt::LeftButton);
/// Drags files over a window and lets them go.
void drop(QWidget& view, const QList<QUrl>& files);

/// Does to the widgets of a window what the gesture says, as far as they let a person do it. The
/// window must be active.
void perform(const headless::Gesture& gesture, QWidget& view);

} // namespace test
