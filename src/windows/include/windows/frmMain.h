// The main window: its controls, its event procedures, and one place that shows what the selection
// and the release at hand make of them. What is chosen, stored, planned and moved is the work of
// the rooms below.
#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "cycle/decisions.h"
#include "cycle/last_launch.h"
#include "cycle/plan.h"
#include "cycle/selection.h"
#include "cycle/sets.h"
#include "cycle/unfinished.h"
#include "platform/failure.h"
#include "releases/contents_worker.h"
#include "releases/game_directory.h"
#include "releases/release_types.h"
#include "releases/store.h"
#include "windows/ask_user.h"
#include "windows/controls.h"
#include "windows/frmShowReadme.h"
#include "windows/frmWorking.h"
#include "windows/lists.h"
#include "windows/log_window.h"
#include "windows/machine.h"

namespace windows {

class frmMain : public Window {
  public:
    explicit frmMain(Machine machine);
    ~frmMain() override;
    frmMain(const frmMain&) = delete;
    frmMain& operator=(const frmMain&) = delete;

    /// Runs the program from its first window to its end.
    void run();

    // The stretches of a run, one by one. They let ProgramEnd pass.
    void Init();
    /// False where nothing was moved because the changes could not be noted first.
    bool moveFiles();
    void saveSels();
    void RestartVXL(bool askUser);

    // What the other windows use.
    std::string getShortSelType() const;
    void showWorking();
    void hideWorking();
    bool isWorkingShown() const { return working_ != nullptr; }
    releases::GameDirectory& game() { return game_; }
    const Machine& machine() const { return machine_; }
    const releases::Store& store() const { return store_; }
    const cycle::Sets& sets() const { return sets_; }
    /// Asks until a set can have the name; nothing where the user cancels.
    std::optional<std::string> askForSetName(const std::string& text, const std::string& title,
                                             const std::string& preset);
    /// Saves the list for a friend where the user wishes it.
    void saveListOf(const cycle::Selection& selection, const std::string& name);

    static constexpr auto oneLine = TextBox::Kind::readOnlyLine;
    static constexpr auto manyLines = TextBox::Kind::readOnlyLines;
    static constexpr auto disabled = MenuItem::Start::disabled;

    TabStrip tspMain;
    Label lblList{*this, "lblList", "Avaliable Total Conversions:"};
    MarkList lstList{*this, "lstList"};
    Label lblRename{*this, "lblRename", "(Rename Selected XXX)"};
    Label lblAbout{*this, "lblAbout", "Information:"};
    Label lblEditAbout{*this, "lblEditAbout", "(Edit About Text)"};
    /// What the release at hand brings: a picture with what is known of a map or unit, a way to the
    /// next one, the units as a table. Not seen where there is nothing to be shown.
    Frame fraContents{*this, "fraContents"};
    PictureBox picContents{*this, "picContents"};
    Label lblPiece{*this, "lblPiece"}; ///< its name
    Label lblFacts{*this, "lblFacts"};
    Button cmdPrevious{*this, "cmdPrevious", "Previous"};
    Label lblWhich{*this, "lblWhich"};
    Button cmdNext{*this, "cmdNext", "Next"};
    TreeList treUnits{*this, "treUnits", {"Unit", "Description", "Side", "Energy", "Metal"}};
    Label lblFaults{*this, "lblFaults"};
    TextBox txtAbout{*this, "txtAbout", manyLines};
    Button cmdReadme{*this, "cmdReadme", "Author Readme"};
    Button cmdExplore{*this, "cmdExplore", "View This TC's Files"};
    Label lblCCodes{*this, "lblCCodes", "Compatibility Codes:"};
    Label lblEditCCodes{*this, "lblEditCCodes", "(Edit CCodes)"};
    TextBox txtCCodes{*this, "txtCCodes", oneLine};
    Button cmdAdd{*this, "cmdAdd", "Add New TC"};
    Button cmdHelp{*this, "cmdHelp", "Help with TCs"};
    Button cmdRemove{*this, "cmdRemove", "Remove This TC"};
    Frame fraCurrSetup{*this, "fraCurrSetup", "Current Setup:"};
    Button cmdRevert{*this, "cmdRevert", "Revert to Cavedog Settings"};
    Button cmdClean{*this, "cmdClean", "Clean TA Directory"};
    Button cmdGo{*this, "cmdGo", "Launch"};
    Label lblGo{*this, "lblGo", ""};
    Timer tmrSleep{*this, "tmrSleep", 0};
    /// How many ticks were cleared that can be put back, and the link that does it.
    Label lblUndo{*this, "lblUndo"};
    Label lblUndoLink{*this, "lblUndoLink", "Undo"};
    /// Files, size and date of the release at hand.
    Label lblTally{*this, "lblTally"};
    Timer tmrTally{*this, "tmrTally", 0};
    /// How much of what it brings.
    Label lblContents{*this, "lblContents"};
    Timer tmrContents{*this, "tmrContents", 15};
    /// The progress of the work whose log is closed.
    ProgressBar barWork{*this, "barWork"};

