// An owner's event is looked up when the action runs, and copied: it may end the control it is of.
#include "windows/actions.h"

#include <utility>

namespace windows {
namespace {

template <typename Event, typename... Arguments>
void raise(Event event, const Arguments&... arguments) {
    if (event)
        event(arguments...);
}

template <typename Pressed>
Action pressed(Pressed& control, Wish* wish) {
    return {&control.window(), &control, wish, [&control] { raise(control.onClick); }, {}};
}

} // namespace

Action press(Button& button) {
    return pressed(button, button.wish);
}

Action press(Label& link) {
    return pressed(link, nullptr);
}

Action press(MenuItem& item) {
    return pressed(item, nullptr);
}

Action choose(TabStrip& tabs, std::string caption) {
    return {&tabs.window(),
            &tabs,
            nullptr,
            [&tabs, caption = std::move(caption)] { tabs.click(caption); },
            {}};
}

Action choose(ComboBox& box, std::string row) {
    return {&box.window(), &box, nullptr, [&box, row = std::move(row)] { box.pick(row); }, {}};
}

Action click(MarkList& list, std::string text, unsigned revision) {
    return {&list.window(), &list, nullptr, [&list, text = std::move(text)] { list.click(text); },
            [&list, revision] { return list.revision() == revision; }};
}

Action leave(TextBox& box) {
    return {&box.window(), &box, nullptr, [&box] { raise(box.onLeave); }, {}};
}

Action close(Window& window) {
    return {&window, nullptr, window.closeWish, [&window] { raise(window.onClose); }, {}};
}

Action drop(Window& window, std::vector<std::string> paths) {
    return {&window,
            nullptr,
            nullptr,
            [&window, paths = std::move(paths)] { raise(window.onDrop, paths); },
            {}};
}

} // namespace windows
