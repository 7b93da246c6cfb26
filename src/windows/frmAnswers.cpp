// An answer that is both chosen for this run and remembered is one row.
#include "windows/frmAnswers.h"

#include <algorithm>
#include <utility>

#include "platform/text.h"
#include "preview_rows.h"

namespace windows {
namespace {

std::string placeText(const std::string& place) {
    return place.empty() ? "everything" : platform::shownPath(place);
}

std::string keyOf(const cycle::Decision& decision) {
    return placeText(decision.place) + ": " + nameOf(decision.winner) + ", not " +
           nameOf(decision.loser);
}

} // namespace

frmAnswers::frmAnswers(Toolkit& toolkit, Basis basis)
    : Window("frmAnswers", "Remembered Answers"), toolkit_(toolkit), basis_(std::move(basis)) {
    treAnswers.onPick = [this] { showCommands(); };
    cmdForget.onClick = [this] { cmdForget_Click(); };
    cmdForgetAll.onClick = [this] { cmdForgetAll_Click(); };
    cmdDone.onClick = [this] { Form_Unload(); };
    onClose = [this] { Form_Unload(); };
    defaultButton = &cmdDone;
    toolkit_.load(*this);
}

frmAnswers::~frmAnswers() {
    toolkit_.unload(*this);
}

void frmAnswers::Form_Load() {
    showAnswers();
    toolkit_.showModal(*this);
}

void frmAnswers::Form_Unload() {
    toolkit_.hide(*this);
}

void frmAnswers::showAnswers() {
    answers_ = basis_.remembered.all();
    const auto remembered = answers_.size();
    for (auto& decision : basis_.chosen.all())
        if (std::ranges::find(answers_, keyOf(decision), keyOf) == answers_.end())
            answers_.push_back(std::move(decision));
    std::vector<TreeList::Row> rows;
    for (const auto& answer : answers_)
        rows.push_back({keyOf(answer),
                        -1,
                        {placeText(answer.place), nameOf(answer.winner), nameOf(answer.loser),
                         rows.size() < remembered ? "every launch" : "this launch"}});
    treAnswers.setRows(std::move(rows));
    lblAnswers.setText(answers_.empty() ? "No answers are remembered."
                                        : "These are not asked about:");
    showCommands();
}

void frmAnswers::showCommands() {
    cmdForget.setIdle(treAnswers.current() == nullptr);
    cmdForgetAll.setIdle(answers_.empty());
}

void frmAnswers::cmdForget_Click() {
    const int at = treAnswers.index();
    if (at < 0)
        return;
    for (auto* decisions : {&basis_.chosen, &basis_.remembered})
        decisions->forget(answers_[static_cast<std::size_t>(at)]);
    basis_.saveAnswers();
    showAnswers();
}

void frmAnswers::cmdForgetAll_Click() {
    if (!basis_.questions.askWhetherSure("Are you sure you want to forget all answers?\r\n\r\n"
                                         "You will be asked about these files again."))
        return;
    for (auto* decisions : {&basis_.chosen, &basis_.remembered})
        decisions->clear();
    basis_.saveAnswers();
    showAnswers();
}

} // namespace windows
