// The main window, which owns all state of the program. Its procedures are spread over the rooms by
// what they are about: start, apply and launch in engine/, tabs, lists and panes in catalogue/.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "engine/journal.h"
#include "engine/message_row.h"
#include "engine/modArray.h"
#include "engine/plan.h"
#include "engine/releases.h"
#include "windows/controls.h"
#include "windows/machine.h"
#include "utilities/frmShowReadme.h"
#include "utilities/frmWorking.h"

namespace engine {

class frmMain : public platform::Window {
  public:
    explicit frmMain(platform::Machine machine);
    ~frmMain() override;
    frmMain(const frmMain&) = delete;
    frmMain& operator=(const frmMain&) = delete;

    /// The game directory, in the system's form, without a separator at its end.
    std::string TADir;

    /// Runs the program from its first window to its end.
    void run();

    // What other windows and modules call.
    void Init();
    void totallyKillFolder(const std::string& folderToKill, bool showDelInShowReadme);
    std::string getShortSelType() const;
    void doTClist();
    void doAIlist();
    void doRacelist();
    void doModlist();
    void doMaplist();
    void doUnitlist();
    void showInfo(const std::string& forFolder);
    bool folderArray(StringArray& theArray, const std::string& thePath);
    bool fileArray(StringArray& theArray, const std::string& thePath);
    static int fIs(std::string_view inString, std::string_view findString, int startPos,
                   bool goL2R);
    void saveSels();
    void killSels();
    void moveFiles();
    void RestartVXL(bool askUser);
    bool DoesFileExist(const std::string& fileToCheck);
    bool DoesFolderExist(const std::string& folderToCheck);
    void MoveFile(const std::string& FromFile, const std::string& ToFile, bool useConfirm);
    void CopyFile(const std::string& FromFile, const std::string& ToFile, bool useConfirm);
    void DeleteFile(const std::string& delFile, bool useShow, bool doCheck);

    /// Shows a message with an OK button.
    void tell(const std::string& text);
    /// Shows a box of a row of like ones. Returns the button.
    std::size_t askInRow(MessageRow& row, const std::string& text,
                         std::vector<std::string> buttons);
    /// Adds a line to the log that stands beside the running work.
    void appendToLog(const std::string& line) { showReadme_.appendLogLine(line); }
    const platform::Machine& machine() const { return machine_; }

    /// A position that means "from the end of the text at which the search begins" to fIs.
    static constexpr int noStart = -1234;

    static constexpr auto oneLine = platform::TextBox::Kind::readOnlyLine;
    static constexpr auto manyLines = platform::TextBox::Kind::readOnlyLines;
    static constexpr auto disabled = platform::MenuItem::Start::disabled;

    platform::TabStrip tspMain{
        *this, "tspMain", {"Total Conversions", "AIs", "Races", "Mods", "Maps", "Units"}};
    platform::Label lblList{*this, "lblList", "Avaliable Total Conversions:"};
    platform::MarkList lstList{*this, "lstList"};
    platform::Label lblRename{*this, "lblRename", "(Rename Selected XXX)"};
    platform::Label lblAbout{*this, "lblAbout", "Information:"};
    platform::Label lblEditAbout{*this, "lblEditAbout", "(Edit About Text)"};
    platform::TextBox txtAbout{*this, "txtAbout", manyLines};
    platform::Button cmdReadme{*this, "cmdReadme", "Author Readme"};
    platform::Button cmdExplore{*this, "cmdExplore", "View This TC's Files"};
    platform::Label lblCCodes{*this, "lblCCodes", "Compatibility Codes:"};
    platform::Label lblEditCCodes{*this, "lblEditCCodes", "(Edit CCodes)"};
    platform::TextBox txtCCodes{*this, "txtCCodes", oneLine};
    platform::Button cmdAdd{*this, "cmdAdd", "Add New TC"};
    platform::Button cmdHelp{*this, "cmdHelp", "Help with TCs"};
    platform::Button cmdRemove{*this, "cmdRemove", "Remove This TC"};
    platform::Frame fraCurrSetup{*this, "fraCurrSetup", "Current Setup:"};
    platform::Label lblSelTC{*this, "lblSelTC", "TC:"};
    platform::TextBox txtSelTC{*this, "txtSelTC", oneLine, "Cavedog TA"};
    platform::Label lblSelAI{*this, "lblSelAI", "AI:"};
    platform::TextBox txtSelAI{*this, "txtSelAI", oneLine, "Cavedog AI"};
    platform::Button cmdRevert{*this, "cmdRevert", "Revert to Cavedog Settings"};
    platform::Button cmdClean{*this, "cmdClean", "Clean TA Directory"};
    platform::Label lblSelRace{*this, "lblSelRace", "Races:"};
    platform::TextBox txtSelRaces{*this, "txtSelRaces", oneLine, "0 3rd Party Races Enabled"};
    platform::Label lblSelMods{*this, "lblSelMods", "Mods:"};
    platform::TextBox txtSelMods{*this, "txtSelMods", oneLine, "0 Mods Enabled"};
    platform::Label lblSelMaps{*this, "lblSelMaps", "Maps:"};
    platform::TextBox txtSelMaps{*this, "txtSelMaps", oneLine, "0 Maps Enabled"};
    platform::Label lblSelUnits{*this, "lblSelUnits", "Units:"};
    platform::TextBox txtSelUnits{*this, "txtSelUnits", oneLine, "0 Units Enabled"};
    platform::Button cmdGo{*this, "cmdGo", "Launch"};
    platform::Timer tmrSleep{*this, "tmrSleep", 0};

