// The window of the sets.
#pragma once

#include <memory>

#include "views/window_view.h"
#include "windows/frmSets.h"

namespace views {

std::unique_ptr<WindowView> makeSetsView(windows::frmSets& window, QtToolkit& toolkit);

} // namespace views
