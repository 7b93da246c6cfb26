// The list of the catalogue as Qt's item views want it: nothing is copied, rows are read on demand.
#pragma once

#include <vector>

#include <QAbstractListModel>

#include "windows/controls.h"

namespace views {

class MarkListModel final : public QAbstractListModel {
    Q_OBJECT

  public:
    /// What stands beside the text, as a QStringList.
    static constexpr int notesRole = Qt::UserRole + 1;
    /// The number of the item in the list.
    static constexpr int itemRole = Qt::UserRole + 2;

    explicit MarkListModel(const windows::MarkList& list, QObject* parent = nullptr);

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

    /// Follows the list after a change of it. Tells whether the items are others now.
    bool follow();
    /// The revision of the list that is shown.
    unsigned revision() const { return revision_; }

  private:
    void followMarks();

    const windows::MarkList& list_;
    std::vector<bool> marks_; ///< as they were shown last
    unsigned revision_ = 0;
};

} // namespace views
