// The main window put together: which event runs which procedure, and the life of the program.
#include "engine/frmMain.h"

#include "platform/failure.h"

namespace engine {

frmMain::frmMain(platform::Machine machine)
    : Window("frmMain", "Vexillum"), machine_(std::move(machine)), showReadme_(machine_.toolkit) {
    wire();
    toolkit().load(*this);
}

frmMain::~frmMain() {
    toolkit().unload(*this);
}

void frmMain::wire() {
    onClose = [this] { Form_Unload(); };
    defaultButton = &cmdGo;
    tspMain.onClick = [this] { tspMain_Click(); };
    lstList.onClick = [this](const auto&) {
        lstList.setMarked(lstList.index(), !lstList.marked(lstList.index()));
        lstList_Click();
    };
    tmrSleep.onTick = [this] { tmrSleep_Timer(); };
    cmdGo.onClick = [this] { cmdGo_Click(); };
    cmdRevert.onClick = [this] { cmdRevert_Click(); };
    mnuFLaunch.onClick = [this] { cmdGo_Click(); };
    mnuFRevert.onClick = [this] { cmdRevert_Click(); };
    mnuFExitVXL.onClick = [this] { Form_Unload(); };
    mnuFCweapon.onClick = [this] { mnuFCweapon_Click(); };
    mnuMMenable.onClick = [this] { mnuMMenable_Click(); };
    mnuMMcompress.onClick = [this] { mnuMMcompress_Click(); };
    mnuMMsmall.onClick = [this] { mnuMMsmall_Click(); };
    cmdReadme.setEnabled(false);
    lblRename.onClick = [this] { lblRename_Click(); };
    lblEditAbout.onClick = [this] { lblEditAbout_Click(); };
    lblEditCCodes.onClick = [this] { lblEditCCodes_Click(); };
    cmdReadme.onClick = [this] { cmdReadme_Click(); };
    cmdExplore.onClick = [this] { cmdExplore_Click(); };
    cmdAdd.onClick = [this] { cmdAdd_Click(); };
    cmdHelp.onClick = [this] { cmdHelp_Click(); };
    cmdRemove.onClick = [this] { cmdRemove_Click(); };
    cmdClean.onClick = [this] { cmdClean_Click(); };
    mnuHVXLHelp.onClick = [this] { cmdHelp_Click(); };
    mnuHAboutVXL.onClick = [this] { mnuHAboutVXL_Click(); };
    mnuUconverter.onClick = [this] { mnuUconverter_Click(); };
    mnuUfilelister.onClick = [this] { mnuUfilelister_Click(); };
    for (auto* item : {&mnuMMenable, &mnuMMcompress, &mnuMMsmall})
        item->makeCheckable();
}

void frmMain::run() {
    try {
        Form_Load();
        for (;;) {
            try {
                toolkit().waitForUser();
            } catch (const platform::Failure& failure) {
                tell(failure.what());
            }
        }
    } catch (const platform::ProgramEnd&) {
        // The program has ended itself.
    }
}

std::string frmMain::inDataTree(std::string_view relativePath) const {
    return TADir + "\\" + std::string(dataTree) + "\\" + std::string(relativePath);
}

} // namespace engine
