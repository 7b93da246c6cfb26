// Rows are the items that the filter lets through.
#include "mark_list_view.h"

#include <QAccessible>
#include <QApplication>
#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QToolTip>

#include "cut_text_tip.h"
#include "mark_list_access.h"
#include "mark_list_painter.h"
#include "mark_list_rows.h"

namespace views {

MarkListView::MarkListView(const windows::MarkList& list, Gestures gestures, QWidget* parent)
    : QListView(parent), items_(new MarkListModel(list, this)), rows_(new MarkListRows(list, this)),
      list_(list), painter_(new MarkListPainter(list, this)), gestures_(std::move(gestures)) {
    makeMarkListsAccessible();
    rows_->setSourceModel(items_);
    setModel(rows_);
    setItemDelegate(painter_);
    setUniformItemSizes(true);
    setMovement(QListView::Static);
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
    showFound();
}

void MarkListView::setSearchesAbout(bool searches) {
    rows_->setSearchesAbout(searches);
    keepLooking();
    showFound();
}

void MarkListView::setOrder(Order order) {
    rows_->setOrder(order);
    scrollTo(currentIndex());
}

void MarkListView::setTiles(bool tiles) {
    if (tiles == painter_->tiles())
        return;
    painter_->setTiles(tiles);
    setViewMode(tiles ? QListView::IconMode : QListView::ListMode);
    setMovement(QListView::Static);
    setResizeMode(tiles ? QListView::Adjust : QListView::Fixed);
    setSpacing(0);
    setWrapping(tiles);
    scheduleDelayedItemsLayout();
    scrollTo(currentIndex());
}

void MarkListView::setPlaceholders(const Placeholders& placeholders) {
    placeholders_ = placeholders;
    viewport()->update();
}

QString MarkListView::placeholder() const {
    if (items_->rowCount() == 0)
        return placeholders_.noItems;
    return rows_->searchesAbout() ? placeholders_.noMatchInAbout : placeholders_.noMatch;
}

void MarkListView::follow() {
    if (list_.revision() != items_->revision())
        rows_->forget();
    const bool areOthers = items_->follow();
    if (std::exchange(factsRevision_, list_.factsRevision()) != list_.factsRevision()) {
        rows_->followFacts();
        keepLooking();
    }
    if (!areOthers)
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

/// The row that is looked at, or else the first one.
void MarkListView::showFound() {
    if (currentIndex().isValid())
        scrollTo(currentIndex());
    else
        scrollToTop();
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

bool MarkListView::isSearching() const {
    return sinceLetter_.isValid() &&
           !sinceLetter_.hasExpired(QApplication::keyboardInputInterval());
}

void MarkListView::keyboardSearch(const QString& text) {
    sinceLetter_.start();
    QListView::keyboardSearch(text);
}

/// Space and Enter tick; every key that leads to another row looks at it. Where none is looked at
/// yet, they lead to the first one. A blank within a name that is typed belongs to the name.
void MarkListView::keyPressEvent(QKeyEvent* event) {
    const bool isBlank = event->key() == Qt::Key_Space;
    const bool ticks = isBlank || event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    const bool isMenu = event->key() == Qt::Key_F10 && event->modifiers() == Qt::ShiftModifier;
    const auto before = currentIndex();
    if (isBlank && isSearching()) {
        keyboardSearch(" ");
    } else if (isMenu) {
        askForMenuAtRow();
    } else if (!before.isValid() && (ticks || event->key() == Qt::Key_End)) {
        return moveTo(ticks ? 0 : rows_->rowCount() - 1);
    } else if (ticks) {
        return toggle(before.row());
    } else {
        QListView::keyPressEvent(event);
    }
    if (currentIndex().isValid() && currentIndex() != before)
        read(currentIndex().row());
}

/// To come here is not to pick the first row.
void MarkListView::focusInEvent(QFocusEvent* event) {
    const bool hadRow = currentIndex().isValid();
    QListView::focusInEvent(event);
    if (!hadRow)
        selectionModel()->clear();
}

void MarkListView::contextMenuEvent(QContextMenuEvent* event) {
    if (event->reason() == QContextMenuEvent::Keyboard)
        askForMenuAtRow();
    else if (onMenu)
        onMenu(event->globalPos());
}

/// The row that it is about.
void MarkListView::askForMenuAtRow() {
    scrollTo(currentIndex());
    const auto row = visualRect(currentIndex());
    if (onMenu)
        onMenu(viewport()->mapToGlobal(row.isNull() ? QPoint() : row.bottomLeft()));
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
    if (index.isValid() && painter_->isCut(index, visualRect(index)))
        QToolTip::showText(help->globalPos(), inLines(index.data().toString(), *this), this);
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
                     Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap, placeholder());
}

} // namespace views
