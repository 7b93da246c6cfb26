// Boxes carry the program's title.
#include "windows/ask_user.h"

#include "platform/text.h"
#include "windows/title.h"

namespace windows {
namespace {

std::string inOneLine(const platform::Question& question, std::size_t button) {
    return platform::inOneLine(question.text) + ": " + question.buttons[button];
}

} // namespace

std::size_t AskUser::ask(const platform::Question& question, platform::MessageRow* row) {
    if (row != nullptr && row->answerForRest()) {
        const auto known = *row->answerForRest();
        const auto answered = inOneLine(question, known);
        if (question.remember != nullptr)
            *question.remember = row->remembersRest();
        if (row->hasLog())
            log_.tellAnsweredAlike(answered);
        else
            toolkit_.logged(answered);
        return known;
    }
    const auto answer =
        toolkit_.showMessage({question.text, applicationTitle, question.buttons,
                              row != nullptr && row->offersSameForRest(), question.defaultButton,
                              question.detail, question.warns, question.remember != nullptr});
    if (question.remember != nullptr)
        *question.remember = answer.remember;
    if (row != nullptr) {
        row->noteShown();
        if (answer.sameForRest) {
            row->answerRest(answer.button);
            row->setRemembersRest(answer.remember);
        }
    }
    return answer.button;
}

void AskUser::noteAnswered(const platform::Question& question, std::size_t button) {
    log_.tellAnsweredAlike(inOneLine(question, button));
}

} // namespace windows
