// The one door for questions to the user.
#include "engine/frmMain.h"
#include "platform/text.h"

namespace engine {

void frmMain::tell(const std::string& text) {
    toolkit().showMessage({text, appTitle_, {"OK"}});
}

bool frmMain::askYesNo(const std::string& text) {
    return toolkit().showMessage({text, appTitle_, {"Yes", "No"}}).button == 0;
}

/// Asks, unless an earlier box of the row was answered for the rest; then the log tells of it.
std::size_t frmMain::askInRow(MessageRow& row, const std::string& text,
                              std::vector<std::string> buttons) {
    if (const auto& known = row.answerForRest()) {
        const auto answered = platform::replaceAll(platform::replaceAll(text, "\r\n\r\n", " "),
                                                   platform::lineBreak, " ") +
                              ": " + buttons[*known];
        if (!row.hasLog())
            toolkit().logged(answered);
        else if (showReadme_.visible())
            showReadme_.appendLogLine(answered);
        else
            answeredAlike_.push_back(answered);
        return *known;
    }
    const auto answer =
        toolkit().showMessage({text, appTitle_, std::move(buttons), row.offersSameForRest()});
    row.noteShown();
    if (answer.sameForRest)
        row.answerRest(answer.button);
    return answer.button;
}

} // namespace engine
