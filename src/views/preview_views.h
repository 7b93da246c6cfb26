// The views of the preview and of the remembered answers.
#pragma once

#include <memory>

#include "views/window_view.h"
#include "windows/frmAnswers.h"
#include "windows/frmPreview.h"

namespace views {

std::unique_ptr<WindowView> makePreviewView(windows::frmPreview& window, QtToolkit& toolkit);
std::unique_ptr<WindowView> makeAnswersView(windows::frmAnswers& window, QtToolkit& toolkit);

} // namespace views
