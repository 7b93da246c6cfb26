// Windows on the screen by Qt. What the user does is handed over by the widgets and run only out of
// the calls in which the logic waits for him, so no exception of the logic ever passes through a
// frame of Qt.
#pragma once

#include <chrono>
#include <functional>
#include <map>
#include <memory>

#include "views/binding.h"
#include "windows/input.h"
#include "windows/toolkit.h"

class QSettings;
class QWidget;

namespace views {

class WindowView;

class QtToolkit : public windows::Toolkit {
  public:
    QtToolkit();
    ~QtToolkit() override;

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
    std::optional<std::string> askForFolder(const windows::FileDialog& dialog) override;
    std::string saveText(const windows::FileDialog& dialog, const std::string& name,
                         const std::string& text) override;
    void setClipboard(const std::string& text) override;
    void doEvents() override;
    void waitForUser() override;
    void waitForTimer() override;
    void logged(const std::string& /*line*/) override {}

    /// Keeps in a file where windows and dialogs were, from this call on and for later runs. What
    /// cannot be written is not kept.
    void rememberIn(const std::string& file);
    /// What is kept, or null.
    QSettings* memory() const { return memory_.get(); }

    /// Brings the window that the user is at to the front.
    void raise();

    /// As if the user closed the first window.
    void closeMain();

    void noteEnding() { ending_ = true; }
    bool isEnding() const override { return ending_; }

    Refresher& refresher() { return refresher_; }

    /// Takes what the user did through a widget.
    virtual windows::Input::Fate post(windows::Action action);
    void postTick(windows::Timer& timer) { input_.tick(timer); }
    bool takesInput(const windows::Window& window) const { return input_.takes(window, nullptr); }

  protected:
    windows::Input& input() { return input_; }
    WindowView* viewOf(windows::Window& window);
    /// What the user does in the call counts as done while the program waits for him.
    void whileWaiting(const std::function<void()>& call);
    /// Brings the widgets up to date and lets Qt handle its events; with `wait` at least one.
    void processEvents(bool wait);

  private:
    void open(windows::Window& window, Qt::WindowModality modality);
    static void bringToFront(QWidget& window);
    void putOverOwner(WindowView& view);
    static bool isOnScreen(const WindowView& view);
    static void keepOnScreen(WindowView& view);
    QWidget* boxParent() const;
    QString folderFor(const windows::FileDialog& dialog) const;
    void noteFolder(const QString& folder);

    Refresher refresher_;
    std::map<windows::Window*, std::unique_ptr<WindowView>> views_;
    std::unique_ptr<QSettings> memory_;
    QString lastFolder_;             ///< of the last file dialog
    WindowView* mainView_ = nullptr; ///< the first window loaded, which the others belong to
    bool ending_ = false;
    windows::Input input_;
    windows::Input::Moment moment_ = windows::Input::Moment::working;
    std::chrono::steady_clock::time_point lastEvents_;
};

} // namespace views
