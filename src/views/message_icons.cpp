// Drawn at each size that a box may ask for, so that they are sharp on every screen.
#include "message_icons.h"

#include <functional>

#include <QPainter>
#include <QPainterPath>

namespace views {
namespace {

/// Draws on a square of 1 by 1.
QIcon iconOf(const std::function<void(QPainter&)>& draw) {
    QIcon icon;
    for (const int size : {16, 24, 32, 48, 64, 96, 128}) {
        QPixmap pixmap(size, size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.scale(size, size);
        draw(painter);
        painter.end();
        icon.addPixmap(pixmap);
    }
    return icon;
}

QPen stroke(const QColor& colour) {
    return {colour, 0.09, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin};
}

void drawDot(QPainter& painter, const QColor& colour, double y) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    painter.drawEllipse(QPointF(0.5, y), 0.055, 0.055);
}

} // namespace

QIcon questionIcon(const QColor& ground, const QColor& sign) {
    return iconOf([&](QPainter& painter) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(ground);
        painter.drawEllipse(QPointF(0.5, 0.5), 0.46, 0.46);
        QPainterPath hook(QPointF(0.36, 0.39));
        hook.cubicTo(0.36, 0.19, 0.65, 0.2, 0.65, 0.39);
        hook.cubicTo(0.65, 0.51, 0.5, 0.49, 0.5, 0.61);
        painter.setBrush(Qt::NoBrush);
        painter.setPen(stroke(sign));
        painter.drawPath(hook);
        drawDot(painter, sign, 0.75);
    });
}

QIcon warningIcon() {
    const QColor amber(0xf2, 0xa9, 0x1c);
    const QColor sign(0x2b, 0x1d, 0x00);
    return iconOf([&](QPainter& painter) {
        QPen edge(amber, 0.12, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
        painter.setPen(edge);
        painter.setBrush(amber);
        painter.drawPolygon(QPolygonF({{0.5, 0.14}, {0.91, 0.85}, {0.09, 0.85}}));
        painter.setPen(stroke(sign));
        painter.drawLine(QPointF(0.5, 0.36), QPointF(0.5, 0.6));
        drawDot(painter, sign, 0.76);
    });
}

} // namespace views