    platform::Menu mnuMain{*this, "mnuMain", "&Main"};
    platform::MenuItem mnuFLaunch{*this, mnuMain, "mnuFLaunch", "&Launch TA", "Ctrl+G"};
    platform::MenuItem mnuFRevert{*this, mnuMain, "mnuFRevert", "&Revert", "Ctrl+R"};
    platform::MenuItem mnuFExitVXL{*this, mnuMain, "mnuFExitVXL", "&Exit VXL", "Ctrl+Q"};
    platform::Menu mnuUtilities{*this, "mnuUtilities", "&Utilities"};
    platform::MenuItem mnuUfilelister{*this, mnuUtilities, "mnuUfilelister", "&File Lister",
                                      "Ctrl+F"};
    platform::MenuItem mnuUconverter{*this, mnuUtilities, "mnuUconverter", "&Add TAM Release",
                                     "Ctrl+N"};
    platform::Menu mnuMenuModifier{*this, "mnuMenuModifier", "&Menu Modifier"};
    platform::MenuItem mnuMMenable{*this, mnuMenuModifier, "mnuMMenable", "&Use Trellis", "Ctrl+M"};
    platform::MenuItem mnuMMsettings{
        *this, mnuMenuModifier, "mnuMMsettings", " (Requires 1024x768 Res. Minimum)", "", disabled};
    platform::MenuItem mnuMMsmall{
        *this, mnuMenuModifier, "mnuMMsmall", "&Small Version (800x600 Res. Min.)", "", disabled};
    platform::MenuItem mnuMMcompress{*this, mnuMenuModifier, "mnuMMcompress", "&Compress Menus",
                                     "",    disabled};
    platform::Menu mnuSettings{*this, "mnuSettings", "&Conflict Finder"};
    platform::MenuItem mnuFCweapon{*this, mnuSettings, "mnuFCweapon", "&Weapon ID Conflicts...",
                                   "Ctrl+W"};
    platform::MenuItem mnuFCunit{*this,    mnuSettings, "mnuFCunit", "&Unit ID Conflicts...",
                                 "Ctrl+U", disabled};
    platform::MenuItem mnuFCbuild{*this,    mnuSettings, "mnuFCbuild", "&Build Menu Conflicts...",
                                  "Ctrl+B", disabled};
    platform::Menu mnuHelp{*this, "mnuHelp", "&Help"};
    platform::MenuItem mnuHVXLHelp{*this, mnuHelp, "mnuHVXLHelp", "&Help", "F1"};
    platform::MenuItem mnuHAboutVXL{*this, mnuHelp, "mnuHAboutVXL", "&About", "Ctrl+A"};

  private:
    // engine/startup.cpp
    void Form_Load();
    void Form_Unload();
    void readSelections();
    void showCountsAtStart();

    // engine/reset.cpp
    void resetGameDirectory(const Journal& journal);
    void undoMoves(const Journal& journal);
    bool isGamesOwn(const Journal::Move& move, const DisplacedFiles& displaced);
    void tmrSleep_Timer();
    void showLogForASecond();

    // engine/apply.cpp
    Plan makePlan();
    void carryOut(const Plan& plan);
    void openLog(const std::string& title, const std::string& heading);

