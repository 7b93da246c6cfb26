// Rows are told by what their view shows of them.
#include "row_access.h"

namespace views {

QRect RowAccess::rect() const {
    const auto place = view_->visualRect(index());
    return {view_->viewport()->mapToGlobal(place.topLeft()), place.size()};
}

QAccessible::State RowAccess::state() const {
    QAccessible::State state;
    const auto row = index();
    const bool isCurrent = view_->currentIndex().siblingAtColumn(0) == row;
    state.focusable = true;
    state.focused = isCurrent && view_->hasFocus();
    state.selectable = true;
    state.selected = isCurrent;
    state.disabled = !view_->isEnabled();
    state.offscreen = !view_->viewport()->rect().intersects(view_->visualRect(row));
    return state;
}

RowsAccess::~RowsAccess() {
    for (const auto id : rows_)
        QAccessible::deleteAccessibleInterface(id);
}

QAccessibleInterface* RowsAccess::child(int number) const {
    if (number < 0 || number >= childCount())
        return nullptr;
    while (rows_.size() <= static_cast<std::size_t>(number))
        rows_.push_back(
            QAccessible::registerAccessibleInterface(makeRow(static_cast<int>(rows_.size()))));
    return QAccessible::accessibleInterface(rows_[static_cast<std::size_t>(number)]);
}

QAccessibleInterface* RowsAccess::childAt(int x, int y) const {
    return child(numberOf(view_->indexAt(view_->viewport()->mapFromGlobal(QPoint(x, y)))));
}

int RowsAccess::indexOfChild(const QAccessibleInterface* child) const {
    for (int number = 0; number < static_cast<int>(rows_.size()); ++number)
        if (this->child(number) == child)
            return number;
    return -1;
}

QAccessibleInterface* RowsAccess::focusChild() const {
    return view_->hasFocus() ? child(numberOf(view_->currentIndex())) : nullptr;
}

} // namespace views
