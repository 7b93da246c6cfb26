// Rows of the catalogue's list.
#include "mark_list_model.h"

#include "views/binding.h"

namespace views {

MarkListModel::MarkListModel(const windows::MarkList& list, QObject* parent)
    : QAbstractListModel(parent), list_(list) {}

int MarkListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(marks_.size());
}

QVariant MarkListModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || index.row() >= list_.count() || revision_ != list_.revision())
        return {};
    switch (role) {
    case Qt::DisplayRole:
        return shown(list_.itemText(index.row()));
    case Qt::CheckStateRole:
        return list_.marked(index.row()) ? Qt::Checked : Qt::Unchecked;
    case itemRole:
        return index.row();
    case notesRole: {
        QStringList notes;
        if (const auto* maps = list_.factsOf ? list_.factsOf(list_.itemText(index.row())) : nullptr)
            for (const auto& note : windows::notesOf(*maps))
                notes << shown(note);
        return notes;
    }
    default:
        return {};
    }
}

bool MarkListModel::follow() {
    if (revision_ == list_.revision()) {
        followMarks();
        return false;
    }
    beginResetModel();
    marks_.clear();
    for (const auto& item : list_.items())
        marks_.push_back(item.marked);
    revision_ = list_.revision();
    endResetModel();
    return true;
}

void MarkListModel::followMarks() {
    for (int row = 0; row < rowCount(); ++row) {
        const auto at = static_cast<std::size_t>(row);
        if (marks_[at] == list_.marked(row))
            continue;
        marks_[at] = list_.marked(row);
        Q_EMIT dataChanged(index(row), index(row), {Qt::CheckStateRole});
    }
}

} // namespace views
