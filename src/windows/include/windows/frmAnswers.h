// The answers that are known ahead of the questions, to be looked through and forgotten.
#pragma once

#include <functional>
#include <vector>

#include "cycle/decisions.h"
#include "platform/questions.h"
#include "windows/controls.h"
#include "windows/toolkit.h"

namespace windows {

class frmAnswers : public Window {
  public:
    /// All must outlive the window.
    struct Basis {
        cycle::Decisions& chosen;
        cycle::Decisions& remembered;
        platform::Questions& questions;
        std::function<void()> saveAnswers; ///< called when `remembered` has changed
    };

    frmAnswers(Toolkit& toolkit, Basis basis);
    ~frmAnswers() override;
    frmAnswers(const frmAnswers&) = delete;
    frmAnswers& operator=(const frmAnswers&) = delete;

    Label lblAnswers{*this, "lblAnswers"};
    TreeList treAnswers{*this, "treAnswers", {"File", "Who Gets It", "Who Does Not", "For"}};
    Button cmdForget{*this, "cmdForget", "Forget This"};
    Button cmdForgetAll{*this, "cmdForgetAll", "Forget All"};
    Button cmdDone{*this, "cmdDone", "Close"};

    /// Shows them until the user closes the window.
    void Form_Load();

  private:
    void Form_Unload();
    void showAnswers();
    void showCommands();
    void cmdForget_Click();
    void cmdForgetAll_Click();

    Toolkit& toolkit_;
    Basis basis_;
    std::vector<cycle::Decision> answers_; ///< as they are shown
};

} // namespace windows
