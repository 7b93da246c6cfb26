// Which items of the catalogue's list are shown, and in which order.
#pragma once

#include <optional>
#include <vector>

#include <QSortFilterProxyModel>
#include <QTimer>

#include "mark_list_view.h"

namespace views {

class MarkListRows final : public QSortFilterProxyModel {
    Q_OBJECT

  public:
    MarkListRows(const windows::MarkList& list, QObject* parent);

    void setFilter(const QString& text);
    void setSearchesAbout(bool searches);
    bool searchesAbout() const { return searchesAbout_; }
    void setOrder(MarkListView::Order order);
    /// More is known of the items: rows may come, or come in another order.
    void followFacts();
    /// The items are others now: what was known of them is not.
    void forget();
    /// Whether rows may come still: about texts are read bit by bit, never in the way of a key.
    bool isReading() const { return reading_.isActive(); }

  Q_SIGNALS:
    /// Rows may have come, or there are none to come any more.
    void readSome();

  protected:
    bool filterAcceptsRow(int row, const QModelIndex& parent) const override;
    bool lessThan(const QModelIndex& one, const QModelIndex& other) const override;

  private:
    std::int64_t dateOf(int item) const;
    bool aboutHasFilter(int item) const;
    const std::vector<windows::MapFacts>& mapsOf(int item) const;
    int rankOf(int item) const;
    void readOn();

    const windows::MarkList& list_;
    windows::ListFilter wanted_; ///< of maps, beside the text
    QString filter_;
    bool searchesAbout_ = false;
    MarkListView::Order order_ = MarkListView::Order::asListed;
    /// Looked up when they are first asked for.
    mutable std::vector<std::optional<std::int64_t>> dates_;
    /// Of the first items; the others are to be read.
    std::vector<QString> abouts_;
    mutable QTimer reading_;
};

} // namespace views
