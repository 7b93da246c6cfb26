// The working panel on the screen.
#pragma once

#include <memory>

#include "utilities/frmWorking.h"
#include "views/window_view.h"

namespace views {

std::unique_ptr<WindowView> makeWorkingView(utilities::frmWorking& window, QtToolkit& toolkit);

} // namespace views
