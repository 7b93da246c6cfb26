// The text itself stays whole, for tooltips and screen readers.
#include "elided.h"

#include <QStyleOptionButton>
#include <QStylePainter>

namespace views {

void ElidedLabel::paintEvent(QPaintEvent* /*event*/) {
    QStylePainter painter(this);
    const auto place = contentsRect();
    painter.drawItemText(
        place, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, palette(), isEnabled(),
        fontMetrics().elidedText(text(), Qt::ElideRight, place.width()), foregroundRole());
}

void ElidedButton::paintEvent(QPaintEvent* /*event*/) {
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    const auto room = style()->subElementRect(QStyle::SE_PushButtonContents, &option, this).width();
    auto lines = option.text.split('\n');
    for (auto& line : lines)
        line = fontMetrics().elidedText(line, Qt::ElideRight, room, Qt::TextShowMnemonic);
    option.text = lines.join('\n');
    painter.drawControl(QStyle::CE_PushButton, option);
}

} // namespace views
