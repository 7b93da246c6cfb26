// Rows are the items that the filter lets through.
#include "mark_list_view.h"

#include <QAccessible>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QToolTip>

#include "mark_list_access.h"

namespace views {

MarkListView::MarkListView(const windows::MarkList& list, Click click, QWidget* parent)
    : QListView(parent), items_(new MarkListModel(list, this)),
      rows_(new QSortFilterProxyModel(this)), list_(list), click_(std::move(click)) {
    makeMarkListsAccessible();
    rows_->setSourceModel(items_);
    rows_->setFilterCaseSensitivity(Qt::CaseInsensitive);
    setModel(rows_);
    setUniformItemSizes(true);
    setTextElideMode(Qt::ElideRight);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    connect(this, &QListView::clicked, this,
            [this](const QModelIndex& index) { toggle(index.row()); });
    connect(rows_, &QAbstractItemModel::dataChanged, this, [this](const QModelIndex& index) {
        QAccessible::State changed;
        changed.checked = true;
        QAccessibleStateChangeEvent event(this, changed);
        event.setChild(index.row());
        QAccessible::updateAccessibility(&event);
    });
}

void MarkListView::setFilter(const QString& text) {
    rows_->setFilterFixedString(text);
}

void MarkListView::setPlaceholders(const QString& noItems, const QString& noMatch) {
    noItems_ = noItems;
    noMatch_ = noMatch;
    viewport()->update();
}

void MarkListView::follow() {
    if (!items_->follow())
        return;
    wasFilled_ = true;
    scrollToTop();
    if (onRefilled)
        onRefilled();
}

bool MarkListView::isMarked(int row) const {
    return rows_->index(row, 0).data(Qt::CheckStateRole) == Qt::Checked;
}

void MarkListView::toggle(int row) {
    // Where the list was filled anew since these rows were shown, the revision tells.
    if (const auto index = rows_->index(row, 0); index.isValid())
        click_(list_.itemText(rows_->mapToSource(index).row()), items_->revision());
}

void MarkListView::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Space && currentIndex().isValid())
        toggle(currentIndex().row());
    else
        QListView::keyPressEvent(event);
}

/// A row's tooltip shows where its text is cut, and only there.
bool MarkListView::viewportEvent(QEvent* event) {
    if (event->type() != QEvent::ToolTip)
        return QListView::viewportEvent(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    const auto index = indexAt(help->pos());
    if (index.isValid() && sizeHintForIndex(index).width() > visualRect(index).width())
        QToolTip::showText(help->globalPos(), index.data().toString(), this);
    else
        QToolTip::hideText();
    return true;
}

void MarkListView::paintEvent(QPaintEvent* event) {
    QListView::paintEvent(event);
    if (!wasFilled_ || rows_->rowCount() > 0)
        return;
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::PlaceholderText));
    constexpr int margin = 16;
    painter.drawText(viewport()->rect().adjusted(margin, margin, -margin, -margin),
                     Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap,
                     items_->rowCount() == 0 ? noItems_ : noMatch_);
}

} // namespace views
