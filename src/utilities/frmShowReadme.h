// The one text window: readmes, reports and, beside running work, the log.
#pragma once

#include <string>

#include "windows/controls.h"
#include "windows/toolkit.h"

namespace utilities {

class frmShowReadme : public platform::Window {
  public:
    explicit frmShowReadme(platform::Toolkit& toolkit);
    ~frmShowReadme() override;
    frmShowReadme(const frmShowReadme&) = delete;
    frmShowReadme& operator=(const frmShowReadme&) = delete;

    platform::Label lblWhat{*this, "lblWhat"};
    platform::TextBox txtReadme{*this, "txtReadme", platform::TextBox::Kind::readOnlyLines};
    platform::Button cmdDone{*this, "cmdDone", "Close"};

    /// Set when the user closes the window while it is the log of running work.
    platform::Wish closed;

    void Form_Load();
    void Form_Unload();
    void cmdDone_Click();

    /// The window as log of running work. Every line is scrolled to.
    void setLogText(const std::string& text);
    void appendLogLine(const std::string& line);

  private:
    platform::Toolkit& toolkit_;
};

} // namespace utilities
