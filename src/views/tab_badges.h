// The figures beside the captions of tabs.
#pragma once

#include <QTabBar>

#include "windows/lists.h"

namespace views {

/// Shows the figures of the strip, as far as it has any.
void showBadges(QTabBar& tabs, const windows::TabStrip& control);

} // namespace views
