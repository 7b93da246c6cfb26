// Qt describes a window that is none of its own dialogs as a piece of one, and a splitter's handle
// as nothing that screen readers know.
#include "window_access.h"

#include <QAccessibleWidget>
#include <QSplitterHandle>

#include "views/window_view.h"

namespace views {
namespace {

QAccessibleInterface* describe(const QString& type, QObject* object) {
    if (auto* handle = qobject_cast<QSplitterHandle*>(object); handle && type == "QSplitterHandle")
        return new QAccessibleWidget(handle, QAccessible::Separator);
    auto* view = type == "views::WindowView" ? qobject_cast<WindowView*>(object) : nullptr;
    if (view == nullptr)
        return nullptr;
    const bool isOwn = view->parentWidget() == nullptr;
    return new QAccessibleWidget(view, isOwn ? QAccessible::Window : QAccessible::Dialog);
}

} // namespace

void makeWindowsAccessible() {
    QAccessible::installFactory(describe);
}

} // namespace views
