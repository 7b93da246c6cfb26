// A script line as something done to a control that is there.
#pragma once

#include <string>
#include <vector>

#include "windows/actions.h"

namespace headless {

/// What one line of a script has the user do, with the control found and the text as the program
/// has it.
struct Gesture {
    enum class Kind { tab, mark, read, click, pick, type, drop, close, escape };

    Kind kind;
    windows::Window* window;
    windows::Control* control; ///< null for what is done to the window
    std::string text; ///< a tab's caption, an item's or row's text, what is typed, a dropped path
};

/// Looks the control up in the windows, the last one first; `close` means the last one. Throws
/// BadLine for a line that is no gesture, and for a control, tab, row or item that is not there.
/// Whether the control takes input is not looked at.
Gesture gestureOf(const std::string& line, const std::vector<windows::Window*>& windows);

/// The same for what is done while the program works: a tab, an item, a click or a close. The text
/// of a BadLine is the whole line of the script.
Gesture meanwhileGesture(const std::string& line, const std::vector<windows::Window*>& windows);

/// The gesture without hands: when it runs, it does to the control what a view would do.
windows::Action actionOf(const Gesture& gesture);

} // namespace headless
