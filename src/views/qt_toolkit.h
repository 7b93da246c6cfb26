// Windows on the screen by Qt. What the user does is queued by the widgets and handed to the logic
// only out of the calls in which the logic waits or lets events run, so no exception of the logic
// ever passes through a frame of Qt.
#pragma once

#include <chrono>
#include <deque>
#include <functional>
#include <map>
#include <memory>

#include "windows/toolkit.h"
#include "views/binding.h"

class QWidget;

namespace views {

class WindowView;

class QtToolkit : public platform::Toolkit {
  public:
    QtToolkit();
    ~QtToolkit() override;

    void load(platform::Window& window) override;
    void unload(platform::Window& window) override;
    void show(platform::Window& window) override;
    void hide(platform::Window& window) override;
    void showModal(platform::Window& window) override;
    platform::MessageAnswer showMessage(const platform::MessageBox& box) override;
    std::optional<std::string> askForText(const platform::InputBox& box) override;
    std::optional<std::string> askForFile(const platform::FileDialog& dialog) override;
    std::vector<std::string> askForFiles(const platform::FileDialog& dialog) override;
    std::optional<std::string> askForFolder(const platform::FileDialog& dialog) override;
    void setClipboard(const std::string& text) override;
    void doEvents() override;
    void waitForUser() override;
    void waitForTimer() override;
    void logged(const std::string& /*line*/) override {}

    Refresher& refresher() { return refresher_; }

    /// Queues what the user did. It runs if window and control still take input by then; a null
    /// control stands for the window itself.
    void post(platform::Window& window, platform::Control* control, std::function<void()> action);
    void postTick(platform::Timer& timer, std::function<void()> action);

  private:
    struct Action {
        const platform::Window* window;
        std::function<bool()> stillWanted;
        std::function<void()> run;
    };

    WindowView* viewOf(platform::Window& window);
    void putOverOwner(WindowView& view);
    QWidget* boxParent() const;
    void runNextAction();
    void processEvents(bool wait);

    Refresher refresher_;
    std::map<platform::Window*, std::unique_ptr<WindowView>> views_;
    WindowView* mainView_ = nullptr; ///< the first window loaded, which the others belong to
    std::deque<Action> actions_;
    std::chrono::steady_clock::time_point lastEvents_;
};

} // namespace views
