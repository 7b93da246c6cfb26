// Tooltips that show a text whole, only where it is cut.
#pragma once

class QWidget;

namespace views {

/// For a label, a line edit or a button.
void tipWhereCut(QWidget* widget);

} // namespace views
