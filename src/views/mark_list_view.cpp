// Rows are the items that the filter lets through.
#include "mark_list_view.h"

#include <QAccessible>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QToolTip>

#include "mark_list_access.h"
#include "mark_list_rows.h"

namespace views {

MarkListView::MarkListView(const windows::MarkList& list, Gestures gestures, QWidget* parent)
    : QListView(parent), items_(new MarkListModel(list, this)), rows_(new MarkListRows(list, this)),
      list_(list), gestures_(std::move(gestures)) {
    makeMarkListsAccessible();
    rows_->setSourceModel(items_);
    setModel(rows_);
    setUniformItemSizes(true);
    setTextElideMode(Qt::ElideRight);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    connect(this, &QListView::clicked, this,
            [this](const QModelIndex& index) { toggle(index.row()); });
    connect(rows_, &MarkListRows::readSome, this, &MarkListView::keepLooking);
    connect(rows_, &QAbstractItemModel::dataChanged, this, [this](const QModelIndex& index) {
        QAccessible::State changed;
        changed.checked = true;
        QAccessibleStateChangeEvent event(this, changed);
        event.setChild(index.row());
        QAccessible::updateAccessibility(&event);
    });
}

void MarkListView::setFilter(const QString& text) {
    rows_->setFilter(text);
    keepLooking();
}

void MarkListView::setSearchesAbout(bool searches) {
    rows_->setSearchesAbout(searches);
    keepLooking();
}

void MarkListView::setOrder(Order order) {
    rows_->setOrder(order);
    scrollTo(currentIndex());
}

void MarkListView::setPlaceholders(const QString& noItems, const QString& noMatch) {
    noItems_ = noItems;
    noMatch_ = noMatch;
    viewport()->update();
}

void MarkListView::follow() {
    if (list_.revision() != items_->revision())
        rows_->forget();
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

const std::string& MarkListView::textOf(int row) const {
    return list_.itemText(rows_->mapToSource(rows_->index(row, 0)).row());
}

// Where the list was filled anew since these rows were shown, the revision tells.

void MarkListView::toggle(int row) {
    if (!rows_->index(row, 0).isValid())
        return;
    look(row);
    gestures_.click(textOf(row), items_->revision());
}

void MarkListView::read(int row) {
    if (!rows_->index(row, 0).isValid())
        return;
    look(row);
    gestures_.read(textOf(row), items_->revision());
}

void MarkListView::look(int row) {
    looked_ = rows_->mapToSource(rows_->index(row, 0));
}

/// The row that goes has another take its place, which nobody has looked at.
void MarkListView::keepLooking() {
    viewport()->update();
    const auto row = rows_->mapFromSource(looked_);
    if (row == currentIndex())
        return;
    if (row.isValid())
        return setCurrentIndex(row);
    selectionModel()->clear();
}

void MarkListView::moveTo(int row) {
    setCurrentIndex(rows_->index(row, 0));
    read(row);
}

void MarkListView::markShown(bool marked) {
    std::vector<std::string> texts;
    for (int row = 0; row < rows_->rowCount(); ++row)
        texts.push_back(textOf(row));
    gestures_.markAll(std::move(texts), marked, items_->revision());
}

void MarkListView::markAll(bool marked) {
    std::vector<std::string> texts;
    for (const auto& item : list_.items())
        texts.push_back(item.text);
    gestures_.markAll(std::move(texts), marked, items_->revision());
}

/// Space and Enter tick; every key that leads to another row looks at it.
void MarkListView::keyPressEvent(QKeyEvent* event) {
    const bool ticks = event->key() == Qt::Key_Space || event->key() == Qt::Key_Return ||
                       event->key() == Qt::Key_Enter;
    if (ticks && currentIndex().isValid())
        return toggle(currentIndex().row());
    const auto before = currentIndex();
    QListView::keyPressEvent(event);
    if (currentIndex().isValid() && currentIndex() != before)
        read(currentIndex().row());
}

/// The left button ticks when it is let go.
void MarkListView::mousePressEvent(QMouseEvent* event) {
    QListView::mousePressEvent(event);
    if (const auto index = indexAt(event->pos());
        event->button() == Qt::RightButton && index.isValid())
        moveTo(index.row());
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
    if (!wasFilled_ || rows_->rowCount() > 0 || rows_->isReading())
        return;
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::PlaceholderText));
    constexpr int margin = 16;
    painter.drawText(viewport()->rect().adjusted(margin, margin, -margin, -margin),
                     Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap,
                     items_->rowCount() == 0 ? noItems_ : noMatch_);
}

} // namespace views
