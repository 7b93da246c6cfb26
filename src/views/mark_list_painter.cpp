// Pictures are made for the screen once, and the last ones are kept.
#include "mark_list_painter.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QPainter>

#include "mark_list_model.h"
#include "picture_view.h"

namespace views {
namespace {

constexpr int gap = 8;
constexpr int pictureSide = 126; ///< of a small map of the game
constexpr int mostPainted = 300;

/// A column is as wide as its widest note is likely to be.
int columnWidth(const QFontMetrics& metrics, qsizetype column) {
    return metrics.horizontalAdvance(column == 0 ? "2 to 10 players" : "00 x 00");
}

int widthOf(const QFontMetrics& metrics, const QStringList& notes) {
    int width = 0;
    for (qsizetype column = 0; column < notes.size(); ++column)
        width += columnWidth(metrics, column) + gap;
    return width;
}

} // namespace

MarkListPainter::MarkListPainter(const windows::MarkList& list, QObject* parent)
    : QStyledItemDelegate(parent), list_(list), painted_(mostPainted) {}

bool MarkListPainter::isCut(const QModelIndex& index, const QRect& room) const {
    const auto* view = static_cast<const QAbstractItemView*>(parent());
    const QFontMetrics metrics(view->font());
    if (tiles_)
        return metrics.horizontalAdvance(index.data().toString()) > room.width() - gap;
    const auto notes = index.data(MarkListModel::notesRole).toStringList();
    return view->sizeHintForIndex(index).width() + widthOf(metrics, notes) > room.width();
}

QSize MarkListPainter::sizeHint(const QStyleOptionViewItem& option,
                                const QModelIndex& index) const {
    if (!tiles_)
        return QStyledItemDelegate::sizeHint(option, index);
    return {pictureSide + 2 * gap, pictureSide + 3 * gap + 2 * option.fontMetrics.height()};
}

void MarkListPainter::paint(QPainter* painter, const QStyleOptionViewItem& option,
                            const QModelIndex& index) const {
    if (tiles_)
        return paintTile(painter, option, index);
    const auto notes = index.data(MarkListModel::notesRole).toStringList();
    if (notes.isEmpty())
        return QStyledItemDelegate::paint(painter, option, index);
    auto row = option;
    initStyleOption(&row, index);
    const auto* style = option.widget->style();
    auto text = style->subElementRect(QStyle::SE_ItemViewItemText, &row, option.widget);
    text.setRight(option.rect.right());
    row.text = row.fontMetrics.elidedText(row.text, Qt::ElideRight,
                                          text.width() - widthOf(row.fontMetrics, notes) - gap);
    style->drawControl(QStyle::CE_ItemViewItem, &row, painter, option.widget);
    paintNotes(painter, row, notes);
}

void MarkListPainter::paintNotes(QPainter* painter, const QStyleOptionViewItem& option,
                                 const QStringList& notes) const {
    painter->save();
    painter->setPen(option.palette.color(QPalette::PlaceholderText));
    int right = option.rect.right() - gap;
    for (auto column = notes.size() - 1; column >= 0; --column) {
        const int width = columnWidth(option.fontMetrics, column);
        painter->drawText(QRect(right - width, option.rect.top(), width, option.rect.height()),
                          Qt::AlignRight | Qt::AlignVCenter, notes[column]);
        right -= width + gap;
    }
    painter->restore();
}

const QPixmap* MarkListPainter::pictureOf(const QModelIndex& index, qreal ratio) const {
    const auto item = index.data(MarkListModel::itemRole);
    const auto text = index.data().toString();
    const auto picture =
        item.isValid() && list_.pictureOf ? list_.pictureOf(list_.itemText(item.toInt())) : nullptr;
    auto* painted = painted_.object(text);
    // While it is found once more, what was painted of it stays.
    if (painted != nullptr && painted->ratio == ratio &&
        (picture == nullptr || picture == painted->picture))
        return &painted->pixmap;
    if (picture == nullptr)
        return nullptr;
    const auto room = (QSizeF(pictureSide, pictureSide) * ratio).toSize();
    auto pixmap = QPixmap::fromImage(fitted(imageOf(picture), room));
    pixmap.setDevicePixelRatio(ratio);
    painted_.insert(text, new Painted{picture, ratio, pixmap});
    return &painted_.object(text)->pixmap;
}

void MarkListPainter::paintTile(QPainter* painter, const QStyleOptionViewItem& option,
                                const QModelIndex& index) const {
    auto tile = option;
    initStyleOption(&tile, index);
    const auto text = tile.text;
    const auto* style = option.widget->style();
    style->drawPrimitive(QStyle::PE_PanelItemViewItem, &tile, painter, option.widget);
    const QRect place(option.rect.left() + gap, option.rect.top() + gap, pictureSide, pictureSide);
    painter->save();
    painter->setPen(tile.palette.color(QPalette::PlaceholderText));
    if (const auto* pixmap = pictureOf(index, painter->device()->devicePixelRatioF())) {
        const auto size = pixmap->deviceIndependentSize().toSize();
        painter->drawPixmap(place.center() - QPoint(size.width() / 2, size.height() / 2), *pixmap);
    } else {
        painter->drawRect(place.adjusted(0, 0, -1, -1));
    }
    const int line = option.fontMetrics.height();
    auto below = QRect(place.left(), place.bottom() + gap / 2, place.width(), line);
    auto notes = index.data(MarkListModel::notesRole).toStringList();
    notes.removeAll("");
    painter->drawText(
        below.translated(0, line), Qt::AlignHCenter,
        option.fontMetrics.elidedText(notes.join(", "), Qt::ElideRight, place.width()));
    auto check = tile;
    check.rect = style->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &tile, option.widget);
    check.rect.moveTopLeft({place.left(), below.top()});
    check.state.setFlag(QStyle::State_On, tile.checkState == Qt::Checked);
    check.state.setFlag(QStyle::State_Off, tile.checkState != Qt::Checked);
    check.state.setFlag(QStyle::State_HasFocus, false);
    style->drawPrimitive(QStyle::PE_IndicatorItemViewItemCheck, &check, painter, option.widget);
    painter->setPen(tile.palette.color(QPalette::Text));
    below.setLeft(check.rect.right() + gap / 2);
    painter->drawText(below, Qt::AlignLeft | Qt::AlignVCenter,
                      option.fontMetrics.elidedText(text, Qt::ElideRight, below.width()));
    painter->restore();
}

} // namespace views
