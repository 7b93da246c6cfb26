// The two wizards on the screen.
#pragma once

#include <memory>

#include "views/window_view.h"
#include "windows/frmAdd.h"
#include "windows/frmTAM.h"

namespace views {

std::unique_ptr<WindowView> makeAddView(windows::frmAdd& window, QtToolkit& toolkit);
std::unique_ptr<WindowView> makeTamView(windows::frmTAM& window, QtToolkit& toolkit);

} // namespace views
