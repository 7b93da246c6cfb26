// The one text window: readmes, reports and, beside running work, the log.
#pragma once

#include <string>

#include "platform/questions.h"
#include "windows/controls.h"
#include "windows/toolkit.h"

namespace windows {

class frmShowReadme : public Window {
  public:
    explicit frmShowReadme(Toolkit& toolkit);
    ~frmShowReadme() override;
    frmShowReadme(const frmShowReadme&) = delete;
    frmShowReadme& operator=(const frmShowReadme&) = delete;

    Label lblWhat{*this, "lblWhat"};
    TextBox txtReadme{*this, "txtReadme", TextBox::Kind::readOnlyLines};
    Button cmdDone{*this, "cmdDone", "Close"};
    /// Of the log alone.
    ProgressBar barDone{*this, "barDone"};
    // Of reports alone.
    Label lblConflicts{*this, "lblConflicts"};
    CheckBox chkConflicts{*this, "chkConflicts", "Only Conflicts"};
    Button cmdCopy{*this, "cmdCopy", "Copy To Clipboard"};
    Button cmdSave{*this, "cmdSave", "Save As..."};

    /// Noted where the user closes the window beside running work.
    Wish closing;

    void Form_Load();
    void Form_Unload();
    void cmdDone_Click();

    /// Shows a text and waits until the user has closed it.
    void showText(const std::string& caption, const std::string& heading, const std::string& text);

    /// The same for a report: a line that says what it comes to, and which of its lines matter.
    struct Report {
        std::string text;
        std::string summary;
        std::string conflicts; ///< the lines of the text that are conflicts; empty for all of them
    };
    void showReport(const std::string& caption, const std::string& heading, const Report& report,
                    platform::Questions& questions);

    /// The window as log of running work. Every line is scrolled to.
    void setLogText(const std::string& text);
    void appendLogLine(const std::string& line);

  private:
    void setReportVisible(bool visible);

    Toolkit& toolkit_;
};

} // namespace windows
