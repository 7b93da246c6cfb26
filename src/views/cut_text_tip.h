// Tooltips that show a text whole, only where it is cut.
#pragma once

#include <QString>

class QAbstractItemView;
class QHelpEvent;
class QWidget;

namespace views {

/// For a label, a line edit or a button.
void tipWhereCut(QWidget* widget);

/// For a row of an item view, where the event asks for a tip.
void tipOfCutRow(QAbstractItemView& view, const QHelpEvent& event);

/// The text of a tip, broken wherever a line of it would be too wide for the widget's screen.
QString inLines(const QString& text, const QWidget& widget);

} // namespace views
