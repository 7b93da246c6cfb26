// Each choice works the preview out anew, so that what is shown is always what the launch would do.
#include "windows/frmPreview.h"

#include <algorithm>
#include <utility>

#include "platform/text.h"
#include "preview_rows.h"
#include "releases/tally.h"
#include "windows/frmAnswers.h"
#include "windows/frmShowReadme.h"

namespace windows {

using cycle::Owner;
using cycle::Reach;

namespace {

/// Of archives, in bytes, that nobody has to wait for.
constexpr std::uint64_t mostAtOnce = 64ULL * 1024 * 1024;

/// Lets the windows live while work goes on that shows nothing of itself.
class KeepsAlive final : public platform::Log {
  public:
    explicit KeepsAlive(Toolkit& toolkit) : toolkit_(toolkit) {}
    void stage(const std::string& /*text*/) override { breathe(); }
    void line(const std::string& /*text*/) override { breathe(); }
    void breathe() override { toolkit_.doEvents(); }

  private:
    Toolkit& toolkit_;
};

} // namespace

frmPreview::frmPreview(Toolkit& toolkit, Basis basis)
    : Window("frmPreview", "Preview"), toolkit_(toolkit), basis_(std::move(basis)) {
    chkConflicts.onClick = [this] { showFiles(); };
    cmdRefresh.onClick = [this] {
        reports_.reset();
        workOut();
    };
    treFiles.onPick = [this] { treFiles_Pick(); };
    treRivals.onPick = [this] { showPlace(); };
    cmdFile.onClick = [this] { use(Reach::file); };
    cmdFolder.onClick = [this] { use(Reach::folder); };
    cmdEverywhere.onClick = [this] { use(Reach::everywhere); };
    cmdAsk.onClick = [this] { cmdAsk_Click(); };
    cmdAnswers.onClick = [this] { cmdAnswers_Click(); };
    lblReportsLink.onClick = [this] { lblReportsLink_Click(); };
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
    askForReports();
}

/// Many archives are looked through when the user wishes it.
void frmPreview::askForReports() {
    auto archives = conflict::archivesOf(basis_.game, preview_);
    const auto isSame = [](const auto& one, const auto& other) {
        return one.name == other.name && one.path == other.path;
    };
    if (reports_ && std::ranges::equal(archives, archives_, isSame))
        return;
    archives_ = std::move(archives);
    reports_.reset();
    std::uint64_t bytes = 0;
    for (const auto& archive : archives_)
        bytes += basis_.game.disk().factsOf(archive.path).size;
    lblReports.setText("Archives: " + std::string(archives_.empty() ? "there are none."
                                                                    : "not looked through yet."));
    lblReportsLink.setText("Look Through Them");
    lblReportsLink.setVisible(!archives_.empty());
    if (!archives_.empty() && bytes <= mostAtOnce)
        makeReports();
}

void frmPreview::makeReports() {
    lblReportsLink.setVisible(false);
    lblReports.setText("Archives: looking through them...");
    KeepsAlive log(toolkit_);
    reports_ = conflict::reportOnArchives(basis_.game.disk(), archives_, log,
                                          {.compressMenus = basis_.selection.modifier.compress});
    lblReports.setText("Archives: " + reports_->summary());
    lblReportsLink.setText("Show");
    lblReportsLink.setVisible(!reports_->empty());
}

void frmPreview::lblReportsLink_Click() {
    if (!reports_)
        makeReports();
    if (!reports_->empty())
        frmShowReadme(toolkit_).showReport("Archives", "What the chosen archives define twice",
                                           {reports_->text(), reports_->summary(), {}},
                                           basis_.game.questions());
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
