// The figure is painted twice, in the colour of each ground and no further than that goes.
#include "figure_bar.h"

#include <algorithm>

#include <QPainter>
#include <QPainterPath>

namespace views {

void FigureBar::paintEvent(QPaintEvent* /*event*/) {
    constexpr qreal round = 6;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const auto frame = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    painter.setPen(palette().color(QPalette::Mid));
    painter.setBrush(palette().color(QPalette::Base));
    painter.drawRoundedRect(frame, round, round);

    const auto room = frame.adjusted(0.5, 0.5, -0.5, -0.5);
    QPainterPath inside;
    inside.addRoundedRect(room, round - 0.5, round - 0.5);
    auto done = room;
    done.setWidth(room.width() * (value() - minimum()) / std::max(maximum() - minimum(), 1));
    auto rest = room;
    rest.setLeft(done.right());
    const auto paint = [&](const QRectF& part, QPalette::ColorRole ground, QPalette::ColorRole on) {
        painter.setClipRect(part);
        painter.fillPath(inside, palette().color(ground));
        painter.setPen(palette().color(on));
        painter.drawText(room, Qt::AlignCenter, text());
    };
    paint(rest, QPalette::Base, QPalette::Text);
    paint(done, QPalette::Highlight, QPalette::HighlightedText);
}

} // namespace views
