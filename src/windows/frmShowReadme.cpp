// The text window and its use as log.
#include "windows/frmShowReadme.h"

#include "platform/text.h"

namespace windows {

frmShowReadme::frmShowReadme(Toolkit& toolkit)
    : Window("frmShowReadme", "Show Readme"), toolkit_(toolkit) {
    cmdDone.onClick = [this] { cmdDone_Click(); };
    cmdDone.wish = &closing;
    onClose = [this] { Form_Unload(); };
    closeWish = &closing;
    defaultButton = &cmdDone;
}

frmShowReadme::~frmShowReadme() {
    toolkit_.unload(*this);
}

void frmShowReadme::Form_Load() {
    closing.noted = false;
    toolkit_.load(*this);
}

void frmShowReadme::Form_Unload() {
    toolkit_.hide(*this);
}

void frmShowReadme::cmdDone_Click() {
    Form_Unload();
}

void frmShowReadme::showText(const std::string& caption, const std::string& heading,
                             const std::string& text) {
    Form_Load();
    setText(caption);
    lblWhat.setText(heading);
    txtReadme.setText(text);
    toolkit_.showModal(*this);
    toolkit_.unload(*this);
}

void frmShowReadme::setLogText(const std::string& text) {
    txtReadme.setText(text);
    toolkit_.logged(text);
}

void frmShowReadme::appendLogLine(const std::string& line) {
    txtReadme.append(platform::lineBreak);
    txtReadme.append(line);
    txtReadme.scrollToEnd();
    toolkit_.logged(line);
}

} // namespace windows
