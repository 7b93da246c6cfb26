// The way in and out: start, close, restart.
#include "engine/frmMain.h"
#include "platform/failure.h"
#include "platform/text.h"

namespace engine {
namespace {

constexpr auto applicationTitle = "Vexillum v3.1 BETA";
constexpr auto fallbackDirectory = "P:\\Ostler\\virginTA";
constexpr auto scanSwitch = "--WIDCF";

} // namespace

void frmMain::Form_Load() {
    appTitle_ = applicationTitle;
    setText(applicationTitle);
    platform::attempt([this] { toolkit().show(*this); });
    toolkit().doEvents();
    platform::attempt([this] { Init(); });
    platform::attempt([this] { tspMain_Click(); });
    platform::attempt([this] { countReleases(); });
}

/// Lets every failure up to the reset pass: then nothing is reset, and the game directory stays as
/// it is.
void frmMain::Init() {
    for (auto* names :
         {&selRaces, &selMods, &selMaps, &selUnits, &tcCCodes, &relCCodes, &storeFolders})
        names->clear();
    TADir = machine_.programFolder;
    disk().setGameDirectory(TADir);
    if (!DoesFolderExist(TADir + "\\" + std::string(dataTree))) {
        TADir = fallbackDirectory;
        disk().setGameDirectory(TADir);
    }
    if (!DoesFolderExist(TADir + "\\" + std::string(dataTree))) {
        tell("The Vexillum Data Files seem to be missing.\r\n\r\nPlease reinstall VXL.");
        endProgram();
    }
    dontXPSwitch = DoesFileExist(inDataTree("DontXPSwitch.txt"));
    widcfRun = machine_.commandLine == scanSwitch;
    if (widcfRun) {
        mnuFCweapon_Click();
        startProgram("Vexillum.exe");
        endProgram();
    }
    folderArray(storeFolders, inDataTree(""));
    readSelections();
    showCountsAtStart();
    fillingList = false;
    const auto journal = readJournal(disk().readFile(inDataTree("VXL-Changes\\Internal.txt")));
    if (journal)
        resetGameDirectory(*journal);
}

void frmMain::showCountsAtStart() {
    const auto show = [](platform::TextBox& box, const StringArray& names, const char* wording) {
        box.setText(std::to_string(names.upperBound()) + wording);
    };
    show(txtSelRaces, selRaces, " 3rd Party Races Enabled");
    show(txtSelMods, selMods, " Modifications Enabled");
    show(txtSelMaps, selMaps, " 3rd Party Maps Enabled");
    show(txtSelUnits, selUnits, " 3rd Party Units Enabled");
}

void frmMain::Form_Unload() {
    moveFiles();
    saveSelsOrTell();
    endProgram();
}

void frmMain::RestartVXL(bool askUser) {
    if (askUser && !askYesNo("It is suggested that you close and then restart Vexillum now."
                             "\r\n\r\nWould you like to do so?"))
        return;
    revertSels(true);
    saveSelsOrTell();
    startProgram("Vexillum.exe");
    endProgram();
}

} // namespace engine
