// Boxes carry the program's title.
#include "windows/ask_user.h"

#include "platform/text.h"
#include "windows/title.h"

namespace windows {
std::size_t AskUser::ask(const platform::Question& question, platform::MessageRow* row) {
    if (row != nullptr && row->answerForRest()) {
        const auto known = *row->answerForRest();
        const auto answered = platform::inOneLine(question.text) + ": " + question.buttons[known];
        if (row->hasLog())
            log_.tellAnsweredAlike(answered);
        else
            toolkit_.logged(answered);
        return known;
    }
    const auto answer =
        toolkit_.showMessage({question.text, applicationTitle, question.buttons,
                              row != nullptr && row->offersSameForRest(), question.defaultButton,
                              question.detail, question.warns});
    if (row != nullptr) {
        row->noteShown();
        if (answer.sameForRest)
            row->answerRest(answer.button);
    }
    return answer.button;
}

} // namespace windows
