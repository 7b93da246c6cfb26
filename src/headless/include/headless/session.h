// A toolkit without a screen: a script says what the user does, a transcript tells what he sees.
#pragma once

#include <set>

#include "headless/recorded_programs.h"
#include "headless/scripted_user.h"
#include "windows/input.h"
#include "windows/toolkit.h"

namespace headless {

/// Plays a script on a program's windows. The calls throw ScriptEnd, BadLine and TooManyBoxes, none
/// of which the logic catches. Timers tick at once.
class SessionToolkit : public windows::Toolkit {
  public:
    SessionToolkit(Script& script, Transcript transcript);

    void load(windows::Window& window) override;
    void unload(windows::Window& window) override;
    void show(windows::Window& window) override;
    void hide(windows::Window& window) override;
    void minimize(windows::Window& window) override;
    void restore(windows::Window& window) override;
    void showModal(windows::Window& window) override;
    windows::MessageAnswer showMessage(const windows::MessageBox& box) override;
    std::optional<std::string> askForText(const windows::InputBox& box) override;
    std::optional<std::string> askForFile(const windows::FileDialog& dialog) override;
    std::vector<std::string> askForFiles(const windows::FileDialog& dialog) override;
    std::optional<std::string> askForFolder(const windows::FileDialog& dialog) override {
        return askForFile(dialog);
    }
    std::string saveText(const windows::FileDialog& dialog, const std::string& name,
                         const std::string& text) override;
    void setClipboard(const std::string& text) override;
    void doEvents() override;
    void waitForUser() override;
    void waitForTimer() override;
    void logged(const std::string& line) override;

  private:
    void open(windows::Window& window, bool modal);
    void carryOut(const std::string& line);

    ScriptedUser user_;
    windows::Input input_;
    std::set<windows::Window*> loaded_;
};

} // namespace headless
