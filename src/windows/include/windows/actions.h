// What a user can do to a control or window, ready to be run when the logic waits for him.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "windows/controls.h"

namespace windows {

/// One thing that the user has done. Window and control must outlive it, or be forgotten first
/// (Input::forget).
struct Action {
    Window* window = nullptr;
    Control* control = nullptr; ///< null where it is done to the window itself
    Wish* wish = nullptr;       ///< what it utters while a procedure runs, if anything
    std::function<void()> run;
    /// False once the thing it was done to is gone. Empty where window and control alone decide.
    std::function<bool()> stillMeant;
};

Action press(Button& button);
Action press(Label& link);
Action press(MenuItem& item);
Action press(CheckBox& box);
Action press(PictureBox& box);
Action choose(TabStrip& tabs, std::string caption);
Action choose(ComboBox& box, std::string row);
/// A click on an item, in the list as it was at that revision.
Action click(MarkList& list, std::string text, unsigned revision);
/// The same for one that is only looked at, and for many that are marked or cleared at once.
Action read(MarkList& list, std::string text, unsigned revision);
Action markAll(MarkList& list, std::vector<std::string> texts, bool marked, unsigned revision);
Action choose(TreeList& tree, std::string key, unsigned revision);
/// The user has left the box.
Action leave(TextBox& box);
Action close(Window& window);
/// The user wants out of the window, by the key for that.
Action escape(Window& window);
Action drop(Window& window, std::vector<std::string> paths);

} // namespace windows
