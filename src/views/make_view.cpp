// Which view belongs to which window.
#include <stdexcept>

#include "directories_view.h"
#include "main_view.h"
#include "picture_window.h"
#include "preview_views.h"
#include "sets_view.h"
#include "text_views.h"
#include "wizard_views.h"
#include "working_view.h"

namespace views {

std::unique_ptr<WindowView> makeView(windows::Window& window, QtToolkit& toolkit) {
    if (auto* main = dynamic_cast<windows::frmMain*>(&window))
        return std::make_unique<MainView>(*main, toolkit);
    if (auto* readme = dynamic_cast<windows::frmShowReadme*>(&window))
        return makeShowReadmeView(*readme, toolkit);
    if (auto* picture = dynamic_cast<windows::frmPicture*>(&window))
        return makePictureWindow(*picture, toolkit);
    if (auto* preview = dynamic_cast<windows::frmPreview*>(&window))
        return makePreviewView(*preview, toolkit);
    if (auto* answers = dynamic_cast<windows::frmAnswers*>(&window))
        return makeAnswersView(*answers, toolkit);
    if (auto* list = dynamic_cast<windows::frmFList*>(&window))
        return makeFileListView(*list, toolkit);
    if (auto* add = dynamic_cast<windows::frmAdd*>(&window))
        return makeAddView(*add, toolkit);
    if (auto* tam = dynamic_cast<windows::frmTAM*>(&window))
        return makeTamView(*tam, toolkit);
    if (auto* sets = dynamic_cast<windows::frmSets*>(&window))
        return makeSetsView(*sets, toolkit);
    if (auto* directories = dynamic_cast<windows::frmDirectories*>(&window))
        return makeDirectoriesView(*directories, toolkit);
    if (auto* working = dynamic_cast<windows::frmWorking*>(&window))
        return makeWorkingView(*working, toolkit);
    throw std::logic_error("no layout for the window " + window.name());
}

} // namespace views
