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
    barDone.setVisible(false);
    setReportVisible(false);
}

void frmShowReadme::setReportVisible(bool visible) {
    for (auto* control :
         std::initializer_list<Control*>{&lblConflicts, &chkConflicts, &cmdCopy, &cmdSave})
        control->setVisible(visible);
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

void frmShowReadme::showReport(const std::string& caption, const std::string& heading,
                               const Report& report, platform::Questions& questions) {
    lblConflicts.setText(report.summary);
    chkConflicts.setChecked(false);
    chkConflicts.onClick = [&] {
        txtReadme.setText(chkConflicts.checked() ? report.conflicts : report.text);
    };
    cmdCopy.onClick = [this] { toolkit_.setClipboard(txtReadme.text()); };
    cmdSave.onClick = [&] {
        const auto failure = toolkit_.saveText(
            {"Save " + caption, "Plain Text (*.txt)|*.txt|All Files (*.*)|*.*", {}},
            caption + ".txt", report.summary + "\r\n\r\n" + txtReadme.text());
        if (!failure.empty())
            questions.warn("The report could not be saved.\r\n\r\n" + failure);
    };
    setReportVisible(true);
    chkConflicts.setVisible(!report.conflicts.empty());
    showText(caption, heading, report.text);
    setReportVisible(false);
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
