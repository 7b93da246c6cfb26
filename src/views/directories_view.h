// The window of the game directories.
#pragma once

#include <memory>

#include "views/window_view.h"
#include "windows/frmDirectories.h"

namespace views {

std::unique_ptr<WindowView> makeDirectoriesView(windows::frmDirectories& window,
                                                QtToolkit& toolkit);

} // namespace views
