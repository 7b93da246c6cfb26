// Ties keep the order of the list.
#include "mark_list_rows.h"

#include "views/binding.h"

namespace views {

using Order = MarkListView::Order;

MarkListRows::MarkListRows(const windows::MarkList& list, QObject* parent)
    : QSortFilterProxyModel(parent), list_(list) {
    // A row that is ticked must not run away from under the mouse.
    setDynamicSortFilter(false);
}

void MarkListRows::setFilter(const QString& text) {
    filter_ = text;
    invalidateFilter();
}

void MarkListRows::setSearchesAbout(bool searches) {
    searchesAbout_ = searches;
    invalidateFilter();
}

void MarkListRows::setOrder(Order order) {
    order_ = order;
    invalidate();
    sort(order == Order::asListed ? -1 : 0);
}

void MarkListRows::forget() {
    dates_.clear();
    abouts_.clear();
}

bool MarkListRows::filterAcceptsRow(int row, const QModelIndex& /*parent*/) const {
    return filter_.isEmpty() ||
           sourceModel()->index(row, 0).data().toString().contains(filter_, Qt::CaseInsensitive) ||
           (searchesAbout_ && aboutOf(row).contains(filter_, Qt::CaseInsensitive));
}

bool MarkListRows::lessThan(const QModelIndex& one, const QModelIndex& other) const {
    switch (order_) {
    case Order::byName:
        if (const int order = QString::compare(one.data().toString(), other.data().toString(),
                                               Qt::CaseInsensitive);
            order != 0)
            return order < 0;
        break;
    case Order::tickedFirst:
        if (list_.marked(one.row()) != list_.marked(other.row()))
            return list_.marked(one.row());
        break;
    case Order::newestFirst:
        if (dateOf(one.row()) != dateOf(other.row()))
            return dateOf(one.row()) > dateOf(other.row());
        break;
    case Order::asListed:
        break;
    }
    return one.row() < other.row();
}

std::int64_t MarkListRows::dateOf(int item) const {
    dates_.resize(static_cast<std::size_t>(list_.count()));
    auto& date = dates_[static_cast<std::size_t>(item)];
    if (!date)
        date = list_.dateOf ? list_.dateOf(list_.itemText(item)) : 0;
    return *date;
}

const QString& MarkListRows::aboutOf(int item) const {
    abouts_.resize(static_cast<std::size_t>(list_.count()));
    auto& about = abouts_[static_cast<std::size_t>(item)];
    if (!about)
        about = list_.aboutOf ? shown(list_.aboutOf(list_.itemText(item))) : QString();
    return *about;
}

} // namespace views
