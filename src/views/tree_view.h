// A tree of rows with columns, filtered by what the user types.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include <QAbstractItemModel>
#include <QSortFilterProxyModel>
#include <QTreeView>

#include "windows/lists.h"

namespace views {

/// The rows of a control as a model.
class TreeModel final : public QAbstractItemModel {
    Q_OBJECT

  public:
    TreeModel(const windows::TreeList& tree, QObject* parent);

    QModelIndex index(int row, int column, const QModelIndex& parent) const override;
    QModelIndex parent(const QModelIndex& child) const override;
    int rowCount(const QModelIndex& parent) const override;
    int columnCount(const QModelIndex& parent) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    /// The row that an index stands for, by its place in the control; and back.
    int placeOf(const QModelIndex& index) const;
    QModelIndex indexOf(int place) const;
    /// Takes in rows that came since; false where there are none.
    bool follow();
    unsigned revision() const { return revision_; }

  private:
    const std::vector<int>& childrenOf(const QModelIndex& parent) const;

    const windows::TreeList& tree_;
    std::vector<std::vector<int>> children_; ///< of each row, and behind the last one of none
    std::vector<int> rowInParent_;
    std::vector<int> parents_;
    unsigned revision_ = 0;
};

class TreeView final : public QTreeView {
    Q_OBJECT

  public:
    using Picked = std::function<void(const std::string& key, unsigned revision)>;

    TreeView(const windows::TreeList& tree, Picked picked, QWidget* parent);

    void follow();
    /// Only rows that hold this text in any column, with the folders that lead to them.
    void setFilter(const QString& text);
    /// A click on a column's heading sorts the rows by it, numbers by their size.
    void setSortable();

    /// All rows that the filter shows, in the order in which they stand below each other when all
    /// are open. Good until rows, filter or order change.
    const std::vector<QModelIndex>& rowsInOrder() const;

  protected:
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void focusInEvent(QFocusEvent* event) override;
    bool viewportEvent(QEvent* event) override;

  private:
    const windows::TreeList::Row* rowAt(const QModelIndex& index) const;
    void noteOpened(const QModelIndex& index, bool isOpen);
    void noteRowsBelow(const QModelIndex& parent) const;
    void showChildren();
    void showCurrent();

    const windows::TreeList& tree_;
    Picked picked_;
    TreeModel* model_;
    QSortFilterProxyModel* filtered_;
    mutable std::vector<QModelIndex> inOrder_; ///< empty until somebody asks for it
    /// What the user has opened, or closed, by its key.
    std::map<std::string, bool> byHand_;
    bool following_ = false;
};

} // namespace views
