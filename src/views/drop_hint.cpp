// A veil with a dashed frame and a word in its middle.
#include "drop_hint.h"

#include <QPainter>

namespace views {

DropHint::DropHint(const QString& text, QWidget* window) : QWidget(window), text_(text) {
    setObjectName("dropHint");
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setAccessibleName(text);
    hide();
}

void DropHint::appear() {
    setGeometry(parentWidget()->rect());
    raise();
    show();
}

void DropHint::paintEvent(QPaintEvent* /*event*/) {
    constexpr int margin = 10;
    constexpr int opacity = 225;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    auto veil = palette().color(QPalette::Window);
    veil.setAlpha(opacity);
    painter.fillRect(rect(), veil);
    const auto accent = palette().color(QPalette::Highlight);
    painter.setPen(QPen(accent, 2, Qt::DashLine));
    painter.drawRoundedRect(rect().adjusted(margin, margin, -margin, -margin), margin, margin);
    auto large = font();
    large.setPointSizeF(large.pointSizeF() * 1.4);
    large.setBold(true);
    painter.setFont(large);
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(rect().adjusted(2 * margin, 0, -2 * margin, 0),
                     Qt::AlignCenter | Qt::TextWordWrap, text_);
}

} // namespace views
