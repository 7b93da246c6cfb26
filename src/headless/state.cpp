// The state of controls as JSON, by their kinds.
#include "headless/transcript.h"
#include "platform/text.h"

namespace headless {
namespace {

using platform::toUtf8;

Event stateOf(const windows::Element& element) {
    return {{"text", shownText(element.text())},
            {"enabled", element.enabled()},
            {"visible", element.visible()}};
}

Event row(const std::string& text, bool marked) {
    return {{"text", text}, {"marked", marked}};
}

std::string joined(const std::vector<std::string>& texts) {
    std::string all;
    for (const auto& text : texts)
        all += " | " + text;
    return all;
}

/// "126 x 63", or "none".
std::string sizeOf(const windows::PictureBox& box) {
    const auto& picture = box.picture();
    return picture == nullptr
               ? "none"
               : std::to_string(picture->width) + " x " + std::to_string(picture->height);
}

void addRows(Event& state, const windows::Control& control) {
    auto rows = Event::array();
    if (const auto* list = dynamic_cast<const windows::MarkList*>(&control)) {
        for (const auto& item : list->items())
            rows.push_back(row(toUtf8(item.text), item.marked));
        state["index"] = list->index();
    } else if (const auto* tabs = dynamic_cast<const windows::TabStrip*>(&control)) {
        for (const auto& caption : tabs->captions())
            rows.push_back(row(caption, caption == tabs->caption()));
        state["index"] = tabs->index();
    } else if (const auto* combo = dynamic_cast<const windows::ComboBox*>(&control)) {
        for (const auto& each : combo->rows())
            rows.push_back(row(each, each == combo->text()));
        state["index"] = combo->index();
    } else if (const auto* plain = dynamic_cast<const windows::ListBox*>(&control)) {
        for (const auto& item : plain->items())
            rows.push_back(row(shownText(item.text), false));
    } else if (const auto* tree = dynamic_cast<const windows::TreeList*>(&control)) {
        for (const auto& each : tree->rows())
            rows.push_back(row(shownText(each.key + joined(each.texts)), &each == tree->current()));
        state["index"] = tree->index();
    } else {
        return;
    }
    state["items"] = std::move(rows);
}

Event stateOf(const windows::Control& control) {
    auto state = stateOf(static_cast<const windows::Element&>(control));
    addRows(state, control);
    if (control.idle())
        state["idle"] = true;
    if (const auto* item = dynamic_cast<const windows::MenuItem*>(&control))
        state["checked"] = item->checked();
    if (const auto* box = dynamic_cast<const windows::CheckBox*>(&control))
        state["checked"] = box->checked();
    if (const auto* box = dynamic_cast<const windows::PictureBox*>(&control))
        state["picture"] = sizeOf(*box);
    return state;
}

} // namespace

Event stateEvent(const std::vector<windows::Window*>& open) {
    auto controls = Event::object();
    for (const auto* window : open) {
        auto state = stateOf(static_cast<const windows::Element&>(*window));
        state["title"] = shownText(window->text());
        controls[window->name()] = std::move(state);
        for (const auto* control : window->controls())
            controls[control->name()] = stateOf(*control);
    }
    return {{"event", "state"}, {"controls", std::move(controls)}};
}

} // namespace headless
