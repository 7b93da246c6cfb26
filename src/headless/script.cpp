// Lines and words of a script.
#include "headless/script.h"

#include "platform/text.h"

namespace headless {

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

std::pair<std::string, std::string> cutWord(const std::string& line) {
    const auto blank = line.find(' ');
    if (blank == std::string::npos)
        return {line, ""};
    return {line.substr(0, blank), line.substr(blank + 1)};
}

std::string typedText(std::string_view text) {
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto pair = text.substr(i, 2);
        if (pair == "\\n")
            result += platform::lineBreak;
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

} // namespace headless
