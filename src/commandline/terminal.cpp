// Texts of the program have its own line breaks, and names may have any byte in them.
#include "terminal.h"

#include <algorithm>

#include "platform/text.h"

namespace commandline {

std::string printable(std::string_view text) {
    auto shown = platform::replaceAll(platform::toUtf8(text), platform::lineBreak, "\n");
    std::ranges::replace_if(
        shown,
        [](char c) { return (static_cast<unsigned char>(c) < ' ' && c != '\n') || c == '\x7F'; },
        '?');
    return shown;
}

std::size_t TerminalQuestions::ask(const platform::Question& question,
                                   platform::MessageRow* /*row*/) {
    errors_ << printable(question.text);
    if (!question.detail.empty())
        errors_ << '\n' << printable(question.detail);
    auto button = question.defaultButton;
    if (question.buttons.size() == 1)
        ++told_;
    else if (!answer_)
        ++open_;
    else {
        const auto at = std::ranges::find(question.buttons, *answer_ ? "Yes" : "No");
        if (at != question.buttons.end())
            button = static_cast<std::size_t>(at - question.buttons.begin());
    }
    if (question.buttons.size() > 1)
        errors_ << " -> " << question.buttons[button];
    errors_ << '\n';
    return button;
}

std::size_t QuestionList::ask(const platform::Question& question, platform::MessageRow* /*row*/) {
    texts_.push_back(question.text);
    return question.defaultButton;
}

} // namespace commandline
