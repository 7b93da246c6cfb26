// Ties keep the order of the list.
#include "mark_list_rows.h"

#include <algorithm>
#include <limits>

#include <QElapsedTimer>

#include "mark_list_model.h"
#include "views/binding.h"

namespace views {
namespace {

/// Of reading, in milliseconds: less than a person feels.
constexpr qint64 atOnce = 10;

} // namespace

using Order = MarkListView::Order;

MarkListRows::MarkListRows(const windows::MarkList& list, QObject* parent)
    : QSortFilterProxyModel(parent), list_(list) {
    // A row that is ticked must not run away from under the mouse.
    setDynamicSortFilter(false);
    connect(&reading_, &QTimer::timeout, this, &MarkListRows::readOn);
}

void MarkListRows::setFilter(const QString& text) {
    wanted_ = windows::ListFilter::parse(text.toStdString());
    filter_ = QString::fromStdString(wanted_.text());
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

void MarkListRows::followFacts() {
    if (order_ == Order::byPlayers || order_ == Order::bySize)
        invalidate();
    else if (wanted_.hasConditions())
        invalidateFilter();
}

const std::vector<windows::MapFacts>& MarkListRows::mapsOf(int item) const {
    static const std::vector<windows::MapFacts> none;
    const auto* maps = list_.factsOf ? list_.factsOf(list_.itemText(item)) : nullptr;
    return maps == nullptr ? none : *maps;
}

/// The most players of its maps, or the largest size. What is not known comes last.
int MarkListRows::rankOf(int item) const {
    int rank = 0;
    for (const auto& map : mapsOf(item))
        rank = std::max(rank, order_ == Order::bySize ? map.size.width * map.size.height
                              : map.players.empty()   ? 0
                                                      : map.players.back());
    return rank == 0 ? std::numeric_limits<int>::max() : rank;
}

void MarkListRows::forget() {
    dates_.clear();
    abouts_.clear();
    reading_.stop();
}

bool MarkListRows::filterAcceptsRow(int row, const QModelIndex& /*parent*/) const {
    if (wanted_.hasConditions() && !wanted_.accepts(mapsOf(row)))
        return false;
    return filter_.isEmpty() ||
           sourceModel()->index(row, 0).data().toString().contains(filter_, Qt::CaseInsensitive) ||
           (searchesAbout_ && aboutHasFilter(row));
}

bool MarkListRows::aboutHasFilter(int item) const {
    const auto at = static_cast<std::size_t>(item);
    if (at < abouts_.size())
        return abouts_[at].contains(filter_, Qt::CaseInsensitive);
    if (!reading_.isActive())
        reading_.start();
    return false;
}

void MarkListRows::readOn() {
    QElapsedTimer time;
    time.start();
    // Where the list is another one by now, its rows ask anew.
    const bool isSame =
        static_cast<const MarkListModel*>(sourceModel())->revision() == list_.revision();
    const auto count = isSame ? static_cast<std::size_t>(list_.count()) : 0;
    bool found = false;
    while (abouts_.size() < count && time.elapsed() < atOnce) {
        const auto& name = list_.itemText(static_cast<int>(abouts_.size()));
        abouts_.push_back(list_.aboutOf ? shown(list_.aboutOf(name)) : QString());
        found = found || abouts_.back().contains(filter_, Qt::CaseInsensitive);
    }
    if (abouts_.size() >= count)
        reading_.stop();
    if (found)
        invalidateFilter();
    if (found || !reading_.isActive())
        Q_EMIT readSome();
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
    case Order::byPlayers:
    case Order::bySize:
        if (rankOf(one.row()) != rankOf(other.row()))
            return rankOf(one.row()) < rankOf(other.row());
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

} // namespace views
