// What the logic asks of a window toolkit, and of whoever sits before it.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "windows/controls.h"

namespace platform {

struct MessageBox {
    std::string text;
    std::string title;
    std::vector<std::string> buttons; ///< the first one is the default
    bool offersSameForRest = false;   ///< shows the check "Do the same for the rest"
};

struct MessageAnswer {
    std::size_t button = 0;
    bool sameForRest = false;
};

struct InputBox {
    std::string text;
    std::string title;
    std::string preset;
};

struct FileDialog {
    std::string title;
    std::string filter; ///< captions and patterns in turn, set off by "|"
    std::string folder; ///< where it starts, in the system's form
};

/// Shows windows and asks questions. Events of the user reach the logic only out of the calls below
/// that say so, never at another time and never through a frame of the toolkit's own.
class Toolkit {
  public:
    Toolkit() = default;
    virtual ~Toolkit() = default;
    Toolkit(const Toolkit&) = delete;
    Toolkit& operator=(const Toolkit&) = delete;

    /// Called by the owner before a window is first shown and when it goes.
    virtual void load(Window& window) = 0;
    virtual void unload(Window& window) = 0;

    virtual void show(Window& window) = 0;
    virtual void hide(Window& window) = 0;
    /// Shows a window and handles events until it is hidden. Other windows rest meanwhile.
    virtual void showModal(Window& window) = 0;

    virtual MessageAnswer showMessage(const MessageBox& box) = 0;
    /// Nothing where the user cancels.
    virtual std::optional<std::string> askForText(const InputBox& box) = 0;
    virtual std::optional<std::string> askForFile(const FileDialog& dialog) = 0;
    /// The same for any number of files; none where the user cancels.
    virtual std::vector<std::string> askForFiles(const FileDialog& dialog) = 0;
    virtual std::optional<std::string> askForFolder(const FileDialog& dialog) = 0;
    virtual void setClipboard(const std::string& text) = 0;

    /// Lets pending events run. Cheap enough for the inside of any loop.
    virtual void doEvents() = 0;
    /// Waits for the next event of the user and handles it.
    virtual void waitForUser() = 0;
    /// Waits for the next event, of a timer above all, and handles it.
    virtual void waitForTimer() = 0;

    /// A line has been added to the log window, or its first text has been set.
    virtual void logged(const std::string& line) = 0;
};

} // namespace platform
