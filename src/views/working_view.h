// The working panel on the screen.
#pragma once

#include <memory>

#include "views/window_view.h"
#include "windows/frmWorking.h"

namespace views {

std::unique_ptr<WindowView> makeWorkingView(windows::frmWorking& window, QtToolkit& toolkit);

} // namespace views
