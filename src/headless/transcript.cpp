// Events as JSON.
#include "headless/transcript.h"

#include "platform/text.h"

namespace headless {
namespace {

Event shownOrNull(const std::optional<std::string>& text) {
    return text ? Event(platform::toUtf8(*text)) : Event();
}

} // namespace

std::string shownText(std::string_view text) {
    return platform::replaceAll(platform::toUtf8(text), platform::lineBreak, "\n");
}

namespace {

Event windowEvent(const char* event, const windows::Window& window) {
    return {{"event", event}, {"window", window.name()}, {"title", shownText(window.text())}};
}

} // namespace

Event showEvent(const windows::Window& window, bool modal) {
    return {{"event", "show"},
            {"window", window.name()},
            {"title", shownText(window.text())},
            {"modal", modal}};
}

Event hideEvent(const windows::Window& window) {
    return windowEvent("hide", window);
}

Event minimizeEvent(const windows::Window& window) {
    return windowEvent("minimize", window);
}

Event restoreEvent(const windows::Window& window) {
    return windowEvent("restore", window);
}

Event messageEvent(const windows::MessageBox& box, const windows::MessageAnswer& answer) {
    Event event = {{"event", "message"},
                   {"text", shownText(box.text)},
                   {"title", shownText(box.title)},
                   {"buttons", box.buttons},
                   {"answer", box.buttons[answer.button]}};
    if (box.defaultButton != 0)
        event["default"] = box.buttons[box.defaultButton];
    if (!box.detail.empty())
        event["detail"] = shownText(box.detail);
    if (answer.remember)
        event["remembered"] = true;
    return event;
}

Event inputEvent(const windows::InputBox& box, const std::optional<std::string>& answer) {
    return {{"event", "input"},
            {"text", shownText(box.text)},
            {"title", shownText(box.title)},
            {"preset", shownText(box.preset)},
            {"answer", shownOrNull(answer)}};
}

Event fileDialogEvent(const windows::FileDialog& dialog, const std::optional<std::string>& answer) {
    return {{"event", "file-dialog"},
            {"title", shownText(dialog.title)},
            {"filter", dialog.filter},
            {"folder", shownText(dialog.folder)},
            {"answer", shownOrNull(answer)}};
}

Event clipboardEvent(const std::string& text) {
    return {{"event", "clipboard"}, {"text", shownText(text)}};
}

Event logEvent(const std::string& line) {
    // There are as many of these as files, and an initializer list costs more than all the rest.
    Event event;
    event["event"] = "log";
    event["line"] = shownText(line);
    return event;
}

Event refusedEvent(const std::string& line) {
    return {{"event", "refused"}, {"line", line}};
}

} // namespace headless
