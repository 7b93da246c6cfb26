// Each choice works the preview out anew, so that what is shown is always what the launch would do.
#include "windows/frmPreview.h"

#include <algorithm>
#include <utility>

#include "platform/text.h"
#include "preview_rows.h"
#include "releases/tally.h"
#include "windows/frmAnswers.h"

namespace windows {

using cycle::Owner;
using cycle::Reach;

frmPreview::frmPreview(Toolkit& toolkit, Basis basis)
    : Window("frmPreview", "Preview"), toolkit_(toolkit), basis_(std::move(basis)) {
    chkConflicts.onClick = [this] { showFiles(); };
    cmdRefresh.onClick = [this] { workOut(); };
    treFiles.onPick = [this] { treFiles_Pick(); };
    treRivals.onPick = [this] { showPlace(); };
    cmdFile.onClick = [this] { use(Reach::file); };
    cmdFolder.onClick = [this] { use(Reach::folder); };
    cmdEverywhere.onClick = [this] { use(Reach::everywhere); };
    cmdAsk.onClick = [this] { cmdAsk_Click(); };
    cmdAnswers.onClick = [this] { cmdAnswers_Click(); };
    cmdDone.onClick = [this] { Form_Unload(); };
    onClose = [this] { Form_Unload(); };
    defaultButton = &cmdDone;
    toolkit_.load(*this);
}

frmPreview::~frmPreview() {
    toolkit_.unload(*this);
}

void frmPreview::Form_Load() {
    workOut();
    toolkit_.showModal(*this);
}

void frmPreview::Form_Unload() {
    toolkit_.hide(*this);
}

void frmPreview::workOut() {
    preview_ = cycle::makePreview(basis_.game, basis_.selection, basis_.unfinished, &basis_.chosen,
                                  &basis_.remembered);
    lblFigures.setText(figuresOf(preview_));
    showFiles();
}

void frmPreview::showFiles() {
    treFiles.setRows(treeOf(preview_, chkConflicts.checked()));
    treFiles_Pick();
}

const cycle::Preview::File* frmPreview::currentFile() const {
    const auto* row = treFiles.current();
    if (row == nullptr)
        return nullptr;
    const auto file = std::ranges::find_if(preview_.files, [&](const auto& each) {
        return platform::shownPath(each.path) == row->key;
    });
    return file == preview_.files.end() ? nullptr : &*file;
}

const Owner* frmPreview::currentRival() const {
    const int at = treRivals.index();
    return at < 0 || static_cast<std::size_t>(at) >= rivals_.size()
               ? nullptr
               : &rivals_[static_cast<std::size_t>(at)];
}

void frmPreview::treFiles_Pick() {
    const auto* file = currentFile();
    rivals_ = file == nullptr ? std::vector<Owner>() : file->contenders();
    std::vector<TreeList::Row> rows;
    for (const auto& rival : rivals_)
        rows.push_back({nameOf(rival), -1, {nameOf(rival), fateOf(*file, rival)}});
    treRivals.setRows(std::move(rows));
    showPlace();
}

void frmPreview::showPlace() {
    const auto* file = currentFile();
    lblPlace.setText(file == nullptr
                         ? "Pick a file to see who brings it."
                         : platform::shownPath(file->path) + ", " + releases::sizeText(file->size) +
                               ", now at " + platform::shownPath(file->from));
    const bool canChoose = rivals_.size() > 1 && currentRival() != nullptr;
    const bool isAtRoot = file == nullptr || file->path.find('\\') == std::string::npos;
    cmdFile.setIdle(!canChoose);
    cmdFolder.setIdle(!canChoose || isAtRoot);
    cmdEverywhere.setIdle(!canChoose);
    cmdAsk.setIdle(file == nullptr || std::ranges::none_of(file->rivals, [](const auto& rival) {
                       return rival.why == cycle::Why::chosen ||
                              rival.why == cycle::Why::remembered;
                   }));
}

void frmPreview::use(Reach reach) {
    const auto* file = currentFile();
    const auto* rival = currentRival();
    if (file == nullptr || rival == nullptr)
        return;
    for (const auto& decision : cycle::decisionsFor(*file, *rival, reach)) {
        basis_.chosen.decideThroughout(decision);
        if (chkRemember.checked())
            basis_.remembered.decideThroughout(decision);
    }
    if (chkRemember.checked())
        basis_.saveAnswers();
    workOut();
}

/// Nothing that is known decides this place any more.
void frmPreview::cmdAsk_Click() {
    const auto* file = currentFile();
    if (file == nullptr)
        return;
    for (auto* decisions : {&basis_.chosen, &basis_.remembered})
        for (const auto& one : rivals_)
            for (const auto& other : rivals_)
                if (one < other)
                    decisions->forgetAt(file->path, one, other);
    basis_.saveAnswers();
    workOut();
}

void frmPreview::cmdAnswers_Click() {
    {
        frmAnswers answers(toolkit_, {basis_.chosen, basis_.remembered, basis_.game.questions(),
                                      basis_.saveAnswers});
        answers.Form_Load();
    }
    workOut();
}

} // namespace windows
