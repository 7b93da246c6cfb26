// The sets that were saved: what is in each, and what can be done with one.
#pragma once

#include <optional>
#include <string>

#include "cycle/sets.h"
#include "windows/controls.h"
#include "windows/lists.h"
#include "windows/toolkit.h"

namespace windows {

class frmMain;

/// What file dialogs offer for sets, and for lists of releases.
inline constexpr auto setFileFilter = "Plain Text (*.txt)|*.txt|All Files (*.*)|*.*";

class frmSets : public Window {
  public:
    /// Begins with the set of that name, or else with the first one.
    frmSets(frmMain& main, std::string current);
    ~frmSets() override;
    frmSets(const frmSets&) = delete;
    frmSets& operator=(const frmSets&) = delete;

    Label lblSets{*this, "lblSets", "Sets:"};
    /// The set at hand is the one that is marked.
    MarkList lstSets{*this, "lstSets"};
    Label lblSet{*this, "lblSet", "What Is In This Set:"};
    TextBox txtSet{*this, "txtSet", TextBox::Kind::readOnlyLines};
    Button cmdRename{*this, "cmdRename", "Rename..."};
    Button cmdDelete{*this, "cmdDelete", "Delete..."};
    Button cmdExport{*this, "cmdExport", "Export..."};
    Button cmdList{*this, "cmdList", "List For A Friend..."};
    Button cmdSwitch{*this, "cmdSwitch", "Switch To This Set"};
    Button cmdClose{*this, "cmdClose", "Close"};

    /// The set that the user wants, once the window is closed; nothing where he only closed it.
    const std::optional<std::string>& wanted() const { return wanted_; }
    /// The name that the set has now which the window began with; empty where it is deleted.
    const std::string& current() const { return current_; }

  private:
    void fill();
    void choose(const std::string& name);
    std::string contents() const;
    void cmdRename_Click();
    void cmdDelete_Click();
    void cmdExport_Click();
    void cmdList_Click();
    void cmdSwitch_Click();
    void closeWindow();

    frmMain& main_;
    Toolkit& toolkit_;
    std::string current_;
    std::optional<std::string> chosen_;
    std::optional<std::string> wanted_;
    /// The set at hand, or why it cannot be read.
    cycle::Set set_;
    std::string failure_;
};

} // namespace windows
