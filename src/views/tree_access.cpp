// Each row that a tree shows is one item, in the order in which they stand below each other when
// all of them are open.
#include "tree_access.h"

#include <algorithm>

#include "row_access.h"
#include "tree_view.h"

namespace views {
namespace {

class TreeRowAccess final : public RowAccess {
  public:
    TreeRowAccess(TreeView* tree, std::size_t number)
        : RowAccess(tree), tree_(tree), number_(number) {}

    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Name ? index().data(Qt::AccessibleTextRole).toString()
                                         : QString();
    }
    QAccessible::Role role() const override { return QAccessible::TreeItem; }
    QAccessible::State state() const override {
        auto state = RowAccess::state();
        state.expandable = tree_->model()->hasChildren(index());
        state.expanded = state.expandable && tree_->isExpanded(index());
        state.collapsed = state.expandable && !state.expanded;
        return state;
    }
    QStringList actionNames() const override {
        QStringList names(setFocusAction());
        if (tree_->model()->hasChildren(index()))
            names << toggleAction();
        return names;
    }
    void doAction(const QString& action) override {
        if (action == setFocusAction())
            tree_->setCurrentIndex(index());
        else if (action == toggleAction())
            tree_->setExpanded(index(), !tree_->isExpanded(index()));
    }

  protected:
    QModelIndex index() const override {
        const auto& rows = tree_->rowsInOrder();
        return number_ < rows.size() ? rows[number_] : QModelIndex();
    }

  private:
    QPointer<TreeView> tree_;
    std::size_t number_;
};

class TreeAccess final : public RowsAccess {
  public:
    explicit TreeAccess(TreeView* tree) : RowsAccess(tree, QAccessible::Tree), tree_(tree) {}
    int childCount() const override { return static_cast<int>(tree_->rowsInOrder().size()); }

  protected:
    QAccessibleInterface* makeRow(int number) const override {
        return new TreeRowAccess(tree_, static_cast<std::size_t>(number));
    }
    int numberOf(const QModelIndex& index) const override {
        const auto& rows = tree_->rowsInOrder();
        const auto found = std::find(rows.begin(), rows.end(), index.siblingAtColumn(0));
        return index.isValid() && found != rows.end() ? static_cast<int>(found - rows.begin()) : -1;
    }

  private:
    TreeView* tree_;
};

QAccessibleInterface* describe(const QString& type, QObject* object) {
    auto* tree = type == "views::TreeView" ? qobject_cast<TreeView*>(object) : nullptr;
    return tree == nullptr ? nullptr : new TreeAccess(tree);
}

} // namespace

void makeTreesAccessible() {
    QAccessible::installFactory(describe);
}

} // namespace views