    /// What is chosen of a type, in words: a label and the box beside it.
    struct Summary {
        const releases::TypeInfo& type;
        Label label;
        TextBox box;
    };
    /// In the order of the tabs.
    const std::vector<std::unique_ptr<Summary>>& summaries() const { return summaries_; }

    Menu mnuMain{*this, "mnuMain", "&Main"};
    MenuItem mnuFLaunch{*this, mnuMain, "mnuFLaunch", "&Launch TA", "Ctrl+G"};
    MenuItem mnuFPreview{*this, mnuMain, "mnuFPreview", "&Preview...", "Ctrl+P"};
    MenuItem mnuFRevert{*this, mnuMain, "mnuFRevert", "&Revert", "Ctrl+R"};
    MenuItem mnuFComeBack{*this, mnuMain, "mnuFComeBack", "&Come Back When The Game Ends", ""};
    MenuItem mnuFWrapper{*this, mnuMain, "mnuFWrapper", "Start The Game &With...", ""};
    MenuItem mnuFDirectory{*this, mnuMain, "mnuFDirectory", "Game &Directory...", ""};
    MenuItem mnuFExitVXL{*this, mnuMain, "mnuFExitVXL", "&Exit VXL", "Ctrl+Q"};
    Menu mnuUtilities{*this, "mnuUtilities", "&Utilities"};
    MenuItem mnuUfilelister{*this, mnuUtilities, "mnuUfilelister", "&File Lister", "Ctrl+F"};
    MenuItem mnuUconverter{*this, mnuUtilities, "mnuUconverter", "&Add TAM Release", "Ctrl+N"};
    Menu mnuMenuModifier{*this, "mnuMenuModifier", "&Menu Modifier"};
    MenuItem mnuMMenable{*this, mnuMenuModifier, "mnuMMenable", "&Use Trellis", "Ctrl+M"};
    MenuItem mnuMMsettings{
        *this, mnuMenuModifier, "mnuMMsettings", " (Requires 1024x768 Res. Minimum)", "", disabled};
    MenuItem mnuMMsmall{*this, mnuMenuModifier, "mnuMMsmall", "&Small Version (800x600 Res. Min.)",
                        "",    disabled};
    MenuItem mnuMMcompress{*this, mnuMenuModifier, "mnuMMcompress", "&Compress Menus",
                           "",    disabled};
    Menu mnuSets{*this, "mnuSets", "&Sets"};
    MenuItem mnuSSave{*this, mnuSets, "mnuSSave", "&Save As Set...", "Ctrl+S"};
    MenuItem mnuSSwitch{*this, mnuSets, "mnuSSwitch", "&Choose A Set...", "Ctrl+E"};
    MenuItem mnuSImport{*this, mnuSets, "mnuSImport", "&Import A Set...", ""};
    MenuItem mnuSList{*this, mnuSets, "mnuSList", "&List For A Friend...", ""};
    MenuItem mnuSCompare{*this, mnuSets, "mnuSCompare", "Compare &With A List...", ""};
    Menu mnuSettings{*this, "mnuSettings", "&Conflict Finder"};
    MenuItem mnuFCweapon{*this, mnuSettings, "mnuFCweapon", "&Weapon ID Conflicts...", "Ctrl+W"};
    MenuItem mnuFCunit{*this,    mnuSettings, "mnuFCunit", "&Unit ID Conflicts...",
                       "Ctrl+U", disabled};
    MenuItem mnuFCbuild{*this,    mnuSettings, "mnuFCbuild", "&Build Menu Conflicts...",
                        "Ctrl+B", disabled};
    Menu mnuHelp{*this, "mnuHelp", "&Help"};
    MenuItem mnuHVXLHelp{*this, mnuHelp, "mnuHVXLHelp", "&Help", "F1"};
    MenuItem mnuHAboutVXL{*this, mnuHelp, "mnuHAboutVXL", "&About", "Ctrl+A"};

