// The preview: the game directory as a launch would leave it, and who gets a place that more than
// one release wants. Nothing is changed in the game directory; what is chosen counts at the launch.
#pragma once

#include <functional>
#include <string>

#include "cycle/preview.h"
#include "windows/controls.h"
#include "windows/toolkit.h"

namespace windows {

class frmPreview : public Window {
  public:
    /// What a launch would go by. All must outlive the window.
    struct Basis {
        const releases::GameDirectory& game;
        const cycle::Selection& selection;
        const cycle::Unfinished& unfinished;
        cycle::Decisions& chosen;          ///< takes in what is chosen here
        cycle::Decisions& remembered;      ///< the same, where it is to be remembered
        std::function<void()> saveAnswers; ///< called when `remembered` has changed
    };

    frmPreview(Toolkit& toolkit, Basis basis);
    ~frmPreview() override;
    frmPreview(const frmPreview&) = delete;
    frmPreview& operator=(const frmPreview&) = delete;

    Label lblFigures{*this, "lblFigures"};
    CheckBox chkConflicts{*this, "chkConflicts", "Only Conflicts"};
    Button cmdRefresh{*this, "cmdRefresh", "Refresh"};
    TreeList treFiles{*this, "treFiles", {"File", "From", "Also Wanted By", "Note"}};
    Label lblPlace{*this, "lblPlace"};
    TreeList treRivals{*this, "treRivals", {"Release", "What Becomes Of Its File"}};
    Button cmdFile{*this, "cmdFile", "Use For This File"};
    Button cmdFolder{*this, "cmdFolder", "Use In This Folder"};
    Button cmdEverywhere{*this, "cmdEverywhere", "Use Wherever They Meet"};
    Button cmdAsk{*this, "cmdAsk", "Ask At The Launch"};
    CheckBox chkRemember{*this, "chkRemember", "Remember This"};
    Button cmdAnswers{*this, "cmdAnswers", "Remembered Answers..."};
    Button cmdDone{*this, "cmdDone", "Close"};

    /// Works it out and shows it until the user closes the window.
    void Form_Load();

  private:
    void Form_Unload();
    void workOut();
    void showFiles();
    void showPlace();
    void treFiles_Pick();
    void use(cycle::Reach reach);
    void cmdAsk_Click();
    void cmdAnswers_Click();
    const cycle::Preview::File* currentFile() const;
    const cycle::Owner* currentRival() const;

    Toolkit& toolkit_;
    Basis basis_;
    cycle::Preview preview_;
    /// Of the row that is current, in the order of `treRivals`.
    std::vector<cycle::Owner> rivals_;
};

} // namespace windows
