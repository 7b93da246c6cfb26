// The wizard that imports a release in the format of another tool, TAM. The TAM release stays where
// it is; what it becomes is there at the program's next start.
#pragma once

#include <string>

#include "installers/tam_release.h"
#include "windows/controls.h"
#include "windows/machine.h"

namespace engine {
class frmMain;
}

namespace installers {

class frmTAM : public platform::Window {
  public:
    explicit frmTAM(engine::frmMain& main);
    ~frmTAM() override;
    frmTAM(const frmTAM&) = delete;
    frmTAM& operator=(const frmTAM&) = delete;

    void Form_Load();
    void GotoStep(int stepNum);

    platform::Frame fra1step{*this, "fra1step", "Step 1: Select Types"};
    platform::Label lbl1TAMtype{*this, "lbl1TAMtype", "TAM Release Type:"};
    platform::ComboBox cbo1TAMtype{
        *this,
        "cbo1TAMtype",
        {"TAM TC", "TAM AI", "TAM Mutator", "TAM Map", "TAM Unit", "TAM Unit Pack"}};
    platform::Label lbl1VXLtype{*this, "lbl1VXLtype", "VXL Release Type:"};
    platform::ComboBox cbo1VXLtype{
        *this, "cbo1VXLtype", {"VXL TC", "VXL AI", "VXL Race", "VXL Mod", "VXL Map", "VXL Unit"}};
    platform::Button cmd1Prev{*this, "cmd1Prev", "Cancel"};
    platform::Button cmd1Next{*this, "cmd1Next", "Next"};
    platform::Frame fra2step{*this, "fra2step", "Step 2: Locate TAM Data File"};
    platform::TextBox txt2Loc{*this, "txt2Loc", platform::TextBox::Kind::readOnlyLine,
                              "(TAM Data File Location)"};
    platform::Button cmd2Browse{*this, "cmd2Browse", "Browse..."};
    platform::Button cmd2Prev{*this, "cmd2Prev", "Back"};
    platform::Button cmd2Next{*this, "cmd2Next", "Next"};
    platform::Frame fra3step{*this, "fra3step", "Step 3: Finsihed!"};
    platform::Label lbl3info{*this, "lbl3info",
                             "The Following Files Were Added To Your TA Directory:"};
    platform::ListBox lst3files{*this, "lst3files"};
    platform::Button cmd3prev{*this, "cmd3prev", "Back"};
    platform::Button cmd3next{*this, "cmd3next", "Finish"};
    platform::FilePicker cdgTAM{*this, "cdgTAM"};

  private:
    void cmd1Next_Click();
    void cmd2Browse_Click();
    void cmd2Next_Click();
    // Each returns whether the release was converted to the end. The user has been told if not.
    bool addTAMTC() { return convert(TamType::tc); }
    bool addTAMAI() { return convert(TamType::ai); }
    bool addTAMMutator() { return convert(TamType::mutator); }
    bool addTAMUfo() { return convert(TamType::ufo); }
    bool addTAMUnitPack() { return convert(TamType::unitPack); }
    bool convert(TamType type);
    bool carryOut(const TamStep& step);
    bool makeReleaseFolder(const std::string& name);
    void copyMember(const TamStep& step);
    void listFile(const std::string& file, const std::string& note = {});

    engine::frmMain& main_;
    platform::Toolkit& toolkit_;
    platform::Disk& disk_;
    std::string tamTypeName;
    std::string tamPattern;
    std::string shortType;
    std::string dataFolder_;
    /// The release's folder below the game directory, with a backslash ahead.
    std::string releaseFolder_;
};

} // namespace installers
