// The wizard that imports a release in the format of another tool, TAM. The TAM release stays where
// it is; what it becomes is there at the program's next start.
#pragma once

#include <string>

#include "formats/tam_release.h"
#include "windows/controls.h"
#include "windows/lists.h"
#include "windows/machine.h"
#include "windows/steps.h"

namespace windows {

class frmMain;

class frmTAM : public Window {
  public:
    explicit frmTAM(frmMain& main);
    ~frmTAM() override;
    frmTAM(const frmTAM&) = delete;
    frmTAM& operator=(const frmTAM&) = delete;

    void Form_Load();
    void GotoStep(int stepNum);

    /// What was entered in the steps that are done.
    Label lbl1Done{*this, "lbl1Done"};
    Label lbl2Done{*this, "lbl2Done"};
    Button cmdCancel{*this, "cmdCancel", "Cancel"};
    Frame fra1step{*this, "fra1step", "Step 1: Select Types"};
    Label lbl1TAMtype{*this, "lbl1TAMtype", "TAM Release Type:"};
    ComboBox cbo1TAMtype{
        *this,
        "cbo1TAMtype",
        {"TAM TC", "TAM AI", "TAM Mutator", "TAM Map", "TAM Unit", "TAM Unit Pack"}};
    Label lbl1VXLtype{*this, "lbl1VXLtype", "VXL Release Type:"};
    ComboBox cbo1VXLtype;
    Button cmd1Prev{*this, "cmd1Prev", "Cancel"};
    Button cmd1Next{*this, "cmd1Next", "Next"};
    Frame fra2step{*this, "fra2step", "Step 2: Locate TAM Data File"};
    TextBox txt2Loc{*this, "txt2Loc", TextBox::Kind::line, "(TAM Data File Location)"};
    Button cmd2Browse{*this, "cmd2Browse", "Browse..."};
    Button cmd2Prev{*this, "cmd2Prev", "Back"};
    Button cmd2Next{*this, "cmd2Next", "Next"};
    Frame fra3step{*this, "fra3step", "Step 3: Finsihed!"};
    Label lbl3info{*this, "lbl3info", "The Following Files Were Added To Your TA Directory:"};
    ListBox lst3files{*this, "lst3files"};
    Button cmd3prev{*this, "cmd3prev", "Back"};
    Button cmd3next{*this, "cmd3next", "Finish"};
    FilePicker cdgTAM{*this, "cdgTAM"};

  private:
    void cancel();
    void cmd1Next_Click();
    void cmd2Browse_Click();
    void cmd2Next_Click();
    // Each returns whether the release was converted to the end. The user has been told if not.
    bool addTAMTC() { return convert(formats::TamType::tc); }
    bool addTAMAI() { return convert(formats::TamType::ai); }
    bool addTAMMutator() { return convert(formats::TamType::mutator); }
    bool addTAMUfo() { return convert(formats::TamType::ufo); }
    bool addTAMUnitPack() { return convert(formats::TamType::unitPack); }
    bool convert(formats::TamType type);

    frmMain& main_;
    Toolkit& toolkit_;
    Steps steps_;
    std::string tamTypeName;
    std::string tamPattern;
    std::string shortType;
    bool isConverted_ = false;
};

} // namespace windows
