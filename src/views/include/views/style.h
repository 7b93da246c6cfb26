// Colours, spacing and the icon of all windows.
#pragma once

class QApplication;

namespace views {

/// Follows the desktop's choice of light or dark.
void applyStyle(QApplication& application);

} // namespace views
