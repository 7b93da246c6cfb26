// One filter serves all widgets: it measures when the mouse rests over one.
#include "cut_text_tip.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QHelpEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QStyleOption>
#include <QTextLayout>
#include <QToolTip>

namespace views {
namespace {

/// Around the text of a line edit, which Qt tells nobody.
constexpr int lineEditMargins = 4;

struct ShownText {
    QString text;
    int room = 0;
};

/// An ampersand stands before the letter that is underlined, and before each that is meant.
QString withoutAccessKey(const QString& caption) {
    QString text;
    for (qsizetype at = 0; at < caption.size(); ++at) {
        if (caption[at] == '&' && at + 1 < caption.size())
            ++at;
        text += caption[at];
    }
    return text;
}

ShownText textOf(QWidget* widget) {
    if (const auto* label = qobject_cast<QLabel*>(widget))
        return {label->text(), label->contentsRect().width()};
    if (const auto* edit = qobject_cast<QLineEdit*>(widget)) {
        QStyleOptionFrame option;
        option.initFrom(edit);
        const auto inner =
            edit->style()->subElementRect(QStyle::SE_LineEditContents, &option, edit);
        return {edit->text(), inner.width() - lineEditMargins};
    }
    if (const auto* button = qobject_cast<QPushButton*>(widget)) {
        QStyleOptionButton option;
        option.initFrom(button);
        const auto inner =
            button->style()->subElementRect(QStyle::SE_PushButtonContents, &option, button);
        return {withoutAccessKey(button->text()), inner.width()};
    }
    return {};
}

class CutTextTip final : public QObject {
  public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() != QEvent::ToolTip)
            return false;
        auto* widget = qobject_cast<QWidget*>(watched);
        const auto [text, room] = textOf(widget);
        const auto size = widget->fontMetrics().size(Qt::TextExpandTabs, text);
        if (size.width() > room)
            QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), inLines(text, *widget),
                               widget);
        else
            QToolTip::hideText();
        return true;
    }
};

} // namespace

QString inLines(const QString& text, const QWidget& widget) {
    const int most = widget.screen()->availableSize().width() / 2;
    QTextOption anywhere;
    anywhere.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    QStringList lines;
    for (const auto& part : text.split('\n')) {
        QTextLayout layout(part, QToolTip::font());
        layout.setTextOption(anywhere);
        layout.beginLayout();
        for (auto line = layout.createLine(); line.isValid(); line = layout.createLine()) {
            line.setLineWidth(most);
            lines << part.mid(line.textStart(), line.textLength());
        }
        layout.endLayout();
    }
    return lines.join('\n');
}

void tipOfCutRow(QAbstractItemView& view, const QHelpEvent& event) {
    const auto index = view.indexAt(event.pos());
    if (index.isValid() && view.sizeHintForIndex(index).width() > view.visualRect(index).width())
        QToolTip::showText(event.globalPos(), inLines(index.data().toString(), view), &view);
    else
        QToolTip::hideText();
}

void tipWhereCut(QWidget* widget) {
    widget->installEventFilter(new CutTextTip(widget));
}

} // namespace views
