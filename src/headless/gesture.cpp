// Lines are held against the controls that there are.
#include "headless/gesture.h"

#include <algorithm>
#include <array>
#include <utility>

#include "headless/script.h"
#include "platform/text.h"

namespace headless {
namespace {

using Kind = Gesture::Kind;
using Windows = std::vector<windows::Window*>;

/// The control of that name and kind, or null.
template <typename Wanted>
Wanted* find(const Windows& windows, const std::string& name) {
    for (auto window = windows.rbegin(); window != windows.rend(); ++window)
        if (auto* control = (*window)->find(name))
            return dynamic_cast<Wanted*>(control);
    return nullptr;
}

/// The list with marks of the topmost window that has one, or null.
windows::MarkList* findMarkList(const Windows& windows) {
    for (auto window = windows.rbegin(); window != windows.rend(); ++window)
        for (auto* control : (*window)->controls())
            if (auto* list = dynamic_cast<windows::MarkList*>(control))
                return list;
    return nullptr;
}

/// The row that is shown as that text.
template <typename Rows, typename TextOf>
const std::string* rowOf(const Rows& rows, const std::string& text, TextOf textOf) {
    const auto at = std::find_if(rows.begin(), rows.end(), [&](const auto& row) {
        return platform::toUtf8(textOf(row)) == text;
    });
    return at == rows.end() ? nullptr : &textOf(*at);
}

const std::string& itself(const std::string& row) {
    return row;
}

bool canBePressed(windows::Control* control) {
    if (const auto* label = dynamic_cast<windows::Label*>(control))
        return static_cast<bool>(label->onClick);
    return dynamic_cast<windows::Button*>(control) != nullptr ||
           dynamic_cast<windows::CheckBox*>(control) != nullptr ||
           dynamic_cast<windows::PictureBox*>(control) != nullptr ||
           dynamic_cast<windows::MenuItem*>(control) != nullptr;
}

Gesture made(Kind kind, windows::Control* control, const std::string* text,
             const std::string& line) {
    if (control == nullptr || text == nullptr)
        throw BadLine(line);
    return {kind, &control->window(), control, *text};
}

Gesture tab(const Windows& windows, const std::string& caption, const std::string& line) {
    auto* tabs = find<windows::TabStrip>(windows, "tspMain");
    return made(Kind::tab, tabs, tabs ? rowOf(tabs->captions(), caption, itself) : nullptr, line);
}

Gesture item(Kind kind, const Windows& windows, const std::string& text, const std::string& line) {
    auto* list = findMarkList(windows);
    const auto textOf = [](const windows::MarkList::Item& item) -> const std::string& {
        return item.text;
    };
    return made(kind, list, list ? rowOf(list->items(), text, textOf) : nullptr, line);
}

Gesture click(const Windows& windows, const std::string& name, const std::string& line) {
    auto* control = find<windows::Control>(windows, name);
    return made(Kind::click, canBePressed(control) ? control : nullptr, &name, line);
}

Gesture pick(const Windows& windows, const std::string& rest, const std::string& line) {
    const auto [name, text] = cutWord(rest);
    if (auto* tree = find<windows::TreeList>(windows, name)) {
        const auto keyOf = [](const auto& row) -> const std::string& { return row.key; };
        return made(Kind::pick, tree, rowOf(tree->rows(), text, keyOf), line);
    }
    auto* box = find<windows::ComboBox>(windows, name);
    return made(Kind::pick, box, box ? rowOf(box->rows(), text, itself) : nullptr, line);
}

Gesture type(const Windows& windows, const std::string& rest, const std::string& line) {
    const auto [name, text] = cutWord(rest);
    auto* box = find<windows::TextBox>(windows, name);
    const auto typed = typedText(text);
    return made(Kind::type, box != nullptr && !box->readOnly() ? box : nullptr, &typed, line);
}

} // namespace

Gesture gestureOf(const std::string& line, const Windows& windows) {
    const auto [action, rest] = cutWord(line);
    if (action == "tab")
        return tab(windows, rest, line);
    if (action == "mark")
        return item(Kind::mark, windows, rest, line);
    if (action == "read")
        return item(Kind::read, windows, rest, line);
    if (action == "click")
        return click(windows, rest, line);
    if (action == "pick")
        return pick(windows, rest, line);
    if (action == "type")
        return type(windows, rest, line);
    if (action == "drop" && !windows.empty() && windows.back()->onDrop)
        return {Kind::drop, windows.back(), nullptr, rest};
    if (line == "escape" && !windows.empty())
        return {Kind::escape, windows.back(), nullptr, {}};
    if (line != "close" || windows.empty() || !windows.back()->onClose)
        throw BadLine(line);
    return {Kind::close, windows.back(), nullptr, {}};
}

Gesture meanwhileGesture(const std::string& line, const Windows& windows) {
    constexpr std::array words = {"tab", "mark", "click", "close", "escape"};
    if (std::find(words.begin(), words.end(), cutWord(line).first) == words.end())
        throw BadLine("meanwhile " + line);
    try {
        return gestureOf(line, windows);
    } catch (const BadLine&) {
        throw BadLine("meanwhile " + line);
    }
}

windows::Action actionOf(const Gesture& gesture) {
    switch (gesture.kind) {
    case Kind::tab:
        return windows::choose(static_cast<windows::TabStrip&>(*gesture.control), gesture.text);
    case Kind::mark: {
        auto& list = static_cast<windows::MarkList&>(*gesture.control);
        return windows::click(list, gesture.text, list.revision());
    }
    case Kind::read: {
        auto& list = static_cast<windows::MarkList&>(*gesture.control);
        return windows::read(list, gesture.text, list.revision());
    }
    case Kind::drop:
        return windows::drop(*gesture.window, {gesture.text});
    case Kind::escape:
        return windows::escape(*gesture.window);
    case Kind::pick: {
        auto& control = *gesture.control;
        if (auto* tree = dynamic_cast<windows::TreeList*>(&control))
            return windows::choose(*tree, gesture.text, tree->revision());
        return windows::choose(dynamic_cast<windows::ComboBox&>(control), gesture.text);
    }
    case Kind::type: {
        auto& box = static_cast<windows::TextBox&>(*gesture.control);
        auto action = windows::leave(box);
        action.run = [&box, text = gesture.text, leave = std::move(action.run)] {
            box.setText(text);
            leave();
        };
        return action;
    }
    case Kind::close:
        return windows::close(*gesture.window);
    case Kind::click:
        break;
    }
    if (auto* button = dynamic_cast<windows::Button*>(gesture.control))
        return windows::press(*button);
    if (auto* item = dynamic_cast<windows::MenuItem*>(gesture.control))
        return windows::press(*item);
    if (auto* box = dynamic_cast<windows::CheckBox*>(gesture.control))
        return windows::press(*box);
    if (auto* picture = dynamic_cast<windows::PictureBox*>(gesture.control))
        return windows::press(*picture);
    return windows::press(dynamic_cast<windows::Label&>(*gesture.control));
}

} // namespace headless
