// Qt describes a tree as a table of cells of which none can be gone to. Here each row is one item,
// in the order in which they stand below each other when all of them are open.
#include "tree_access.h"

#include <vector>

#include <QAccessibleWidget>
#include <QPointer>

#include "tree_view.h"

namespace views {
namespace {

class RowAccess final : public QAccessibleInterface, public QAccessibleActionInterface {
  public:
    RowAccess(TreeView* tree, int number) : tree_(tree), number_(number) {}

    bool isValid() const override { return tree_ != nullptr && index().isValid(); }
    QObject* object() const override { return nullptr; }
    QAccessibleInterface* parent() const override {
        return QAccessible::queryAccessibleInterface(tree_);
    }
    QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
    QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface* /*child*/) const override { return -1; }

    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Name ? index().data(Qt::AccessibleTextRole).toString()
                                         : QString();
    }
    void setText(QAccessible::Text /*kind*/, const QString& /*text*/) override {}
    QRect rect() const override {
        const auto place = tree_->visualRect(index());
        return {tree_->viewport()->mapToGlobal(place.topLeft()), place.size()};
    }
    QAccessible::Role role() const override { return QAccessible::TreeItem; }
    QAccessible::State state() const override {
        QAccessible::State state;
        const auto row = index();
        const bool isCurrent = tree_->currentIndex().siblingAtColumn(0) == row;
        state.focusable = true;
        state.focused = isCurrent && tree_->hasFocus();
        state.selectable = true;
        state.selected = isCurrent;
        state.expandable = tree_->model()->hasChildren(row);
        state.expanded = state.expandable && tree_->isExpanded(row);
        state.collapsed = state.expandable && !state.expanded;
        state.disabled = !tree_->isEnabled();
        state.offscreen = !tree_->viewport()->rect().intersects(tree_->visualRect(row));
        return state;
    }

    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                                    : nullptr;
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
    QStringList keyBindingsForAction(const QString& /*action*/) const override { return {}; }

  private:
    QModelIndex index() const { return tree_ == nullptr ? QModelIndex() : tree_->rowOf(number_); }

    QPointer<TreeView> tree_;
    int number_;
};

class TreeAccess final : public QAccessibleWidget {
  public:
    explicit TreeAccess(TreeView* tree) : QAccessibleWidget(tree, QAccessible::Tree), tree_(tree) {}
    ~TreeAccess() override {
        for (const auto id : rows_)
            QAccessible::deleteAccessibleInterface(id);
    }

    int childCount() const override { return tree_->rowCount(); }
    QAccessibleInterface* child(int number) const override {
        if (number < 0 || number >= childCount())
            return nullptr;
        while (rows_.size() <= static_cast<std::size_t>(number))
            rows_.push_back(QAccessible::registerAccessibleInterface(
                new RowAccess(tree_, static_cast<int>(rows_.size()))));
        return QAccessible::accessibleInterface(rows_[static_cast<std::size_t>(number)]);
    }
    QAccessibleInterface* childAt(int x, int y) const override {
        return child(numberOf(tree_->indexAt(tree_->viewport()->mapFromGlobal(QPoint(x, y)))));
    }
    int indexOfChild(const QAccessibleInterface* child) const override {
        for (int number = 0; number < static_cast<int>(rows_.size()); ++number)
            if (this->child(number) == child)
                return number;
        return -1;
    }
    QAccessibleInterface* focusChild() const override {
        return tree_->hasFocus() ? child(numberOf(tree_->currentIndex())) : nullptr;
    }

  private:
    int numberOf(const QModelIndex& index) const {
        for (int number = 0; index.isValid() && number < childCount(); ++number)
            if (tree_->rowOf(number) == index.siblingAtColumn(0))
                return number;
        return -1;
    }

    TreeView* tree_;
    /// Made when they are asked for. A row stays the same object whatever stands in it.
    mutable std::vector<QAccessible::Id> rows_;
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
