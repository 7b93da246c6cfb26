// The small commands: readme, files, help, edit, About.
#include "engine/frmMain.h"
#include "platform/failure.h"
#include "platform/text.h"

namespace engine {
namespace {

constexpr auto linesEnd = platform::lineBreak;

std::string withLineEnds(const std::string& bytes) {
    std::string text;
    for (const auto& line : platform::splitLines(bytes))
        text += line + std::string(linesEnd);
    return text;
}

} // namespace

void frmMain::showText(const std::string& caption, const std::string& heading,
                       const std::string& text) {
    showReadme_.Form_Load();
    showReadme_.setText(caption);
    showReadme_.lblWhat.setText(heading);
    showReadme_.txtReadme.setText(text);
    toolkit().showModal(showReadme_);
    toolkit().unload(showReadme_);
}

void frmMain::cmdReadme_Click() {
    std::string text;
    try {
        text = withLineEnds(disk().readFile(cmdReadme.tag));
    } catch (const platform::Failure& failure) {
        tell("The readme \"" + platform::shownPath(cmdReadme.tag) +
             "\" could not be read.\r\n\r\n" + failure.reason());
        return;
    }
    showText("Show Readme", "Author Readme for " + lstList.itemText(curListIndex) + ":", text);
}

void frmMain::cmdExplore_Click() {
    if (curListIndex != -1)
        openWithDesktop(releaseFolder(lstList.itemText(curListIndex)),
                        platform::StartWindow::normal);
}

void frmMain::cmdHelp_Click() {
    openWithDesktop(inDataTree("VXL-Help\\Index.html"), platform::StartWindow::minimized);
}

void frmMain::lblEditAbout_Click() {
    openWithDesktop(releaseFolder(lstList.itemText(lstList.index())) + "\\info.txt",
                    platform::StartWindow::maximized);
}

void frmMain::lblEditCCodes_Click() {
    openWithDesktop(releaseFolder(lstList.itemText(lstList.index())) + "\\ccodes.txt",
                    platform::StartWindow::maximized);
}

void frmMain::openWithDesktop(const std::string& path, platform::StartWindow window) {
    try {
        machine_.programs.start({platform::Command::Kind::open, path, "", window});
    } catch (const platform::Failure& failure) {
        tell("\"" + platform::shownPath(path) + "\" could not be opened.\r\n\r\n" +
             failure.reason());
    }
}

void frmMain::mnuHAboutVXL_Click() {
    std::string text = "Vexillum v3.1 BETA\r\n\r\n";
    if (!platform::attempt(
            [&] { text += withLineEnds(disk().readFile(inDataTree("VXL-Misc\\AboutVXL.txt"))); }))
        text += "*****  About File Not Found!  *****\r\n";
    showText("About", "About Vexillum", text);
}

} // namespace engine
