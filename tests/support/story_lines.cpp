// Events and states as the lines of a story tell them.
#include "support/story_lines.h"

#include "platform/text.h"
#include "support/system.h"

namespace test {

using platform::replaceAll;

bool matches(std::string_view pattern, std::string_view text) {
    const auto gap = pattern.find("...");
    if (gap == std::string_view::npos)
        return pattern == text;
    if (!text.starts_with(pattern.substr(0, gap)))
        return false;
    const auto rest = pattern.substr(gap + 3);
    for (auto at = gap; at <= text.size(); ++at)
        if (matches(rest, text.substr(at)))
            return true;
    return false;
}

std::string expectedHere(std::string line) {
    if (!onWindows)
        return line;
    line = replaceAll(line, "start xdg-open ", "start open ");
    return replaceAll(replaceAll(line, "start wine ", "start "), "\\", "/");
}

std::string scriptHere(const std::string& line, const std::string& folder) {
    const auto here = replaceAll(line, "GAME/", folder + "/");
    // A row is named by what it shows.
    const bool namesPath = line.starts_with("mark GAME/") || line.starts_with("pick treFiles ");
    return onWindows && namesPath ? replaceAll(here, "/", "\\") : here;
}

namespace {

std::string told(const Event& value) {
    return value.is_null() ? "(cancelled)" : value.get<std::string>();
}

std::string messageLine(const Event& event) {
    return told(event["text"]) + (event.contains("detail") ? " | " + told(event["detail"]) : "") +
           (event["buttons"].size() > 1 ? " -> " + told(event["answer"]) : "");
}

} // namespace

std::string lineOf(const Event& event, const std::string& folder) {
    const auto kind = event["event"].get<std::string>();
    std::string line = kind + " ";
    if (kind == "show")
        line += told(event["window"]) + " " + told(event["title"]) +
                (event["modal"].get<bool>() ? " (modal)" : "");
    else if (kind == "hide" || kind == "minimize" || kind == "restore")
        line += told(event["window"]);
    else if (kind == "log" || kind == "refused" || kind == "out" || kind == "error")
        line += told(event["line"]);
    else if (kind == "exit")
        line += told(event["code"]);
    else if (kind == "clipboard")
        line += told(event["text"]);
    else if (kind == "message")
        line += messageLine(event);
    else if (kind == "input")
        line +=
            told(event["text"]) + " [" + told(event["preset"]) + "] -> " + told(event["answer"]);
    else if (kind == "file-dialog")
        line += told(event["title"]) + " -> " + told(event["answer"]);
    else if (kind == "start")
        line += told(event["command"]) + " " + told(event["window"]);
    return inPosixWords(replaceAll(replaceAll(line, "\n", "\\n"), folder, "GAME"));
}

bool mayGoUntold(const Event& event) {
    const auto kind = event["event"].get<std::string>();
    return kind == "show" || kind == "hide" || kind == "minimize" || kind == "restore" ||
           kind == "log" || kind == "out";
}

std::string stateText(const Event& state, const std::string& field) {
    if (field == "items") {
        std::string items;
        for (const auto& item : state["items"])
            items += (items.empty() ? "" : ", ") + item["text"].get<std::string>() +
                     (item["marked"].get<bool>() ? "*" : "");
        return items;
    }
    const auto& value = state[field];
    return value.is_string() ? replaceAll(value.get<std::string>(), "\n", "\\n") : value.dump();
}

} // namespace test
