// The working panel on the screen.
#pragma once

#include <memory>

#include "windows/frmWorking.h"
#include "views/window_view.h"

namespace views {

std::unique_ptr<WindowView> makeWorkingView(windows::frmWorking& window, QtToolkit& toolkit);

} // namespace views
