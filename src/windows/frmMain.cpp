// The main window put together: which event runs which procedure, and the life of the program.
#include "windows/frmMain.h"

#include "platform/failure.h"

namespace windows {
namespace {

std::vector<std::string> tabCaptions() {
    std::vector<std::string> captions;
    for (const auto* type : releases::typesByTab())
        captions.emplace_back(type->tabCaption);
    return captions;
}

} // namespace

frmMain::frmMain(Machine machine)
    : Window("frmMain", "Vexillum"), tspMain(*this, "tspMain", tabCaptions()),
      machine_(std::move(machine)), showReadme_(machine_.toolkit),
      log_(machine_.toolkit, showReadme_, barWork), ask_(machine_.toolkit, log_),
      game_(machine_.disk, log_, ask_), store_(game_), sets_(game_) {
    makeSummaries();
    wire();
    cmdReadme.setEnabled(false);
    for (auto* control : std::initializer_list<Control*>{&lblUndo, &lblUndoLink, &barWork})
        control->setVisible(false);
    toolkit().load(*this);
}

frmMain::~frmMain() {
    toolkit().unload(*this);
}

void frmMain::makeSummaries() {
    for (const auto* type : releases::typesByTab())
        summaries_.push_back(std::unique_ptr<Summary>(new Summary{
            *type,
            {*this, std::string(type->controlName), std::string(type->label)},
            {*this, std::string(type->boxName), oneLine, std::string(type->firstSummary)}}));
    opened_.resize(summaries_.size());
}

void frmMain::wire() {
    onClose = [this] { Form_Unload(); };
    defaultButton = &cmdGo;
    tspMain.onClick = [this] { tspMain_Click(); };
    lstList.onClick = [this](const std::string& name) { lstList_Click(name); };
    lstList.onRead = [this](const std::string& name) { lstList_Read(name); };
    lstList.onMarkAll = [this](const auto& names, bool marked) { lstList_MarkAll(names, marked); };
    lstList.dateOf = [this](const std::string& name) {
        return store_.dateOf(currentType().type, name);
    };
    lstList.aboutOf = [this](const std::string& name) {
        return store_.textsOf(currentType().type, name).about.value_or("");
    };
    lblUndoLink.onClick = [this] { lblUndoLink_Click(); };
    tmrTally.onTick = [this] { tmrTally_Timer(); };
    wireContents();
    onDrop = [this](const auto& paths) { addRelease(paths); };
    tmrSleep.onTick = [this] { tmrSleep_Timer(); };
    cmdGo.onClick = [this] { cmdGo_Click(); };
    cmdRevert.onClick = [this] { cmdRevert_Click(); };
    lblRename.onClick = [this] { lblRename_Click(); };
    lblEditAbout.onClick = [this] { editText(releases::Store::Text::about); };
    lblEditCCodes.onClick = [this] { editText(releases::Store::Text::codes); };
    cmdReadme.onClick = [this] { cmdReadme_Click(); };
    cmdExplore.onClick = [this] { cmdExplore_Click(); };
    cmdAdd.onClick = [this] { cmdAdd_Click(); };
    cmdHelp.onClick = [this] { cmdHelp_Click(); };
    cmdRemove.onClick = [this] { cmdRemove_Click(); };
    cmdClean.onClick = [this] { cmdClean_Click(); };
    mnuFLaunch.onClick = [this] { cmdGo_Click(); };
    mnuFPreview.onClick = [this] { mnuFPreview_Click(); };
    mnuFRevert.onClick = [this] { cmdRevert_Click(); };
    mnuFComeBack.makeCheckable();
    mnuFComeBack.onClick = [this] { mnuFComeBack_Click(); };
    mnuFWrapper.onClick = [this] { mnuFWrapper_Click(); };
    mnuFWrapper.setVisible(platform::takesWrappers());
    mnuFDirectory.onClick = [this] { mnuFDirectory_Click(); };
    offerDirectories();
    mnuFExitVXL.onClick = [this] { Form_Unload(); };
    mnuFCweapon.onClick = [this] { mnuFCweapon_Click(); };
    mnuHVXLHelp.onClick = [this] { openHelp("Index"); };
    mnuHAboutVXL.onClick = [this] { mnuHAboutVXL_Click(); };
    mnuUconverter.onClick = [this] { mnuUconverter_Click(); };
    mnuUfilelister.onClick = [this] { mnuUfilelister_Click(); };
    mnuSSave.onClick = [this] { mnuSSave_Click(); };
    mnuSSwitch.onClick = [this] { mnuSSwitch_Click(); };
    mnuSImport.onClick = [this] { mnuSImport_Click(); };
    mnuSList.onClick = [this] { mnuSList_Click(); };
    mnuSCompare.onClick = [this] { mnuSCompare_Click(); };
    const auto turnsOver = [this](MenuItem& item, bool cycle::Selection::MenuModifier::*setting) {
        item.makeCheckable();
        item.onClick = [this, setting] {
            selection_.modifier.*setting = !(selection_.modifier.*setting);
            show(List::stays);
        };
    };
    using Settings = cycle::Selection::MenuModifier;
    turnsOver(mnuMMenable, &Settings::enabled);
    turnsOver(mnuMMcompress, &Settings::compress);
    turnsOver(mnuMMsmall, &Settings::small);
}

void frmMain::run() {
    try {
        Form_Load();
        for (;;) {
            try {
                toolkit().waitForUser();
            } catch (const platform::Failure& failure) {
                warn(failure.what());
            }
        }
    } catch (const platform::ProgramEnd&) {
        // The program has ended itself.
    }
}

} // namespace windows
