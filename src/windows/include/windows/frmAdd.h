// The wizard that adds a release in three steps: its name, its files, its extras. It installs
// nothing: the release is there at the program's next start.
#pragma once

#include <string>
#include <vector>

#include "windows/controls.h"
#include "windows/lists.h"
#include "windows/machine.h"
#include "windows/steps.h"

namespace windows {

class frmMain;

class frmAdd : public Window {
  public:
    /// `shortType` is that of the tab that it is opened from. With files at hand, by their paths,
    /// it begins with what they seem to be, and copies them in its second step.
    frmAdd(frmMain& main, std::string shortType, const std::vector<std::string>& files = {});
    ~frmAdd() override;
    frmAdd(const frmAdd&) = delete;
    frmAdd& operator=(const frmAdd&) = delete;

    /// Shows what belongs to the step and greys what belongs to earlier ones.
    void GotoStep(int stepNum);

    static constexpr auto line = TextBox::Kind::line;

    /// What was entered in the steps that are done.
    Label lbl1Done{*this, "lbl1Done"};
    Label lbl2Done{*this, "lbl2Done"};
    /// What is to be copied in the second step.
    Label lblFiles{*this, "lblFiles"};
    Button cmdCancel{*this, "cmdCancel", "Cancel"};
    Frame fraS1{*this, "fraS1", "Step 1: Enter Information"};
    Label lbl1Type{*this, "lbl1Type", "Type of 3rd Party Release:"};
    ComboBox cbo1Type;
    Label lbl1Name{*this, "lbl1Name", "Display Name:"};
    TextBox txt1Name{*this, "txt1Name", line};
    Label lbl1About{*this, "lbl1About", "About Text: (Optional)"};
    TextBox txt1About{*this, "txt1About", TextBox::Kind::lines};
    Button cmd1Prev{*this, "cmd1Prev", "Cancel"};
    Button cmd1Next{*this, "cmd1Next", "Next Step"};
    Frame fraS2{*this, "fraS2", "Step 2: Install Files"};
    Label lbl2Where{
        *this, "lbl2Where",
        "Install (unzip or use setup program) All Member Files To The Following Directory:"};
    TextBox txt2Where{*this, "txt2Where", TextBox::Kind::readOnlyLine};
    Label lbl2Copy{*this, "lbl2Copy", "(Copy Path to Clipboard)"};
    Button cmd2Files{*this, "cmd2Files", "Copy Files Here..."};
    Button cmd2Folder{*this, "cmd2Folder", "Copy A Folder Here..."};
    /// What has been copied in this step, by its names in the release's folder.
    ListBox lst2Files{*this, "lst2Files"};
    ProgressBar bar2Files{*this, "bar2Files"};
    Label lbl2Files{*this, "lbl2Files"};
    Button cmd2Prev{*this, "cmd2Prev", "Previous Step"};
    Button cmd2Next{*this, "cmd2Next", "Next Step"};
    Frame fraS3{*this, "fraS3", "Step 3: Extra Stuff (Both Optional)"};
    Label lbl3ReadMe{*this, "lbl3ReadMe", "Readme File (Plain Text Format Only):"};
    TextBox txt3ReadMe{*this, "txt3ReadMe", line};
    Button cmd3Browse{*this, "cmd3Browse", "Browse..."};
    Label lbl3CCodes{*this, "lbl3CCodes",
                     "Compatibility Codes (Power Users; Separate With Spaces):"};
    TextBox txt3CCodes{*this, "txt3CCodes", line};
    Button cmd3prev{*this, "cmd3prev", "Previous Step"};
    Button cmd3next{*this, "cmd3next", "Finish"};
    FilePicker cdc{*this, "cdc"};

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
    int notCopied_ = 0;
    std::string saveTexts();
    void saveCCodes();
    bool saveAboutText();
    std::string folderFor(const std::string& name) const;
    void copyMembers(const std::vector<std::string>& paths);
    void closeWindow();
    void cancel();
    void takeFiles(const std::vector<std::string>& files);
    void copyTakenFiles();

    frmMain& main_;
    Toolkit& toolkit_;
    platform::Disk& disk_;
    Steps steps_;
    /// That of the tab, which the combo does not change.
    std::string shortType_;
    /// Files that wait for the second step.
    std::vector<std::string> taken_;
    int copied_ = 0;
    bool isMade_ = false;
    /// The release's folder; the box shows it in the system's form.
    std::string releaseFolder_;
    /// What the codes box was given last, to tell what the user has typed from what was loaded.
    std::string loadedCodes_;
    /// What the user may wish while files are copied.
    Wish stopCopying_;
    Wish closeIt_;
};

} // namespace windows
