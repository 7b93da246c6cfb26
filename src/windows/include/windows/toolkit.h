// What the logic asks of a window toolkit, and of whoever sits before it.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "windows/controls.h"

namespace windows {

struct MessageBox {
    std::string text;
    std::string title;
    std::vector<std::string> buttons;
    bool offersSameForRest = false; ///< shows the check "Do the same for the rest"
    std::size_t defaultButton = 0;  ///< the place among the buttons of the one that Enter presses
    std::string detail = {};        ///< a reason, shown below the text
    bool warns = false;             ///< something is wrong
    bool offersRemembering = false; ///< shows the check "Remember this"
};

struct MessageAnswer {
    std::size_t button = 0;
    bool sameForRest = false;
    bool remember = false;
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

/// Shows windows and asks questions. What the user does reaches the logic only where it waits for
/// him, in waitForUser and showModal, and never through a frame of the toolkit's own. What he does
/// elsewhere is noted where a wish belongs to it (`Button::wish`, `Window::closeWish`), dropped
/// where window or control takes no input then, and kept otherwise: it runs when the program next
/// waits, if window and control still take input by then and the list clicked was not refilled.
class Toolkit {
  public:
    Toolkit() = default;
    virtual ~Toolkit() = default;
    Toolkit(const Toolkit&) = delete;
    Toolkit& operator=(const Toolkit&) = delete;

    /// Called by the owner before a window is first shown and when it goes. With a window go the
    /// actions kept for it and the ticks of its timers.
    virtual void load(Window& window) = 0;
    virtual void unload(Window& window) = 0;

    virtual void show(Window& window) = 0;
    virtual void hide(Window& window) = 0;
    /// Puts a window that is shown out of the way, and brings it back to the front.
    virtual void minimize(Window& window) = 0;
    virtual void restore(Window& window) = 0;
    /// Shows a window and handles what the user does until it is hidden. Windows below it take no
    /// input meanwhile.
    virtual void showModal(Window& window) = 0;

    virtual MessageAnswer showMessage(const MessageBox& box) = 0;
    /// Nothing where the user cancels.
    virtual std::optional<std::string> askForText(const InputBox& box) = 0;
    virtual std::optional<std::string> askForFile(const FileDialog& dialog) = 0;
    /// The same for any number of files; none where the user cancels.
    virtual std::vector<std::string> askForFiles(const FileDialog& dialog) = 0;
    virtual std::optional<std::string> askForFolder(const FileDialog& dialog) = 0;
    /// Asks for a file, which `name` is offered for, and writes the text there. Gives back why that
    /// failed; nothing where it worked or the user cancels.
    virtual std::string saveText(const FileDialog& dialog, const std::string& name,
                                 const std::string& text) = 0;
    virtual void setClipboard(const std::string& text) = 0;

    /// Paints, lets timers tick and notes wishes; no action of the user runs. Cheap enough for the
    /// inside of any loop.
    virtual void doEvents() = 0;
    /// Waits for the next action of the user and runs it.
    virtual void waitForUser() = 0;
    /// Waits for the next tick of a timer or wish of the user, and else does what doEvents does. It
    /// may come back without either.
    virtual void waitForTimer() = 0;

    /// Whether the user's session comes to its end, and the program with it: nothing that would
    /// outlive them is started any more.
    virtual bool isEnding() const { return false; }

    /// A line has been added to the log window, or its first text has been set.
    virtual void logged(const std::string& line) = 0;
};

} // namespace windows