  private:
    /// What the right side shows of a release, or of a type before one was picked. It stays until
    /// something else is shown.
    struct Panes {
        std::string heading = "Information:";
        std::string about;
        std::string codes;
        std::string readmeCaption = "Author Readme";
        bool hasReadme = false;
        std::string readmePath; ///< of the last release that had one
        bool offersFiles = true;
        bool offersRemoval = true;
        bool offersTexts = false; ///< an about text of its own, by its place
        bool offersCodes = false;
    };
    /// What was chosen before ticks were cleared.
    struct Cleared {
        cycle::Selection selection;
        int ticks = 0;
        bool countsTC = false; ///< the total conversion is one of them
    };

    void wire();
    void makeSummaries();

    // frmMain_run.cpp: the way in and out
    void Form_Load();
    void Form_Unload();
    void waitForGame();
    void checkGameDirectory();
    void readSelection();
    void readAnswers();
    void saveAnswers();
    void resetGameDirectory();
    void takeBackCleared();
    void tellOfDamage(const cycle::LastLaunch& last);
    void tmrSleep_Timer();
    void showLogForASecond();
    void cmdGo_Click();
    void mnuFPreview_Click();
    void mnuFCweapon_Click();
    void saveSelsOrTell();
    void warnNotStarted(const std::string& name, const platform::Failure& failure);
    [[noreturn]] void endProgram();

    // frmMain_directory.cpp: this program once more, here or elsewhere
    void offerDirectories();
    void mnuFDirectory_Click();
    void startVexillum(const std::string& directory, const std::string& arguments = {},
                       const std::string& handedOver = {});
    void startProgram(const platform::Command& command, const std::string& name);

    // frmMain_game.cpp: the game runs, and the program waits for its end
    void readComesBack();
    void mnuFComeBack_Click();
    void readWrapper();
    void mnuFWrapper_Click();
    platform::Command gameCommand() const;
    void playAndComeBack();
    void waitForEnd(platform::RunningProgram& running);
    void readReleases();
    void lookForGame();
    void showGame(const std::string& state);

    // frmMain_list.cpp: tabs and the list
    void tspMain_Click();
    void lstList_Click(const std::string& name);
    void lstList_Read(const std::string& name);
    void lstList_MarkAll(const std::vector<std::string>& names, bool marked);
    void leaveOutMisfits(std::vector<std::string>& names);
    void doList();
    void dropMissingNames();
    void pickListItem(const std::optional<std::string>& name);
    void choose(const std::string& name);
    void revertSels(bool refreshList);
    void cmdRevert_Click();
    void noteCleared();
    void forgetCleared(releases::ReleaseType type, const std::string& name);
    void lblUndoLink_Click();
    void takeSelection(cycle::Selection selection);
    const releases::TypeInfo& currentType() const;
    std::string getLongSelType() const;
    bool isListed(std::string_view name) const;
    void countReleases();

    // frmMain_info.cpp: the release at hand
    enum class Fits { yes, no };
    Fits showInfo(const std::string& name);
    releases::ReleaseTexts showTexts(const std::string& name);
    void tmrTally_Timer();

    // frmMain_contents.cpp: what it brings, found out behind the scenes
    void wireContents();
    void lookInto(const std::string& name);
    void forgetFound();
    void stopLooking();
    void goOnLooking();
    void tmrContents_Timer();
    void noteFound(const std::string& name, const releases::Contents& contents);
    void lookFurther();
    bool isLookedThrough() const;
    std::shared_ptr<const formats::Picture> pictureOf(const std::string& name);
    void showContents();
    void showPiece();
    void showUnits();
    void cmdPrevious_Click();
    void cmdNext_Click();
    void treUnits_Pick();
    void picContents_Click();

    // frmMain_show.cpp: state becomes controls
    /// The list on the screen may stay as it is until the next change.
    enum class List { follows, stays };
    void show(List list = List::follows);
    void showList();
    void showBadges();
    int marksOf(const releases::TypeInfo& type) const;
    std::string summaryOf(const releases::TypeInfo& type) const;

