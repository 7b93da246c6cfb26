// Each row of a list of marks is a check box that can be turned over.
#include "mark_list_access.h"

#include "mark_list_view.h"
#include "row_access.h"

namespace views {
namespace {

class MarkRowAccess final : public RowAccess {
  public:
    MarkRowAccess(MarkListView* list, int row) : RowAccess(list), list_(list), row_(row) {}

    QString text(QAccessible::Text kind) const override {
        if (kind == QAccessible::Description) {
            auto notes = index().data(MarkListModel::notesRole).toStringList();
            notes.removeAll("");
            return notes.join(", ");
        }
        return kind == QAccessible::Name ? index().data().toString() : QString();
    }
    QAccessible::Role role() const override { return QAccessible::CheckBox; }
    QAccessible::State state() const override {
        auto state = RowAccess::state();
        state.checkable = true;
        state.checked = list_->isMarked(row_);
        return state;
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

  protected:
    QModelIndex index() const override { return list_->model()->index(row_, 0); }

  private:
    QPointer<MarkListView> list_;
    int row_;
};

class MarkListAccess final : public RowsAccess {
  public:
    explicit MarkListAccess(MarkListView* list)
        : RowsAccess(list, QAccessible::List), list_(list) {}
    int childCount() const override { return list_->model()->rowCount(); }

  protected:
    QAccessibleInterface* makeRow(int number) const override {
        return new MarkRowAccess(list_, number);
    }
    int numberOf(const QModelIndex& index) const override { return index.row(); }

  private:
    MarkListView* list_;
};

QAccessibleInterface* describe(const QString& type, QObject* object) {
    auto* list = type == "views::MarkListView" ? qobject_cast<MarkListView*>(object) : nullptr;
    return list == nullptr ? nullptr : new MarkListAccess(list);
}

} // namespace

void makeMarkListsAccessible() {
    QAccessible::installFactory(describe);
}

} // namespace views
