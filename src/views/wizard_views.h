// The two wizards on the screen.
#pragma once

#include <memory>

#include "installers/frmAdd.h"
#include "installers/frmTAM.h"
#include "views/window_view.h"

namespace views {

std::unique_ptr<WindowView> makeAddView(installers::frmAdd& window, QtToolkit& toolkit);
std::unique_ptr<WindowView> makeTamView(installers::frmTAM& window, QtToolkit& toolkit);

} // namespace views
