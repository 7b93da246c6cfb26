// Tabs and clicks in the list: how the one TC and the one AI stay single, the others multiple, and
// what becomes the release at hand.
#include <algorithm>
#include <unordered_set>

#include "formats/codes.h"
#include "windows/frmMain.h"

namespace windows {
namespace {

std::string missingMessage(const std::string& name, const releases::TypeInfo& type) {
    const std::string several(type.several);
    return "The \"" + name + "\" " + std::string(type.one) +
           " is listed as selected but could not be found.\r\n\r\nVexillum has removed it from "
           "the selected " +
           several + " list, but reminds you that you should disable ALL " + several +
           " before adding or removing any.";
}

} // namespace

const releases::TypeInfo& frmMain::currentType() const {
    return *releases::typeOfTab(tspMain.caption());
}

std::string frmMain::getShortSelType() const {
    return std::string(currentType().shortName);
}

std::string frmMain::getLongSelType() const {
    const auto& caption = tspMain.caption();
    return caption.substr(0, caption.size() - 1);
}

bool frmMain::isListed(std::string_view name) const {
    return std::find(listed_.begin(), listed_.end(), name) != listed_.end();
}

void frmMain::tspMain_Click() {
    doList();
    show();
}

/// Fills the list of the current tab. One procedure for all types, whose rows say what differs.
void frmMain::doList() {
    const auto& type = currentType();
    listed_ = store_.releasesOf(type.type);
    listWasFilled_ = true;
    lstList.clear();
    current_.reset();
    tally_.reset();
    lblTally.setText("");
    forgetFound();
    if (!counts_.empty())
        counts_[static_cast<std::size_t>(type.tab)] = static_cast<int>(listed_.size());
    if (type.isSingle())
        return pickListItem(std::nullopt);
    dropMissingNames();
    opened_[static_cast<std::size_t>(type.tab)] = true;
    panes_.heading = type.aboutHeading;
    panes_.about = type.about;
    panes_.offersFiles = false;
    panes_.offersRemoval = false;
}

void frmMain::countReleases() {
    counts_.clear();
    for (const auto* type : releases::typesByTab())
        counts_.push_back(store_.countOf(type->type));
}

void frmMain::dropMissingNames() {
    const auto& type = currentType();
    const std::unordered_set<std::string_view> there(listed_.begin(), listed_.end());
    const auto chosen = selection_.namesOf(type.type);
    platform::MessageRow missing;
    for (const auto& name : std::vector<std::string>(chosen.begin(), chosen.end())) {
        if (there.contains(name) || newNames_.contains({type.type, name}))
            continue;
        show();
        ask_.tell(missingMessage(name, type), &missing);
        selection_.takeOut(type.type, name);
    }
}

void frmMain::lstList_Click(const std::string& name) {
    const auto& type = currentType();
    // A total conversion is a new ground: nothing chosen for another one stays.
    if (type.type == releases::ReleaseType::tc)
        revertSels(false);
    else
        cleared_.reset();
    // It is the mark that is seen which is turned over.
    if (!type.isSingle()) {
        if (lstList.marked(lstList.find(name)))
            selection_.takeOut(type.type, name);
        else
            selection_.add(type.type, name);
    }
    panes_.offersFiles = true;
    pickListItem(name);
    panes_.offersRemoval = !releases::isDefaultRelease(name);
    show();
}

/// Looking at a release neither ticks it nor holds it against anything.
void frmMain::lstList_Read(const std::string& name) {
    current_ = name;
    panes_.offersFiles = true;
    panes_.offersRemoval = !releases::isDefaultRelease(name);
    showTexts(name);
    show(List::stays);
}

void frmMain::lstList_MarkAll(const std::vector<std::string>& names, bool marked) {
    const auto type = currentType().type;
    if (currentType().isSingle())
        return;
    std::vector<std::string> others;
    for (const auto& name : names)
        if (selection_.has(type, name) != marked)
            others.push_back(name);
    if (marked)
        leaveOutMisfits(others);
    cleared_.reset();
    if (!marked && !others.empty())
        cleared_ = {selection_, static_cast<int>(others.size()), false};
    for (const auto& name : others)
        if (marked)
            selection_.add(type, name);
        else
            selection_.takeOut(type, name);
    show();
}

/// One question for all of them.
void frmMain::leaveOutMisfits(std::vector<std::string>& names) {
    if (tcCCodes.empty())
        return;
    std::vector<std::string> fit;
    for (const auto& name : names) {
        const auto codes = store_.textsOf(currentType().type, name).codes;
        if (!codes || formats::areCompatible(*codes, tcCCodes))
            fit.push_back(name);
    }
    const auto misfits = names.size() - fit.size();
    if (misfits > 0 && ask_.askYesNo(std::to_string(misfits) + " of the " +
                                     std::to_string(names.size()) + " " + tspMain.caption() +
                                     " are not listed as compatible with the currently selected TC."
                                     "\r\n\r\nWould you like to leave them out?"))
        names = std::move(fit);
}

/// Makes a release the one at hand. Without a name it is the one that is chosen, of the types with
/// one choice. An AI that is turned down gives way to the default one, which may be asked about in
/// its turn.
void frmMain::pickListItem(const std::optional<std::string>& name) {
    const auto& type = currentType();
    auto wanted = name;
    do {
        if (!wanted)
            wanted = releases::displayForm(selection_.theOne(type.type));
        // The choice may name a release that is gone: nothing is there to mark or to show.
        current_ = isListed(*wanted) ? wanted : std::nullopt;
        if (!current_)
            return;
        choose(*current_);
        if (showInfo(*current_) == Fits::yes)
            return;
        wanted.reset();
        if (isListed(type.defaultName))
            wanted = type.defaultName;
    } while (type.isSingle());
}

void frmMain::choose(const std::string& name) {
    const auto& type = currentType();
    opened_[static_cast<std::size_t>(type.tab)] = true;
    if (type.isSingle())
        selection_.choose(type.type, releases::folderForm(name));
    if (type.type == releases::ReleaseType::tc)
        launched_ = selection_.theOne(type.type);
}

/// What is nothing but the default cannot be missed.
void frmMain::noteCleared() {
    int ticks = 0;
    for (const auto* type : releases::typesByTab())
        if (!type->isSingle())
            ticks += selection_.countOf(type->type);
        else if (type->type != releases::ReleaseType::tc &&
                 selection_.theOne(type->type) != type->defaultName)
            ++ticks;
    if (ticks > 0)
        cleared_ = {selection_, ticks, false};
}

/// What is gone cannot be put back.
void frmMain::forgetCleared(releases::ReleaseType type, const std::string& name) {
    if (!cleared_ || !cleared_->selection.forget(type, name) ||
        (type == releases::ReleaseType::tc && !cleared_->countsTC))
        return;
    if (--cleared_->ticks == 0)
        cleared_.reset();
    show(List::stays);
}

/// All is as it was, the total conversion too. What the modifier is to do stays.
void frmMain::lblUndoLink_Click() {
    if (!cleared_)
        return;
    auto selection = std::move(cleared_->selection);
    selection.modifier = selection_.modifier;
    cleared_.reset();
    takeSelection(std::move(selection));
}

void frmMain::takeSelection(cycle::Selection selection) {
    selection_ = std::move(selection);
    opened_.assign(opened_.size(), true);
    constexpr auto tc = releases::ReleaseType::tc;
    launched_ = selection_.theOne(tc);
    tcCCodes = store_.textsOf(tc, releases::displayForm(launched_))
                   .codes.value_or(std::vector<std::string>());
    doList();
    show();
}

void frmMain::revertSels(bool refreshList) {
    noteCleared();
    selection_.revert();
    opened_.assign(opened_.size(), false);
    if (refreshList)
        doList();
    show(refreshList ? List::follows : List::stays);
}

void frmMain::cmdRevert_Click() {
    revertSels(true);
    if (!currentType().isSingle())
        return;
    panes_.offersFiles = true;
    panes_.offersRemoval = true;
    pickListItem(std::nullopt);
    show();
}

} // namespace windows