    // frmMain_commands.cpp
    bool tellsOfWaitingFiles(const std::string& name);
    void lblRename_Click();
    void cmdRemove_Click();
    void cmdReadme_Click();
    void cmdExplore_Click();
    void cmdHelp_Click();
    void editText(releases::Store::Text text);
    void removeUnusedTexts();
    void openHelp(const std::string& page);
    void addRelease(const std::vector<std::string>& paths);
    void mnuHAboutVXL_Click();
    void openWithDesktop(const std::string& path, platform::StartWindow window);
    void cmdAdd_Click();
    void mnuUconverter_Click();
    void cmdClean_Click();
    void mnuUfilelister_Click();
    void whileWorking(const std::function<void()>& work);

    // frmMain_sets.cpp
    void mnuSSave_Click();
    void mnuSSwitch_Click();
    void mnuSImport_Click();
    void mnuSList_Click();
    void mnuSCompare_Click();
    bool saveSet(const std::string& name, const cycle::Set& set);
    void switchToSet(const std::string& name);
    void noteLost(const cycle::Selection& next);
    void noteNewNames(const cycle::Selection& selection);
    void renameInSets(releases::ReleaseType type, const std::string& oldName,
                      const std::string& newName);

    Toolkit& toolkit() { return machine_.toolkit; }
    void tell(const std::string& text) { ask_.tell(text); }
    void warn(const std::string& text) { ask_.warn(text); }

    Machine machine_;
    frmShowReadme showReadme_;
    LogWindow log_;
    AskUser ask_;
    releases::GameDirectory game_;
    releases::Store store_;
    cycle::Sets sets_;
    /// The set that was saved or switched to last, if any.
    std::string currentSet_;
    std::vector<std::unique_ptr<Summary>> summaries_;
    std::unique_ptr<frmWorking> working_;

    bool widcfRun = false;
    bool comesBack_ = false; ///< when the game ends
    Wish leaving_;           ///< while the game runs
    std::string wrapper_;    ///< what the game is started with
    cycle::Selection selection_;
    cycle::Unfinished unfinished_;
    /// What need not be asked at the launch.
    cycle::Decisions chosen_;
    cycle::Decisions answers_;
    /// The user has looked at what a launch would do: he need not choose between equal files.
    bool wasPreviewed_ = false;
    /// What the disk has of them.
    std::string savedAnswers_;
    /// The names of the current tab's releases, in the order of the list.
    std::vector<std::string> listed_;
    /// The release at hand, of the current tab: its texts are shown, and commands act on it.
    std::optional<std::string> current_;
    Panes panes_;
    std::optional<Cleared> cleared_;
    /// Releases that were renamed are listed at the next start, but not missing until then.
    std::set<std::pair<releases::ReleaseType, std::string>> newNames_;
    std::optional<releases::Tally> tally_;
    /// Made when a release is first looked into.
    std::unique_ptr<releases::ContentsWorker> worker_;
    std::string lookedInto_; ///< the path of the release at hand, or empty
    bool isWanted_ = false;  ///< the worker is still to be told
    /// Of that release, once it is known; and what was shown of it last.
    std::shared_ptr<const releases::Contents> contents_;
    struct Piece {
        bool isUnit = false;
        std::size_t number = 0; ///< among the maps, or the units
    };
    Piece piece_;
    /// Of the releases of the current tab, by their names: what the list shows of them.
    struct Known {
        std::vector<MapFacts> maps;
        bool hasPicture = false;
        std::shared_ptr<const formats::Picture> picture; ///< null again where there are many
    };
    std::unordered_map<std::string, Known> known_;
    std::deque<std::string> withPicture_;                 ///< the oldest first
    std::vector<std::string> askedFor_;                   ///< their pictures, the last one first
    std::unordered_map<std::string, std::string> looked_; ///< names by the paths that are wanted
    std::size_t nextName_ = 0; ///< in the list, to be looked into behind the scenes
    int untold_ = 0;           ///< facts that the list has not heard of
    /// Texts that were made empty for the editor, and go again where nobody has written into them.
    std::vector<std::string> madeTexts_;
    std::vector<std::string> tcCCodes;
    /// The total conversion that the launch button names, in the form of its folder.
    std::string launched_;
    /// Of each tab: how many releases there are, and whether its summary follows the list by now.
    std::vector<int> counts_;
    std::vector<bool> opened_;
    bool selectionWasRead_ = false;
    bool listWasFilled_ = false;
};

} // namespace windows
