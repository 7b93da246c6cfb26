// What is painted is worked out once for each size.
#include "picture_view.h"

#include <algorithm>

#include <QKeyEvent>
#include <QPainter>

namespace views {

QImage imageOf(const std::shared_ptr<const formats::Picture>& picture) {
    if (picture == nullptr)
        return {};
    QImage image(picture->width, picture->height, QImage::Format_Indexed8);
    QList<QRgb> colours;
    for (const auto& colour : picture->colours)
        colours.append(qRgb(colour.red, colour.green, colour.blue));
    image.setColorTable(colours);
    auto row = picture->pixels.begin();
    for (int y = 0; y < picture->height; ++y, row += picture->width)
        std::copy_n(row, picture->width, image.scanLine(y));
    return image.convertToFormat(QImage::Format_RGB32);
}

QImage fitted(const QImage& image, QSize room) {
    if (image.isNull() || room.isEmpty())
        return {};
    const int factor = std::min(room.width() / image.width(), room.height() / image.height());
    return factor >= 1
               ? image.scaled(image.size() * factor, Qt::IgnoreAspectRatio, Qt::FastTransformation)
               : image.scaled(room, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

PictureView::PictureView(QSize size, QWidget* parent) : QAbstractButton(parent), size_(size) {
    setFocusPolicy(Qt::StrongFocus);
}

void PictureView::setPicture(const std::shared_ptr<const formats::Picture>& picture) {
    if (picture == picture_)
        return;
    picture_ = picture;
    image_ = imageOf(picture);
    room_ = {};
    setCursor(image_.isNull() ? Qt::ArrowCursor : Qt::PointingHandCursor);
    update();
}

void PictureView::paintEvent(QPaintEvent* /*event*/) {
    constexpr int frame = 2;
    const auto ratio = devicePixelRatioF();
    const auto inside = rect().adjusted(frame, frame, -frame, -frame);
    const auto room = (QSizeF(inside.size()) * ratio).toSize();
    if (room != room_) {
        fitted_ = fitted(image_, room);
        room_ = room;
    }
    QPainter painter(this);
    if (fitted_.isNull()) {
        painter.setPen(palette().color(QPalette::PlaceholderText));
        if (!accessibleName().isEmpty())
            painter.drawText(inside, Qt::AlignCenter | Qt::TextWordWrap, "No picture");
        return;
    }
    fitted_.setDevicePixelRatio(ratio);
    const QPoint corner((room.width() - fitted_.width()) / 2,
                        (room.height() - fitted_.height()) / 2);
    const auto at = QPointF(inside.topLeft()) + QPointF(corner) / ratio;
    painter.drawImage(at, fitted_);
    if (!hasFocus())
        return;
    painter.setPen(QPen(palette().color(QPalette::Highlight), frame));
    painter.drawRect(QRectF(at, QSizeF(fitted_.size()) / ratio).adjusted(-1, -1, 1, 1));
}

void PictureView::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        click();
    else
        QAbstractButton::keyPressEvent(event);
}

} // namespace views
