// A scripted session on the real windows.
#pragma once

#include "headless/gesture.h"
#include "headless/scripted_user.h"
#include "views/qt_toolkit.h"

namespace test {

/// Plays a script with mouse and keys on the widgets, and tells the same transcript as a session
/// without a screen. File dialogs are answered without being shown; timers tick at once. A widget
/// that shows or does other than its control fails the test.
class QtSessionToolkit final : public views::QtToolkit {
  public:
    QtSessionToolkit(headless::Script& script, headless::Transcript transcript);

    void show(windows::Window& window) override;
    void hide(windows::Window& window) override;
    void minimize(windows::Window& window) override;
    void restore(windows::Window& window) override;
    void showModal(windows::Window& window) override;
    windows::MessageAnswer showMessage(const windows::MessageBox& box) override;
    std::optional<std::string> askForText(const windows::InputBox& box) override;
    std::optional<std::string> askForFile(const windows::FileDialog& dialog) override;
    std::vector<std::string> askForFiles(const windows::FileDialog& dialog) override;
    std::optional<std::string> askForFolder(const windows::FileDialog& dialog) override;
    std::string saveText(const windows::FileDialog& dialog, const std::string& name,
                         const std::string& text) override;
    void setClipboard(const std::string& text) override;
    void doEvents() override;
    void waitForUser() override;
    void waitForTimer() override;
    void logged(const std::string& line) override;
    windows::Input::Fate post(windows::Action action) override;

  private:
    void carryOut(const std::string& line);
    void dump();
    void tryMeanwhile();
    /// Whether anything came of it.
    bool takesEffect(const headless::Gesture& gesture);

    headless::ScriptedUser user_;
    bool tookEffect_ = false;
};

} // namespace test
