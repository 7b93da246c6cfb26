// Script lines are carried out where the program waits for its user; a box takes its answer there
// and then.
#include "headless/session.h"

#include <algorithm>
#include <utility>

#include "platform/text.h"

namespace platform::headless {
namespace {

std::string shownText(std::string_view text) {
    return replaceAll(toUtf8(text), lineBreak, "\n");
}

std::pair<std::string, std::string> cutWord(const std::string& line) {
    const auto blank = line.find(' ');
    if (blank == std::string::npos)
        return {line, ""};
    return {line.substr(0, blank), line.substr(blank + 1)};
}

/// "\n" is a line break of the program, "\\" a backslash.
std::string typedText(std::string_view text) {
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto pair = text.substr(i, 2);
        if (pair == "\\n")
            result += lineBreak;
        else if (pair == "\\\\")
            result += '\\';
        else {
            result += text[i];
            continue;
        }
        ++i;
    }
    return result;
}

bool isAnswer(const std::string& line) {
    return line == "answer" || line.starts_with("answer ");
}

bool usable(const Window& window, const Control& control) {
    return window.enabled() && !window.resting() && control.enabled() && control.visible();
}

template <typename Kind>
Kind& controlOf(Window& window, const std::string& name, const std::string& line) {
    auto* control = dynamic_cast<Kind*>(window.find(name));
    if (control == nullptr || !usable(window, *control))
        throw BadLine(line);
    return *control;
}

/// Presses a button, a menu item or a label that is a link.
void click(Window& window, const std::string& name, const std::string& line) {
    auto& control = controlOf<Control>(window, name, line);
    std::function<void()> handler;
    if (const auto* button = dynamic_cast<Button*>(&control))
        handler = button->onClick;
    else if (const auto* item = dynamic_cast<MenuItem*>(&control))
        handler = item->onClick;
    else if (const auto* label = dynamic_cast<Label*>(&control); label && label->onClick)
        handler = label->onClick;
    else
        throw BadLine(line);
    if (handler)
        handler();
}

template <typename Rows>
int rowOf(const Rows& rows, const std::string& text, const std::string& line) {
    const auto at = std::find_if(rows.begin(), rows.end(),
                                 [&](const auto& row) { return toUtf8(row) == text; });
    if (at == rows.end())
        throw BadLine(line);
    return static_cast<int>(at - rows.begin());
}

void mark(Window& window, const std::string& text, const std::string& line) {
    auto& list = controlOf<MarkList>(window, "lstList", line);
    const auto& items = list.items();
    const auto at = std::find_if(items.begin(), items.end(),
                                 [&](const auto& item) { return toUtf8(item.text) == text; });
    if (at == items.end())
        throw BadLine(line);
    list.click(static_cast<int>(at - items.begin()));
}

void pick(Window& window, const std::string& rest, const std::string& line) {
    const auto [name, text] = cutWord(rest);
    auto& box = controlOf<ComboBox>(window, name, line);
    box.pick(rowOf(box.rows(), text, line));
}

void type(Window& window, const std::string& rest, const std::string& line) {
    const auto [name, text] = cutWord(rest);
    auto& box = controlOf<TextBox>(window, name, line);
    if (box.readOnly())
        throw BadLine(line);
    box.setText(typedText(text));
    if (box.onLeave)
        box.onLeave();
}

Event stateOf(const Element& element) {
    return Event{{"text", shownText(element.text())},
                 {"enabled", element.enabled()},
                 {"visible", element.visible()}};
}

Event stateOf(const Control& control) {
    auto state = stateOf(static_cast<const Element&>(control));
    if (const auto* list = dynamic_cast<const MarkList*>(&control)) {
        state["items"] = Event::array();
        for (const auto& item : list->items())
            state["items"].push_back({{"text", toUtf8(item.text)}, {"marked", item.marked}});
        state["index"] = list->index();
    } else if (const auto* tabs = dynamic_cast<const TabStrip*>(&control)) {
        state["items"] = Event::array();
        for (const auto& caption : tabs->captions())
            state["items"].push_back({{"text", caption}, {"marked", caption == tabs->caption()}});
        state["index"] = tabs->index();
    } else if (const auto* plain = dynamic_cast<const ListBox*>(&control)) {
        state["items"] = Event::array();
        for (const auto& item : plain->items())
            state["items"].push_back({{"text", shownText(item.text)}, {"marked", false}});
    } else if (const auto* combo = dynamic_cast<const ComboBox*>(&control)) {
        state["items"] = Event::array();
        for (const auto& row : combo->rows())
            state["items"].push_back({{"text", row}, {"marked", row == combo->text()}});
        state["index"] = combo->index();
    } else if (const auto* item = dynamic_cast<const MenuItem*>(&control)) {
        state["checked"] = item->checked();
    }
    return state;
}

} // namespace

const std::optional<std::string>& Script::peek() {
    std::string line;
    while (!next_ && std::getline(lines_, line)) {
        ++lineNumber_;
        if (line.ends_with('\r'))
            line.pop_back();
        if (line.find_first_not_of(" \t") != std::string::npos && !line.starts_with('#'))
            next_ = line;
    }
    return next_;
}

std::optional<std::string> Script::take() {
    peek();
    return std::exchange(next_, std::nullopt);
}

SessionToolkit::SessionToolkit(Script& script, Transcript transcript)
    : script_(script), transcript_(std::move(transcript)) {}

void SessionToolkit::load(Window& window) {
    loaded_.insert(&window);
}

void SessionToolkit::unload(Window& window) {
    loaded_.erase(&window);
    std::erase(windows_, &window);
}

