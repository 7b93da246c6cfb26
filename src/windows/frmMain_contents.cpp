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

/// The first map with a picture, or else the first one; of units alone likewise.
template <typename Piece>
Piece firstOf(const releases::Contents& contents) {
    const auto has = [](const auto& each) { return each.picture != nullptr; };
    const auto first = [&](const auto& all) {
        const auto at = std::ranges::find_if(all, has);
        return at == all.end() ? std::size_t{0} : static_cast<std::size_t>(at - all.begin());
    };
    const bool isUnit = contents.maps.empty();
    return {isUnit, isUnit ? first(contents.units) : first(contents.maps)};
}

std::string faultsText(const std::vector<std::string>& faults) {
    if (faults.empty())
        return "";
    const auto more = faults.size() - 1;
    return faults.front() + (more == 0 ? "" : " (" + std::to_string(more) + " more)");
}

} // namespace

void frmMain::wireContents() {
    lstList.factsOf = [this](const std::string& name) {
        const auto known = known_.find(name);
        return known == known_.end() ? nullptr : &known->second.maps;
    };
    lstList.pictureOf = [this](const std::string& name) { return pictureOf(name); };
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

/// Of maps all that is listed is looked into: players and size stand beside their names. Of other
/// releases only what is asked for.
bool frmMain::isLookedThrough() const {
    return askedFor_.empty() &&
           (currentType().type != releases::ReleaseType::map || nextName_ >= listed_.size());
}

/// What was shown goes at once; what is found comes by the timer. An empty name is no release.
void frmMain::lookInto(const std::string& name) {
    const bool isSomething = !name.empty() && !releases::isDefaultRelease(name);
    lookedInto_ = isSomething ? store_.pathOf(currentType().type, name) : "";
    contents_.reset();
    piece_ = {};
    isWanted_ = true;
    if (isSomething || !isLookedThrough())
        tmrContents.setEnabled(true);
}

/// Another list, or the same one of other releases.
void frmMain::forgetFound() {
    known_.clear();
    withPicture_.clear();
    askedFor_.clear();
    looked_.clear();
    nextName_ = 0;
    untold_ = 0;
    lookInto("");
}

/// Whatever changes files of releases, or of the game, comes behind this.
void frmMain::stopLooking() {
    tmrContents.setEnabled(false);
    // What was wanted and is not found is to be wanted once more.
    nextName_ = 0;
    isWanted_ = true;
    if (worker_ != nullptr)
        worker_->stop();
}

void frmMain::goOnLooking() {
    isWanted_ = true;
    tmrContents.setEnabled(!lookedInto_.empty() || !isLookedThrough());
}

/// A user who runs through the list has passed most of the releases by the time of the tick.
void frmMain::tmrContents_Timer() {
    if (resting())
        return tmrContents.setEnabled(false);
    if (worker_ == nullptr)
        worker_ = std::make_unique<releases::ContentsWorker>(game_);
    for (auto& found : worker_->take()) {
        if (const auto name = looked_.find(found.path); name != looked_.end())
            noteFound(name->second, *found.contents);
        if (found.path != lookedInto_)
            continue;
        contents_ = std::move(found.contents);
        piece_ = firstOf<Piece>(*contents_);
        showUnits();
        showContents();
    }
    if (std::exchange(isWanted_, false) || !worker_->isBusy())
        lookFurther();
    const bool isBusy = worker_->isBusy();
    constexpr int many = 64;
    if (untold_ > 0 && (!isBusy || untold_ >= many)) {
        untold_ = 0;
        lstList.tellFacts();
    }
    tmrContents.setEnabled(isBusy);
}

/// The release at hand comes first, then what is seen, then the rest of the list, some at a time.
void frmMain::lookFurther() {
    constexpr std::size_t most = 24;
    std::vector<std::string> wanted;
    looked_.clear();
    const auto want = [&](const std::string& name) {
        auto path = store_.pathOf(currentType().type, name);
        looked_.emplace(path, name);
        wanted.push_back(std::move(path));
    };
    if (!lookedInto_.empty() && contents_ == nullptr) {
        wanted.push_back(lookedInto_);
        looked_.emplace(lookedInto_, current_.value_or(""));
    }
    while (!askedFor_.empty() && wanted.size() < most) {
        want(askedFor_.front());
        askedFor_.erase(askedFor_.begin());
    }
    if (currentType().type == releases::ReleaseType::map)
        for (; nextName_ < listed_.size() && wanted.size() < most; ++nextName_)
            if (!known_.contains(listed_[nextName_]))
                want(listed_[nextName_]);
    worker_->want(std::move(wanted));
}

void frmMain::noteFound(const std::string& name, const releases::Contents& contents) {
    constexpr std::size_t mostPictures = 600;
    auto& known = known_[name];
    known.maps.clear();
    for (const auto& map : contents.maps)
        known.maps.push_back({map.info.players, map.info.size, formats::playersText(map.info)});
    const auto first = firstOf<Piece>(contents);
    if (first.isUnit && !contents.units.empty())
        known.picture = contents.units[first.number].picture;
    else if (!first.isUnit)
        known.picture = contents.maps[first.number].picture;
    known.hasPicture = known.picture != nullptr;
    if (known.hasPicture)
        withPicture_.push_back(name);
    if (withPicture_.size() > mostPictures) {
        known_[withPicture_.front()].picture.reset();
        withPicture_.pop_front();
    }
    ++untold_;
}

/// One that is not known is found out of turn.
std::shared_ptr<const formats::Picture> frmMain::pictureOf(const std::string& name) {
    constexpr std::size_t mostAsked = 200;
    const auto known = known_.find(name);
    if (known != known_.end() && (known->second.picture != nullptr || !known->second.hasPicture))
        return known->second.picture;
    if (std::ranges::find(askedFor_, name) == askedFor_.end()) {
        askedFor_.insert(askedFor_.begin(), name);
        askedFor_.resize(std::min(askedFor_.size(), mostAsked));
        if (!tmrContents.enabled())
            tmrContents.setEnabled(true);
    }
    return nullptr;
}

/// While the next release is looked into the pane keeps its room, so that nothing jumps.
void frmMain::showContents() {
    const bool isAwaited = contents_ == nullptr && !lookedInto_.empty();
    put(lblContents, contents_ == nullptr ? "" : releases::summaryText(*contents_));
    if (contents_ == nullptr) {
        picContents.setPicture(nullptr, "");
        put(lblPiece, "");
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
    for (auto* control : std::initializer_list<Control*>{&picContents, &lblPiece, &lblFacts})
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
        put(lblPiece, unit.name);
        put(lblFacts, releases::factsText(unit));
    } else {
        const auto& map = maps[piece_.number];
        picContents.setPicture(map.picture, releases::spokenText(map));
        put(lblPiece, map.name);
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
