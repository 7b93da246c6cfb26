// The listing is made while the window loads; the file holds what the box holds.
#include "windows/frmFList.h"

#include <algorithm>

#include "platform/failure.h"
#include "platform/text.h"
#include "windows/frmMain.h"

namespace windows {

frmFList::frmFList(frmMain& main)
    : Window("frmFList", "TA File Lister"), main_(main), toolkit_(main.machine().toolkit) {
    cmdDone.onClick = [this] { Form_Unload(); };
    cmdClipboard.onClick = [this] { cmdClipboard_Click(); };
    onClose = [this] { Form_Unload(); };
    defaultButton = &cmdDone;
}

frmFList::~frmFList() {
    toolkit_.unload(*this);
}

void frmFList::Form_Load() {
    toolkit_.load(*this);
    const auto file = main_.game().at("FileList.txt");
    // The file stands in its own list.
    main_.machine().disk.writeFile(file, "");
    txtFList.setText("");
    toolkit_.doEvents();
    doFileList(main_.game().TADir(), 0);
    if (!platform::attempt([&] { main_.machine().disk.writeFile(file, txtFList.text()); }))
        tellOfOverflow();
}

/// What could not be written whole is not to pass for whole.
void frmFList::tellOfOverflow() {
    constexpr std::size_t cut = 100;
    const auto& text = txtFList.text();
    txtFList.setText(text.substr(0, text.size() - std::min(cut, text.size())));
    txtFList.append("*****\r\nOut of onscreen space.  Check file for more.\r\n");
}

void frmFList::Form_Unload() {
    toolkit_.hide(*this);
}

void frmFList::cmdClipboard_Click() {
    toolkit_.setClipboard(txtFList.text());
}

std::string frmFList::xTimes(std::string_view theText, int numTimes) {
    std::string text;
    for (int i = 0; i < numTimes; ++i)
        text += theText;
    return text;
}

void frmFList::doFileList(const std::string& theDir, int theLevel) {
    outputLine(xTimes("| ", theLevel) + "+ " + theDir + "\\");
    releases::StringArray names;
    main_.game().fileArray(names, theDir);
    const auto margin = xTimes("| ", theLevel + 1) + "> " + theDir + "\\";
    for (const auto& file : names.entries())
        outputLine(margin + file);
    releases::StringArray folders;
    main_.game().folderArray(folders, theDir);
    for (const auto& folder : folders.entries())
        doFileList(theDir + "\\" + folder, theLevel + 1);
}

void frmFList::outputLine(const std::string& text) {
    txtFList.append(platform::replaceAll(text, main_.game().TADir(), ""));
    txtFList.append(platform::lineBreak);
}

} // namespace windows