void SessionToolkit::show(Window& window) {
    if (!window.visible())
        windows_.push_back(&window);
    window.setVisible(true);
    transcript_({{"event", "show"},
                 {"window", window.name()},
                 {"title", shownText(window.text())},
                 {"modal", false}});
}

void SessionToolkit::hide(Window& window) {
    if (!window.visible())
        return;
    window.setVisible(false);
    std::erase(windows_, &window);
    transcript_(
        {{"event", "hide"}, {"window", window.name()}, {"title", shownText(window.text())}});
}

void SessionToolkit::showModal(Window& window) {
    windows_.push_back(&window);
    window.setVisible(true);
    transcript_({{"event", "show"},
                 {"window", window.name()},
                 {"title", shownText(window.text())},
                 {"modal", true}});
    while (window.visible())
        waitForUser();
}

void SessionToolkit::tellOfBox(const Event& event) {
    transcript_(event);
    if (++boxes_ >= mostBoxesInARow)
        throw TooManyBoxes();
}

std::optional<std::string> SessionToolkit::nextAnswer() {
    if (answers_.empty()) {
        if (const auto& line = script_.peek(); !line || !isAnswer(*line))
            return std::nullopt;
        answers_.push_back(cutWord(*script_.take()).second);
        boxes_ = 0;
    }
    auto answer = answers_.front();
    answers_.pop_front();
    return answer;
}

MessageAnswer SessionToolkit::showMessage(const MessageBox& box) {
    MessageAnswer result;
    if (box.buttons.size() > 1) {
        auto answer = nextAnswer().value_or("");
        const auto line = "answer " + answer;
        if (answer == "*" || answer.ends_with(" *")) {
            result.sameForRest = box.offersSameForRest;
            answer.resize(answer.size() - std::min<std::size_t>(answer.size(), 2));
        }
        if (!answer.empty())
            result.button = static_cast<std::size_t>(rowOf(box.buttons, answer, line));
    }
    tellOfBox({{"event", "message"},
               {"text", shownText(box.text)},
               {"title", shownText(box.title)},
               {"buttons", box.buttons},
               {"answer", box.buttons[result.button]}});
    return result;
}

std::optional<std::string> SessionToolkit::askForText(const InputBox& box) {
    auto answer = nextAnswer();
    if (answer && answer->empty())
        answer.reset();
    tellOfBox({{"event", "input"},
               {"text", shownText(box.text)},
               {"title", shownText(box.title)},
               {"preset", shownText(box.preset)},
               {"answer", answer ? Event(toUtf8(*answer)) : Event()}});
    return answer;
}

std::optional<std::string> SessionToolkit::askForFile(const FileDialog& dialog) {
    auto answer = nextAnswer();
    if (answer && answer->empty())
        answer.reset();
    tellOfBox({{"event", "file-dialog"},
               {"title", shownText(dialog.title)},
               {"filter", dialog.filter},
               {"folder", shownText(dialog.folder)},
               {"answer", answer ? Event(toUtf8(*answer)) : Event()}});
    return answer;
}

std::vector<std::string> SessionToolkit::askForFiles(const FileDialog& dialog) {
    if (auto file = askForFile(dialog))
        return {std::move(*file)};
    return {};
}

void SessionToolkit::setClipboard(const std::string& text) {
    transcript_({{"event", "clipboard"}, {"text", shownText(text)}});
}

void SessionToolkit::waitForUser() {
    const auto line = script_.take();
    if (!line)
        throw ScriptEnd();
    boxes_ = 0;
    carryOut(*line);
}

void SessionToolkit::waitForTimer() {
    for (const auto* window : loaded_)
        for (auto* control : window->controls())
            if (auto* timer = dynamic_cast<Timer*>(control); timer && timer->enabled())
                timer->onTick();
}

void SessionToolkit::logged(const std::string& line) {
    // There are as many of these as files, and an initializer list costs more than all the rest.
    Event event;
    event["event"] = "log";
    event["line"] = shownText(line);
    transcript_(event);
}

Window& SessionToolkit::topmost(const std::string& line) const {
    if (windows_.empty())
        throw BadLine(line);
    return *windows_.back();
}

void SessionToolkit::carryOut(const std::string& line) {
    const auto [action, rest] = cutWord(line);
    if (action == "answer") {
        answers_.push_back(rest);
        return;
    }
    if (action == "dump") {
        dump();
        return;
    }
    auto& window = topmost(line);
    if (action == "tab") {
        auto& tabs = controlOf<TabStrip>(window, "tspMain", line);
        tabs.click(rowOf(tabs.captions(), rest, line));
    } else if (action == "mark") {
        mark(window, rest, line);
    } else if (action == "click") {
        click(window, rest, line);
    } else if (action == "pick") {
        pick(window, rest, line);
    } else if (action == "type") {
        type(window, rest, line);
    } else if (action == "close" && window.onClose && window.enabled()) {
        window.onClose();
    } else {
        throw BadLine(line);
    }
}

void SessionToolkit::dump() const {
    auto controls = Event::object();
    for (const auto* window : windows_) {
        auto state = stateOf(static_cast<const Element&>(*window));
        state["title"] = shownText(window->text());
        controls[window->name()] = std::move(state);
        for (const auto* control : window->controls())
            controls[control->name()] = stateOf(*control);
    }
    transcript_({{"event", "state"}, {"controls", std::move(controls)}});
}

void RecordedPrograms::start(const Command& command) {
    constexpr const char* states[] = {"normal", "maximized", "minimized"};
    transcript_({{"event", "start"},
                 {"command", toUtf8(shownCommand(command, disk_))},
                 {"window", states[static_cast<int>(command.window)]}});
}

} // namespace platform::headless
