// The windows that show a text: readmes, reports, the log, and the file lister.
#pragma once

#include <memory>

#include "views/window_view.h"
#include "windows/frmFList.h"
#include "windows/frmShowReadme.h"

namespace views {

std::unique_ptr<WindowView> makeShowReadmeView(windows::frmShowReadme& window, QtToolkit& toolkit);
std::unique_ptr<WindowView> makeFileListView(windows::frmFList& window, QtToolkit& toolkit);

} // namespace views
