// The commands of buttons, links and menus. Those that change the data tree put the selection back
// first and end in the question whether to restart, since folder names are read only at start.
#include <algorithm>
#include <utility>

#include "cycle/clean.h"
#include "platform/failure.h"
#include "platform/text.h"
#include "windows/frmAdd.h"
#include "windows/frmFList.h"
#include "windows/frmMain.h"
#include "windows/frmTAM.h"
#include "windows/title.h"

namespace windows {

/// A release whose file could not be moved back must be found again under its name.
bool frmMain::tellsOfWaitingFiles(const std::string& name) {
    const auto places = store_.placesOf(currentType().type, name);
    if (std::none_of(places.begin(), places.end(),
                     [this](const auto& place) { return unfinished_.touches(place); }))
        return false;
    warn("Files of \"" + name +
         "\" could not be moved back from the game directory yet.\r\n\r\nPlease see that they can "
         "be moved and start Vexillum again.");
    return true;
}

void frmMain::lblRename_Click() {
    if (!current_ || releases::isDefaultRelease(*current_) || tellsOfWaitingFiles(*current_))
        return;
    const auto oldName = *current_;
    const auto newName = toolkit()
                             .askForText({"Please Enter The New Name For The \"" + oldName + "\" " +
                                              getLongSelType() + ":",
                                          "Rename This " + getShortSelType(), oldName})
                             .value_or("");
    if (newName.empty() || newName == oldName)
        return;
    revertSels(true);
    stopLooking();
    if (const auto reason = store_.rename(currentType().type, oldName, newName); !reason.empty())
        return warn("The " + getLongSelType() + " could not be renamed.\r\n\r\n" + reason);
    newNames_.emplace(currentType().type, newName);
    for (auto* decisions : {&chosen_, &answers_})
        decisions->rename(currentType().type, oldName, newName);
    saveAnswers();
    if (cleared_)
        cleared_->selection.rename(currentType().type, oldName, newName);
    renameInSets(currentType().type, oldName, newName);
    tell("\"" + releases::folderForm(oldName) + "\" has been successfully renamed to \"" +
         releases::folderForm(newName) +
         "\".\r\n\r\nThe new name will be visible next time you start Vexillum.");
    RestartVXL(true);
}

void frmMain::cmdRemove_Click() {
    if (!current_)
        return;
    if (releases::isDefaultRelease(*current_)) {
        panes_.offersRemoval = false;
        return show();
    }
    if (tellsOfWaitingFiles(*current_))
        return;
    const auto name = *current_;
    const auto type = currentType().type;
    const auto longType = getLongSelType();
    if (!ask_.askWhetherSure("Are you VERY VERY sure you want to remove the " + name + " " +
                             longType + "?\r\n\r\nThis is an irreversible operation!"))
        return;
    releases::Store::Removal removal;
    whileWorking([&] {
        revertSels(true);
        stopLooking();
        removal = store_.remove(type, name);
    });
    forgetCleared(type, name);
    for (auto* decisions : {&chosen_, &answers_})
        decisions->forget(type, name);
    saveAnswers();
    for (auto& path : removal.left)
        path = platform::shownPath(path);
    if (!removal.reason.empty())
        game_.questions().ask({"The " + name + " " + longType +
                                   " could not be removed whole. What is left of it will be listed "
                                   "at the next start:\r\n\r\n" +
                                   platform::shownList(removal.left) +
                                   "\r\nPlease see that its files can be removed, and remove it "
                                   "once more.",
                               {"OK"},
                               0,
                               removal.reason});
    else
        tell("The " + name + " " + longType +
             " has been removed successfully.\r\n\r\nIt will dissapear as soon as you close "
             "Vexillum.");
    RestartVXL(true);
}

void frmMain::cmdReadme_Click() {
    std::string text;
    try {
        text = platform::withLineBreaks(game_.disk().readFile(panes_.readmePath));
    } catch (const platform::Failure& failure) {
        return warn("The readme \"" + platform::shownPath(panes_.readmePath) +
                    "\" could not be read.\r\n\r\n" + failure.reason());
    }
    showReadme_.showText("Show Readme", "Author Readme for " + current_.value_or("") + ":", text);
}

void frmMain::cmdExplore_Click() {
    if (current_)
        openWithDesktop(store_.shownFolderOf(currentType().type, *current_),
                        platform::StartWindow::normal);
}

/// An editor opens no file that is not there.
void frmMain::editText(releases::Store::Text text) {
    const auto path =
        current_ ? store_.placeOfText(currentType().type, *current_, text) : std::nullopt;
    if (!path)
        return;
    auto& disk = game_.disk();
    if (disk.kindOf(*path) == platform::EntryKind::none)
        try {
            disk.writeFile(*path, "");
            madeTexts_.push_back(*path);
        } catch (const platform::Failure& failure) {
            return warn("\"" + platform::shownPath(*path) + "\" could not be made.\r\n\r\n" +
                        failure.reason());
        }
    openWithDesktop(*path, platform::StartWindow::maximized);
}

/// An empty file of codes says something else than none.
void frmMain::removeUnusedTexts() {
    for (const auto& path : std::exchange(madeTexts_, {}))
        platform::attempt([&] {
            const auto facts = game_.disk().factsOf(path);
            if (facts.kind == platform::EntryKind::file && facts.size == 0)
                game_.disk().removeFile(path);
        });
}

/// Each type has its page, where the help that is there is as new as the program.
void frmMain::cmdHelp_Click() {
    openHelp(getShortSelType());
}

void frmMain::openHelp(const std::string& page) {
    const auto pathOf = [this](const std::string& name) {
        return game_.inDataTree("VXL-Help\\" + name + ".html");
    };
    openWithDesktop(pathOf(game_.DoesFileExist(pathOf(page)) ? page : "Index"),
                    platform::StartWindow::minimized);
}

void frmMain::openWithDesktop(const std::string& path, platform::StartWindow window) {
    try {
        machine_.programs.start({platform::Command::Kind::open, path, "", window});
    } catch (const platform::Failure& failure) {
        warn("\"" + platform::shownPath(path) + "\" could not be opened.\r\n\r\n" +
             failure.reason());
    }
}

void frmMain::mnuHAboutVXL_Click() {
    std::string text = std::string(applicationTitle) + "\r\n\r\n";
    const auto file = game_.inDataTree("VXL-Misc\\AboutVXL.txt");
    if (!platform::attempt([&] { text += platform::withLineBreaks(game_.disk().readFile(file)); }))
        text += "*****  About File Not Found!  *****\r\n";
    showReadme_.showText("About", "About Vexillum", text);
}

void frmMain::cmdAdd_Click() {
    addRelease({});
}

/// With the files that it is to bring, where the user has dropped some.
void frmMain::addRelease(const std::vector<std::string>& paths) {
    revertSels(true);
    stopLooking();
    {
        frmAdd wizard(*this, getShortSelType(), paths);
        toolkit().showModal(wizard);
    }
    RestartVXL(true);
}

void frmMain::mnuUconverter_Click() {
    tell("Please note that TAM Releases are not supported, and likely will NOT work unless you "
         "manually create a monolithic totala1.hpi file.  Also, any TAM-format release that "
         "includes a soft mutator will not work at all.");
    stopLooking();
    frmTAM wizard(*this);
    wizard.Form_Load();
    toolkit().showModal(wizard);
}

void frmMain::cmdClean_Click() {
    if (!ask_.askWhetherSure(
            "This will move ALL non-CD/non-VXL files from your TA Directory into a "
            "CleanedFiles subdirectory.\r\n\r\nAre you sure you want to do this?"))
        return;
    whileWorking([this] {
        revertSels(false);
        stopLooking();
        cycle::cleanGameDirectory(game_, machine_.programName, unfinished_);
    });
}

void frmMain::mnuUfilelister_Click() {
    frmFList lister(*this);
    whileWorking([&] { lister.Form_Load(); });
    toolkit().showModal(lister);
}

/// The working panel stands over the main window until the work is done or has failed.
void frmMain::whileWorking(const std::function<void()>& work) {
    showWorking();
    try {
        work();
    } catch (...) {
        hideWorking();
        throw;
    }
    hideWorking();
}

void frmMain::showWorking() {
    setEnabled(false);
    working_ = std::make_unique<frmWorking>(toolkit());
    toolkit().load(*working_);
    toolkit().show(*working_);
    toolkit().doEvents();
}

void frmMain::hideWorking() {
    toolkit().doEvents();
    toolkit().hide(*working_);
    working_.reset();
    setEnabled(true);
}

} // namespace windows
