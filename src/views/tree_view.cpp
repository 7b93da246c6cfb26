// Rows keep their places in the control as the model's numbers.
#include "tree_view.h"

#include <QApplication>
#include <QHeaderView>
#include <QHelpEvent>
#include <QScopedValueRollback>

#include "cut_text_tip.h"
#include "tree_access.h"
#include "views/binding.h"

namespace views {

using Look = windows::TreeList::Look;

namespace {

/// A screen reader goes down the first column.
QString wholeRow(const windows::TreeList::Row& row) {
    QStringList texts;
    for (const auto& text : row.texts)
        if (!text.empty())
            texts << shown(text);
    return texts.join(", ");
}

/// Texts that are numbers come by their size, ahead of all others.
class TreeRows final : public QSortFilterProxyModel {
  public:
    using QSortFilterProxyModel::QSortFilterProxyModel;

  protected:
    bool lessThan(const QModelIndex& one, const QModelIndex& other) const override {
        const auto text = one.data().toString();
        const auto otherText = other.data().toString();
        bool isNumber = false;
        bool isOtherNumber = false;
        const auto number = text.toLongLong(&isNumber);
        const auto otherNumber = otherText.toLongLong(&isOtherNumber);
        if (isNumber != isOtherNumber)
            return isNumber;
        if (isNumber && number != otherNumber)
            return number < otherNumber;
        const int order = QString::compare(text, otherText, Qt::CaseInsensitive);
        return order != 0 ? order < 0 : one.row() < other.row();
    }
};

} // namespace

TreeModel::TreeModel(const windows::TreeList& tree, QObject* parent)
    : QAbstractItemModel(parent), tree_(tree), children_(1) {}

const std::vector<int>& TreeModel::childrenOf(const QModelIndex& parent) const {
    return parent.isValid() ? children_[static_cast<std::size_t>(parent.internalId())]
                            : children_.back();
}

QModelIndex TreeModel::index(int row, int column, const QModelIndex& parent) const {
    const auto& children = childrenOf(parent);
    if (row < 0 || static_cast<std::size_t>(row) >= children.size())
        return {};
    return createIndex(row, column, static_cast<quintptr>(children[static_cast<std::size_t>(row)]));
}

QModelIndex TreeModel::indexOf(int place) const {
    if (place < 0 || static_cast<std::size_t>(place) >= rowInParent_.size())
        return {};
    return createIndex(rowInParent_[static_cast<std::size_t>(place)], 0,
                       static_cast<quintptr>(place));
}

int TreeModel::placeOf(const QModelIndex& index) const {
    return index.isValid() ? static_cast<int>(index.internalId()) : -1;
}

QModelIndex TreeModel::parent(const QModelIndex& child) const {
    return child.isValid() ? indexOf(parents_[static_cast<std::size_t>(child.internalId())])
                           : QModelIndex();
}

int TreeModel::rowCount(const QModelIndex& parent) const {
    return parent.column() > 0 ? 0 : static_cast<int>(childrenOf(parent).size());
}

int TreeModel::columnCount(const QModelIndex& /*parent*/) const {
    return static_cast<int>(tree_.columns().size());
}

QVariant TreeModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || revision_ != tree_.revision())
        return {};
    const auto& row = tree_.rows()[static_cast<std::size_t>(index.internalId())];
    const auto column = static_cast<std::size_t>(index.column());
    switch (role) {
    case Qt::DisplayRole:
        return column < row.texts.size() ? shown(row.texts[column]) : QString();
    case Qt::UserRole:
        return shown(row.key);
    case Qt::ForegroundRole:
        if (row.look == Look::quiet)
            return QApplication::palette().color(QPalette::PlaceholderText);
        if (row.look == Look::open)
            return QApplication::palette().color(QPalette::Link);
        return {};
    case Qt::FontRole:
        if (row.look == Look::open || row.look == Look::decided) {
            auto font = QApplication::font();
            font.setBold(true);
            return font;
        }
        return {};
    case Qt::AccessibleTextRole:
        return index.column() == 0 ? wholeRow(row) : data(index, Qt::DisplayRole);
    default:
        return {};
    }
}

QVariant TreeModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    return shown(tree_.columns()[static_cast<std::size_t>(section)]);
}

bool TreeModel::follow() {
    if (revision_ == tree_.revision())
        return false;
    beginResetModel();
    const auto& rows = tree_.rows();
    children_.assign(rows.size() + 1, {});
    rowInParent_.assign(rows.size(), 0);
    parents_.clear();
    for (std::size_t place = 0; place < rows.size(); ++place) {
        parents_.push_back(rows[place].parent);
        auto& siblings = rows[place].parent < 0
                             ? children_.back()
                             : children_[static_cast<std::size_t>(rows[place].parent)];
        rowInParent_[place] = static_cast<int>(siblings.size());
        siblings.push_back(static_cast<int>(place));
    }
    revision_ = tree_.revision();
    endResetModel();
    return true;
}