    // engine/launch.cpp
    void cmdGo_Click();
    void cmdRevert_Click();
    void startProgram(const std::string& name, const std::string& arguments = {});
    void saveSelsOrTell();
    [[noreturn]] static void endProgram();

    // engine/primitives.cpp
    bool fileOrFolderExists(const std::string& theFile, std::string theFolder);
    void tellOfFailedMove(const std::string& from, const std::string& to);
    void showWorking();
    void hideWorking();

    // engine/questions.cpp
    bool askYesNo(const std::string& text);

    // catalogue/tabs.cpp
    void tspMain_Click();
    void lstList_Click();
    void pickListItem(int itemIndex);
    void chooseTC(const std::string& name);
    void chooseAI(const std::string& name);
    void toggleMany(const std::string& name);
    void revertSels(bool refreshList);
    std::string getLongSelType() const;
    const ReleaseTypeNames& currentType() const;
    void markOnly(int index);
    void pickOnce();
    static void takeOut(StringArray& names, const std::string& name);

    // catalogue/badges.cpp
    void countReleases();
    void showBadges();
    int releasesOf(ReleaseType type);
    int marksOf(ReleaseType type);

    // catalogue/lists.cpp
    void fillList();
    void listSingle(ReleaseType type, const std::string& selected);
    void listMany(ReleaseType type);
    std::vector<std::string> looseFiles(ReleaseType type);
    void restoreMarks(ReleaseType type);
    StringArray& selectionOf(ReleaseType type);
    platform::TextBox& summaryOf(ReleaseType type);
    void showSummary(ReleaseType type);

    // catalogue/info.cpp
    void showReadmeButton(bool hasReadme, const std::string& folder);
    std::string companionOf(const std::string& forFolder);
    void showTextOf(const std::string& path);
    bool readCodes(const std::string& path, StringArray& codes);
    bool isCompatible() const;
    void offerToDisable();

    // catalogue/rename_remove.cpp
    void lblRename_Click();
    void cmdRemove_Click();
    std::string renameRelease(const std::string& oldName, const std::string& newName);
    void removeRelease(const std::string& name);
    std::string releaseFolder(const std::string& displayName) const;

    // catalogue/commands.cpp
    void cmdReadme_Click();
    void cmdExplore_Click();
    void cmdHelp_Click();
    void lblEditAbout_Click();
    void lblEditCCodes_Click();
    void mnuHAboutVXL_Click();
    void showText(const std::string& caption, const std::string& heading, const std::string& text);
    void openWithDesktop(const std::string& path, platform::StartWindow window);

    // installers/
    void cmdAdd_Click();
    void mnuUconverter_Click();

    // utilities/
    void cmdClean_Click();
    void cleanGameDirectory();
    void mnuUfilelister_Click();

    // catalogue/menu_modifier.cpp
    void mnuMMenable_Click();
    void mnuMMcompress_Click();
    void mnuMMsmall_Click();

    // menumod/apply_step.cpp
    std::string runMenuModifier();

    // conflict/weapon_menu.cpp
    void mnuFCweapon_Click();
    void showWeaponReport();

    void wire();
    std::string inDataTree(std::string_view relativePath) const;

    platform::Disk& disk() { return machine_.disk; }
    platform::Toolkit& toolkit() { return machine_.toolkit; }

    platform::Machine machine_;
    std::string appTitle_;

    bool widcfRun = false;
    bool dontXPSwitch = false;
    int curListIndex = -1;
    std::string selTC;
    std::string selAI;
    StringArray selRaces;
    StringArray selMods;
    StringArray selMaps;
    StringArray selUnits;
    StringArray tcCCodes;
    StringArray relCCodes;
    StringArray storeFolders;
    bool fillingList = false;
    /// The AI just picked was turned down: the default one is to be picked in its place.
    bool fallsBackToDefaultAI = false;
    /// How many releases each tab lists, in the order of the tabs.
    std::vector<int> releaseCounts_ = std::vector<int>(tspMain.captions().size());

    utilities::frmShowReadme showReadme_;
    std::unique_ptr<utilities::frmWorking> working_;
    /// The messages of MoveFile in one run of moves.
    MessageRow moveFailures_;
    /// Questions answered alike while no log stood; the next log begins with them.
    std::vector<std::string> answeredAlike_;
};

} // namespace engine
