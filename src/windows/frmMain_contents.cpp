// What the release at hand brings: asked for when it is shown, taken from the worker when it is
// found, and shown above its text. Nobody waits for any of it.
#include <algorithm>

#include "platform/text.h"
#include "windows/frmMain.h"
#include "windows/frmPicture.h"

namespace windows {
namespace {

/// A text set anew would be shown anew.
void put(Element& element, const std::string& text) {
    if (element.text() != text)
        element.setText(text);
}

void putVisible(Element& element, bool visible) {
    if (element.visible() != visible)
        element.setVisible(visible);
}

std::string numberText(const std::optional<std::int64_t>& number) {
    return number ? std::to_string(*number) : "";
}

std::string faultsText(const std::vector<std::string>& faults) {
    if (faults.empty())
        return "";
    const auto more = faults.size() - 1;
    return faults.front() + (more == 0 ? "" : " (" + std::to_string(more) + " more)");
}

} // namespace

void frmMain::wireContents() {
    tmrContents.onTick = [this] { tmrContents_Timer(); };
    cmdPrevious.onClick = [this] { cmdPrevious_Click(); };
    cmdNext.onClick = [this] { cmdNext_Click(); };
    treUnits.onPick = [this] { treUnits_Pick(); };
    picContents.onClick = [this] { picContents_Click(); };
    for (auto* control :
         std::initializer_list<Control*>{&fraContents, &picContents, &lblFacts, &cmdPrevious,
                                         &lblWhich, &cmdNext, &treUnits, &lblFaults})
        control->setVisible(false);
}

/// What was shown goes at once; what is found comes by the timer. An empty name is no release.
void frmMain::lookInto(const std::string& name) {
    const bool isSomething = !name.empty() && !releases::isDefaultRelease(name);
    lookedInto_ = isSomething ? store_.pathOf(currentType().type, name) : "";
    contents_.reset();
    piece_ = {};
    isWanted_ = true;
    if (isSomething)
        tmrContents.setEnabled(true);
}

/// Whatever changes files of releases, or of the game, comes behind this.
void frmMain::stopLooking() {
    tmrContents.setEnabled(false);
    if (worker_ != nullptr)
        worker_->stop();
}

void frmMain::goOnLooking() {
    isWanted_ = true;
    tmrContents.setEnabled(!lookedInto_.empty());
}

/// A user who runs through the list has passed most of the releases by the time of the tick.
void frmMain::tmrContents_Timer() {
    if (resting())
        return tmrContents.setEnabled(false);
    if (worker_ == nullptr)
        worker_ = std::make_unique<releases::ContentsWorker>(game_);
    if (std::exchange(isWanted_, false))
        worker_->want(lookedInto_.empty() ? std::vector<std::string>()
                                          : std::vector<std::string>{lookedInto_});
    for (auto& found : worker_->take())
        if (found.path == lookedInto_) {
            contents_ = std::move(found.contents);
            piece_ = {contents_->maps.empty(), 0};
            showUnits();
            showContents();
        }
    tmrContents.setEnabled(worker_->isBusy());
}

/// While the next release is looked into the pane keeps its room, so that nothing jumps.
void frmMain::showContents() {
    const bool isAwaited = contents_ == nullptr && !lookedInto_.empty();
    put(lblContents, contents_ == nullptr ? "" : releases::summaryText(*contents_));
    if (contents_ == nullptr) {
        picContents.setPicture(nullptr, "");
        put(lblFacts, "");
        put(lblWhich, "");
        put(lblFaults, "");
        cmdPrevious.setIdle(true);
        cmdNext.setIdle(true);
    }
    if (isAwaited)
        return;
    static const releases::Contents nothing;
    const auto& contents = contents_ == nullptr ? nothing : *contents_;
    const bool hasPiece = !contents.maps.empty() || !contents.units.empty();
    putVisible(fraContents, hasPiece || !contents.faults.empty());
    for (auto* control : std::initializer_list<Control*>{&picContents, &lblFacts})
        putVisible(*control, hasPiece);
    for (auto* control : std::initializer_list<Control*>{&cmdPrevious, &lblWhich, &cmdNext})
        putVisible(*control, contents.maps.size() > 1);
    putVisible(treUnits, !contents.units.empty());
    put(lblFaults, faultsText(contents.faults));
    putVisible(lblFaults, !contents.faults.empty());
    if (hasPiece)
        showPiece();
}

void frmMain::showPiece() {
    const auto& maps = contents_->maps;
    if (piece_.isUnit) {
        const auto& unit = contents_->units[piece_.number];
        picContents.setPicture(unit.picture, releases::spokenText(unit));
        put(lblFacts, releases::factsText(unit));
    } else {
        const auto& map = maps[piece_.number];
        picContents.setPicture(map.picture, releases::spokenText(map));
        put(lblFacts, releases::factsText(map));
    }
    picContents.setIdle(picContents.picture() == nullptr);
    put(lblWhich, maps.empty() ? ""
                               : "Map " + std::to_string(piece_.isUnit ? 1 : piece_.number + 1) +
                                     " of " + std::to_string(maps.size()));
    cmdPrevious.setIdle(!piece_.isUnit && piece_.number == 0);
    cmdNext.setIdle(!piece_.isUnit && piece_.number + 1 >= maps.size());
}

void frmMain::showUnits() {
    std::vector<TreeList::Row> rows;
    for (const auto& unit : contents_->units) {
        TreeList::Row row;
        row.key = platform::toUtf8(unit.path);
        row.texts = {platform::toUtf8(unit.name), platform::toUtf8(unit.info.description),
                     platform::toUtf8(unit.info.side), numberText(unit.info.energy),
                     numberText(unit.info.metal)};
        rows.push_back(std::move(row));
    }
    treUnits.setRows({});
    treUnits.setRows(std::move(rows));
}

/// From a unit the way leads back to the maps.
void frmMain::cmdPrevious_Click() {
    if (contents_ == nullptr || contents_->maps.empty())
        return;
    piece_ = {false, piece_.isUnit ? 0 : piece_.number - std::min<std::size_t>(piece_.number, 1)};
    showContents();
}

void frmMain::cmdNext_Click() {
    if (contents_ == nullptr || contents_->maps.empty())
        return;
    piece_ = {false, piece_.isUnit ? 0 : std::min(piece_.number + 1, contents_->maps.size() - 1)};
    showContents();
}

void frmMain::treUnits_Pick() {
    if (contents_ == nullptr || treUnits.index() < 0)
        return;
    piece_ = {true, static_cast<std::size_t>(treUnits.index())};
    showContents();
}

void frmMain::picContents_Click() {
    if (picContents.picture() == nullptr)
        return;
    frmPicture large(toolkit(), picContents.picture(), picContents.text());
    toolkit().showModal(large);
}

} // namespace windows
