// The game directories: those that are known and those that were found, and the one to work in.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "installation/installation.h"
#include "windows/controls.h"
#include "windows/lists.h"
#include "windows/toolkit.h"

namespace windows {

/// It stands before the main window where none is known, and over it else.
class frmDirectories : public Window {
  public:
    /// `current` is the directory that the program works in, or empty.
    frmDirectories(Toolkit& toolkit, installation::Installation& installation, std::string current);
    ~frmDirectories() override;
    frmDirectories(const frmDirectories&) = delete;
    frmDirectories& operator=(const frmDirectories&) = delete;

    Label lblDirectories{*this, "lblDirectories", "Game Directories:"};
    /// The directory at hand is the one that is marked.
    MarkList lstDirectories{*this, "lstDirectories"};
    TextBox txtDirectory{*this, "txtDirectory", TextBox::Kind::readOnlyLines};
    Button cmdAdd{*this, "cmdAdd", "Add..."};
    Button cmdForget{*this, "cmdForget", "Forget"};
    Button cmdSwitch{*this, "cmdSwitch", "Switch"};
    Button cmdClose{*this, "cmdClose", "Close"};

    /// The directory that the user wants, once the window is closed. It has a data tree.
    const std::optional<std::string>& wanted() const { return wanted_; }

  private:
    void gather();
    void fill();
    void choose(const std::string& directory);
    bool isKnown(const std::string& directory) const;
    std::string about(const std::string& directory) const;
    void change(const std::function<void()>& step);
    void cmdAdd_Click();
    void cmdForget_Click();
    void cmdSwitch_Click();
    void closeWindow();

    Toolkit& toolkit_;
    installation::Installation& installation_;
    std::string current_;
    std::vector<std::string> found_;
    std::vector<std::string> known_;
    std::optional<std::string> chosen_;
    std::optional<std::string> wanted_;
};

} // namespace windows
