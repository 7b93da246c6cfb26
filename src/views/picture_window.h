// The view of the window that shows a picture large.
#pragma once

#include <memory>

#include "views/window_view.h"
#include "windows/frmPicture.h"

namespace views {

std::unique_ptr<WindowView> makePictureWindow(windows::frmPicture& window, QtToolkit& toolkit);

} // namespace views
