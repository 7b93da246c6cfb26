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
    const auto press = [&control] {
        if (!control.idle())
            raise(control.onClick);
    };
    return {&control.window(), &control, wish, press, {}};
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

Action press(PictureBox& box) {
    return pressed(box, nullptr);
}

Action press(CheckBox& box) {
    return {&box.window(), &box, nullptr, [&box] { box.click(); }, {}};
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

Action read(MarkList& list, std::string text, unsigned revision) {
    return {&list.window(), &list, nullptr, [&list, text = std::move(text)] { list.read(text); },
            [&list, revision] { return list.revision() == revision; }};
}

Action markAll(MarkList& list, std::vector<std::string> texts, bool marked, unsigned revision) {
    return {&list.window(), &list, nullptr,
            [&list, texts = std::move(texts), marked] { list.markAll(texts, marked); },
            [&list, revision] { return list.revision() == revision; }};
}

Action choose(TreeList& tree, std::string key, unsigned revision) {
    return {&tree.window(), &tree, nullptr, [&tree, key = std::move(key)] { tree.pick(key); },
            [&tree, revision] { return tree.revision() == revision; }};
}

Action leave(TextBox& box) {
    return {&box.window(), &box, nullptr, [&box] { raise(box.onLeave); }, {}};
}

Action close(Window& window) {
    return {&window, nullptr, window.closeWish, [&window] { raise(window.onClose); }, {}};
}

Action escape(Window& window) {
    if (!window.onEscape)
        return close(window);
    return {&window, nullptr, window.escapeWish, [&window] { raise(window.onEscape); }, {}};
}

Action drop(Window& window, std::vector<std::string> paths) {
    return {&window,
            nullptr,
            nullptr,
            [&window, paths = std::move(paths)] { raise(window.onDrop, paths); },
            {}};
}

} // namespace windows
