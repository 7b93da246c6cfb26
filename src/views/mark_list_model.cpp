// Rows of the catalogue's list.
#include "views/mark_list_model.h"

#include "views/binding.h"

namespace views {

MarkListModel::MarkListModel(const platform::MarkList& list, QObject* parent)
    : QAbstractListModel(parent), list_(list) {}

int MarkListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : rows_;
}

QVariant MarkListModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || index.row() >= list_.count())
        return {};
    switch (role) {
    case Qt::DisplayRole:
    case Qt::ToolTipRole:
        return shown(list_.itemText(index.row()));
    case Qt::CheckStateRole:
        return list_.marked(index.row()) ? Qt::Checked : Qt::Unchecked;
    default:
        return {};
    }
}

bool MarkListModel::follow() {
    if (revision_ == list_.revision()) {
        if (rows_ > 0)
            Q_EMIT dataChanged(index(0), index(rows_ - 1), {Qt::CheckStateRole});
        return false;
    }
    beginResetModel();
    rows_ = list_.count();
    revision_ = list_.revision();
    endResetModel();
    return true;
}

} // namespace views
