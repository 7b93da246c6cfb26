// The wizard that adds a release in three steps: its name, its files, its extras. It installs
// nothing: the release is there at the program's next start.
#pragma once

#include <string>
#include <vector>

#include "windows/controls.h"
#include "windows/machine.h"

namespace engine {
class frmMain;
}

namespace installers {

class frmAdd : public platform::Window {
  public:
    explicit frmAdd(engine::frmMain& main);
    ~frmAdd() override;
    frmAdd(const frmAdd&) = delete;
    frmAdd& operator=(const frmAdd&) = delete;

    /// Shows what belongs to the step and greys what belongs to earlier ones.
    void GotoStep(int stepNum);

    /// Short type of the tab that the wizard was opened from. The combo does not change it.
    std::string tag;

    static constexpr auto line = platform::TextBox::Kind::line;

    platform::Frame fraS1{*this, "fraS1", "Step 1: Enter Information"};
    platform::Label lbl1Type{*this, "lbl1Type", "Type of 3rd Party Release:"};
    platform::ComboBox cbo1Type{*this, "cbo1Type", {"TC", "Race", "AI", "Mod", "Map", "Unit"}};
    platform::Label lbl1Name{*this, "lbl1Name", "Display Name:"};
    platform::TextBox txt1Name{*this, "txt1Name", line};
    platform::Label lbl1About{*this, "lbl1About", "About Text: (Optional)"};
    platform::TextBox txt1About{*this, "txt1About", platform::TextBox::Kind::lines};
    platform::Button cmd1Prev{*this, "cmd1Prev", "Cancel"};
    platform::Button cmd1Next{*this, "cmd1Next", "Next Step"};
    platform::Frame fraS2{*this, "fraS2", "Step 2: Install Files"};
    platform::Label lbl2Where{
        *this, "lbl2Where",
        "Install (unzip or use setup program) All Member Files To The Following Directory:"};
    platform::TextBox txt2Where{*this, "txt2Where", platform::TextBox::Kind::readOnlyLine};
    platform::Label lbl2Copy{*this, "lbl2Copy", "(Copy Path to Clipboard)"};
    platform::Button cmd2Files{*this, "cmd2Files", "Copy Files Here..."};
    platform::Button cmd2Folder{*this, "cmd2Folder", "Copy A Folder Here..."};
    platform::ProgressBar bar2Files{*this, "bar2Files"};
    platform::Label lbl2Files{*this, "lbl2Files"};
    platform::Button cmd2Prev{*this, "cmd2Prev", "Previous Step"};
    platform::Button cmd2Next{*this, "cmd2Next", "Next Step"};
    platform::Frame fraS3{*this, "fraS3", "Step 3: Extra Stuff (Both Optional)"};
    platform::Label lbl3ReadMe{*this, "lbl3ReadMe", "Readme File (Plain Text Format Only):"};
    platform::TextBox txt3ReadMe{*this, "txt3ReadMe", line};
    platform::Button cmd3Browse{*this, "cmd3Browse", "Browse..."};
    platform::Label lbl3CCodes{*this, "lbl3CCodes",
                               "Compatibility Codes (Power Users; Separate With Spaces):"};
    platform::TextBox txt3CCodes{*this, "txt3CCodes", line};
    platform::Button cmd3prev{*this, "cmd3prev", "Previous Step"};
    platform::Button cmd3next{*this, "cmd3next", "Finish"};
    platform::FilePicker cdc{*this, "cdc"};

  private:
    void txt1Name_LostFocus();
    void cmd1Next_Click();
    void lbl2Copy_Click();
    void cmd2Files_Click();
    void cmd2Folder_Click();
    void cmd2Prev_Click();
    void cmd2Next_Click();
    void cmd3Browse_Click();
    void cmd3next_Click();
    void loadCCodes();
    void saveCCodes();
    bool saveAboutText();
    std::string folderFor(const std::string& name) const;
    void copyMembers(const std::vector<std::string>& paths);
    void closeWindow();

    engine::frmMain& main_;
    platform::Toolkit& toolkit_;
    platform::Disk& disk_;
    /// The release's folder; the box shows it in the system's form.
    std::string releaseFolder_;
    /// What the codes box was given last, to tell what the user has typed from what was loaded.
    std::string loadedCodes_;
};

} // namespace installers
