// The text window and its use as log.
#include "utilities/frmShowReadme.h"

#include "platform/text.h"

namespace utilities {

frmShowReadme::frmShowReadme(platform::Toolkit& toolkit)
    : Window("frmShowReadme", "Show Readme"), toolkit_(toolkit) {
    cmdDone.onClick = [this] { cmdDone_Click(); };
    onClose = [this] { Form_Unload(); };
    defaultButton = &cmdDone;
    cmdDone.wish = &closed;
    closeWish = &closed;
}

frmShowReadme::~frmShowReadme() {
    toolkit_.unload(*this);
}

void frmShowReadme::Form_Load() {
    toolkit_.load(*this);
}

void frmShowReadme::Form_Unload() {
    toolkit_.hide(*this);
}

void frmShowReadme::cmdDone_Click() {
    Form_Unload();
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

} // namespace utilities
