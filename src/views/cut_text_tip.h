// Tooltips that show a text whole, only where it is cut.
#pragma once

#include <QString>

class QWidget;

namespace views {

/// For a label, a line edit or a button.
void tipWhereCut(QWidget* widget);

/// The text of a tip, broken wherever a line of it would be too wide for the widget's screen.
QString inLines(const QString& text, const QWidget& widget);

} // namespace views
