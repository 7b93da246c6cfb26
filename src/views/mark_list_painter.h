// How an item of the catalogue's list looks: a row with notes at its right end, or a tile with a
// picture.
#pragma once

#include <memory>

#include <QCache>
#include <QPixmap>
#include <QStyledItemDelegate>

#include "windows/lists.h"

namespace views {

class MarkListPainter final : public QStyledItemDelegate {
    Q_OBJECT

  public:
    MarkListPainter(const windows::MarkList& list, QObject* parent);

    void setTiles(bool tiles) { tiles_ = tiles; }
    bool tiles() const { return tiles_; }
    /// Whether an item has more text than it shows in so much room.
    bool isCut(const QModelIndex& index, const QRect& room) const;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

  private:
    void paintTile(QPainter* painter, const QStyleOptionViewItem& option,
                   const QModelIndex& index) const;
    void paintNotes(QPainter* painter, const QStyleOptionViewItem& option,
                    const QStringList& notes) const;
    const QPixmap* pictureOf(const QModelIndex& index, qreal ratio) const;

    const windows::MarkList& list_;
    bool tiles_ = false;
    struct Painted {
        std::shared_ptr<const formats::Picture> picture;
        qreal ratio;
        QPixmap pixmap;
    };
    mutable QCache<QString, Painted> painted_;
};

} // namespace views