TreeView::TreeView(const windows::TreeList& tree, Picked picked, QWidget* parent)
    : QTreeView(parent), tree_(tree), picked_(std::move(picked)), model_(new TreeModel(tree, this)),
      filtered_(new TreeRows(this)) {
    makeTreesAccessible();
    filtered_->setSourceModel(model_);
    filtered_->setRecursiveFilteringEnabled(true);
    filtered_->setFilterKeyColumn(-1);
    filtered_->setFilterCaseSensitivity(Qt::CaseInsensitive);
    setModel(filtered_);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setTextElideMode(Qt::ElideRight);
    setRootIsDecorated(true);
    header()->setStretchLastSection(true);
    const auto forgetOrder = [this] { inOrder_.clear(); };
    connect(filtered_, &QAbstractItemModel::modelReset, this, forgetOrder);
    connect(filtered_, &QAbstractItemModel::layoutChanged, this, forgetOrder);
    connect(filtered_, &QAbstractItemModel::rowsInserted, this, forgetOrder);
    connect(filtered_, &QAbstractItemModel::rowsRemoved, this, forgetOrder);
    connect(filtered_, &QAbstractItemModel::rowsMoved, this, forgetOrder);
    connect(this, &QTreeView::expanded, this,
            [this](const QModelIndex& index) { noteOpened(index, true); });
    connect(this, &QTreeView::collapsed, this,
            [this](const QModelIndex& index) { noteOpened(index, false); });
}

const windows::TreeList::Row* TreeView::rowAt(const QModelIndex& index) const {
    const int place = model_->placeOf(filtered_->mapToSource(index));
    return place < 0 || model_->revision() != tree_.revision()
               ? nullptr
               : &tree_.rows()[static_cast<std::size_t>(place)];
}

void TreeView::noteOpened(const QModelIndex& index, bool isOpen) {
    if (const auto* row = rowAt(index); row != nullptr && !following_)
        byHand_.insert_or_assign(row->key, isOpen);
}

const std::vector<QModelIndex>& TreeView::rowsInOrder() const {
    if (inOrder_.empty())
        noteRowsBelow({});
    return inOrder_;
}

void TreeView::noteRowsBelow(const QModelIndex& parent) const {
    for (int row = 0; row < filtered_->rowCount(parent); ++row) {
        const auto index = filtered_->index(row, 0, parent);
        inOrder_.push_back(index);
        noteRowsBelow(index);
    }
}

void TreeView::follow() {
    const QScopedValueRollback quiet(following_, true);
    if (model_->follow())
        showChildren();
    showCurrent();
}

void TreeView::setFilter(const QString& text) {
    const QScopedValueRollback quiet(following_, true);
    filtered_->setFilterFixedString(text);
    showChildren();
    showCurrent();
}

void TreeView::setSortable() {
    // As the logic has them until the user wants them otherwise.
    header()->setSortIndicator(-1, Qt::AscendingOrder);
    setSortingEnabled(true);
}

/// What was found is seen; without a filter all is as the user or the logic has it.
void TreeView::showChildren() {
    if (!filtered_->filterRegularExpression().pattern().isEmpty())
        return expandAll();
    const auto& rows = tree_.rows();
    for (std::size_t place = 0; place < rows.size(); ++place) {
        const auto index = model_->indexOf(static_cast<int>(place));
        if (model_->rowCount(index) == 0)
            continue;
        const auto byHand = byHand_.find(rows[place].key);
        setExpanded(filtered_->mapFromSource(index),
                    byHand == byHand_.end() ? rows[place].showsChildren : byHand->second);
    }
}

/// No other row takes the place of one that the filter hides.
void TreeView::showCurrent() {
    const auto index = filtered_->mapFromSource(model_->indexOf(tree_.index()));
    if (index.isValid() && index.row() == currentIndex().row() &&
        index.parent() == currentIndex().parent())
        return;
    if (index.isValid())
        setCurrentIndex(index);
    else
        selectionModel()->clear();
}

/// Where a text is cut, and only there.
bool TreeView::viewportEvent(QEvent* event) {
    if (event->type() != QEvent::ToolTip)
        return QTreeView::viewportEvent(event);
    tipOfCutRow(*this, *static_cast<QHelpEvent*>(event));
    return true;
}

/// To come here is not to pick the first row.
void TreeView::focusInEvent(QFocusEvent* event) {
    const QScopedValueRollback quiet(following_, true);
    QTreeView::focusInEvent(event);
    showCurrent();
}

void TreeView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QTreeView::currentChanged(current, previous);
    if (const auto* row = rowAt(current); row != nullptr && !following_)
        picked_(row->key, model_->revision());
}

} // namespace views
