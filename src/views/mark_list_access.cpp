// Qt describes the rows of an item view as cells that can be selected, but not as marks that can be
// turned over. So the rows have a description of their own.
#include "mark_list_access.h"

#include <vector>

#include <QAccessibleWidget>
#include <QPointer>

#include "mark_list_view.h"

namespace views {
namespace {

class RowAccess final : public QAccessibleInterface, public QAccessibleActionInterface {
  public:
    RowAccess(MarkListView* list, int row) : list_(list), row_(row) {}

    bool isValid() const override { return list_ != nullptr && index().isValid(); }
    QObject* object() const override { return nullptr; }
    QAccessibleInterface* parent() const override {
        return QAccessible::queryAccessibleInterface(list_);
    }
    QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
    QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface* /*child*/) const override { return -1; }

    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Name ? index().data().toString() : QString();
    }
    void setText(QAccessible::Text /*kind*/, const QString& /*text*/) override {}
    QRect rect() const override {
        const auto place = list_->visualRect(index());
        return {list_->viewport()->mapToGlobal(place.topLeft()), place.size()};
    }
    QAccessible::Role role() const override { return QAccessible::CheckBox; }
    QAccessible::State state() const override {
        QAccessible::State state;
        const bool isCurrent = list_->currentIndex() == index();
        state.checkable = true;
        state.checked = list_->isMarked(row_);
        state.focusable = true;
        state.focused = isCurrent && list_->hasFocus();
        state.selectable = true;
        state.selected = isCurrent;
        state.disabled = !list_->isEnabled();
        state.offscreen = !list_->viewport()->rect().intersects(list_->visualRect(index()));
        return state;
    }

    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                                    : nullptr;
    }
    QStringList actionNames() const override { return {toggleAction(), setFocusAction()}; }
    void doAction(const QString& action) override {
        if (action == toggleAction())
            list_->toggle(row_);
        else if (action == setFocusAction())
            list_->moveTo(row_);
    }
    QStringList keyBindingsForAction(const QString& action) const override {
        return action == toggleAction() ? QStringList("Space") : QStringList();
    }

  private:
    QModelIndex index() const {
        return list_ == nullptr ? QModelIndex() : list_->model()->index(row_, 0);
    }

    QPointer<MarkListView> list_;
    int row_;
};

class ListAccess final : public QAccessibleWidget {
  public:
    explicit ListAccess(MarkListView* list)
        : QAccessibleWidget(list, QAccessible::List), list_(list) {}
    ~ListAccess() override {
        for (const auto id : rows_)
            QAccessible::deleteAccessibleInterface(id);
    }

    int childCount() const override { return list_->model()->rowCount(); }
    QAccessibleInterface* child(int row) const override {
        if (row < 0 || row >= childCount())
            return nullptr;
        while (rows_.size() <= static_cast<std::size_t>(row))
            rows_.push_back(QAccessible::registerAccessibleInterface(
                new RowAccess(list_, static_cast<int>(rows_.size()))));
        return QAccessible::accessibleInterface(rows_[static_cast<std::size_t>(row)]);
    }
    QAccessibleInterface* childAt(int x, int y) const override {
        return child(list_->indexAt(list_->viewport()->mapFromGlobal(QPoint(x, y))).row());
    }
    int indexOfChild(const QAccessibleInterface* child) const override {
        for (int row = 0; row < static_cast<int>(rows_.size()); ++row)
            if (this->child(row) == child)
                return row;
        return -1;
    }
    QAccessibleInterface* focusChild() const override {
        return list_->hasFocus() ? child(list_->currentIndex().row()) : nullptr;
    }

  private:
    MarkListView* list_;
    /// Made when they are asked for. A row stays the same object whatever item stands in it.
    mutable std::vector<QAccessible::Id> rows_;
};

QAccessibleInterface* describe(const QString& type, QObject* object) {
    auto* list = type == "views::MarkListView" ? qobject_cast<MarkListView*>(object) : nullptr;
    return list == nullptr ? nullptr : new ListAccess(list);
}

} // namespace

void makeMarkListsAccessible() {
    QAccessible::installFactory(describe);
}

} // namespace views
