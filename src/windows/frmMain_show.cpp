// The one place where state becomes controls. It runs whenever the selection, the list or the
// release at hand has changed, and only what differs is set.
#include <algorithm>
#include <unordered_set>

#include "platform/text.h"
#include "windows/frmMain.h"

namespace windows {
namespace {

/// A text set anew would scroll its box back to the start.
void put(Element& element, const std::string& text) {
    if (element.text() != text)
        element.setText(text);
}

} // namespace

void frmMain::show(List list) {
    const auto shortType = getShortSelType();
    if (listWasFilled_) {
        put(lblList, "Available " + tspMain.caption() + ":");
        put(lblRename,
            "(Rename This " + platform::replaceAll(getLongSelType(), "Mod", "Modification") + ")");
        put(cmdExplore, "View This " + shortType + "'s Files");
        put(cmdHelp, "Help with " + shortType + "s");
        put(cmdRemove, "Remove This " + shortType);
        put(cmdAdd, "Add A New " + shortType);
    }
    if (list == List::follows)
        showList();
    put(lblAbout, panes_.heading);
    showContents();
    put(txtAbout, panes_.about);
    put(txtCCodes, panes_.codes);
    put(cmdReadme, panes_.readmeCaption);
    cmdReadme.setEnabled(panes_.hasReadme);
    cmdExplore.setEnabled(panes_.offersFiles);
    cmdRemove.setEnabled(panes_.offersRemoval);
    cmdExplore.setIdle(!current_);
    cmdRemove.setIdle(!current_);
    lblRename.setIdle(!current_ || releases::isDefaultRelease(*current_));
    lblEditAbout.setIdle(!current_ || !panes_.offersTexts);
    lblEditCCodes.setIdle(!current_ || !panes_.offersCodes);
    const auto ticks = cleared_ ? cleared_->ticks : 0;
    put(lblUndo,
        ticks == 1 ? "1 tick was cleared." : std::to_string(ticks) + " ticks were cleared.");
    for (auto* control : {&lblUndo, &lblUndoLink})
        if (control->visible() != cleared_.has_value())
            control->setVisible(cleared_.has_value());
    for (const auto& summary : summaries_)
        put(summary->box, summaryOf(summary->type));
    if (!launched_.empty())
        put(cmdGo, "Apply Settings\r\nand Launch\r\n" + launched_);
    const auto& modifier = selection_.modifier;
    mnuMMenable.setChecked(modifier.enabled);
    mnuMMcompress.setChecked(modifier.compress);
    mnuMMsmall.setChecked(modifier.small);
    mnuFComeBack.setChecked(comesBack_);
    mnuMMcompress.setEnabled(modifier.enabled);
    mnuMMsmall.setEnabled(modifier.enabled);
    showBadges();
}

/// A name that two releases share is marked at the first of them.
void frmMain::showList() {
    const auto& type = currentType();
    std::unordered_set<std::string> chosen;
    for (const auto& name : selection_.namesOf(type.type))
        chosen.insert(type.isSingle() ? releases::displayForm(name) : name);
    std::vector<MarkList::Item> items;
    items.reserve(listed_.size());
    for (const auto& name : listed_)
        items.push_back({name, chosen.erase(name) > 0});
    lstList.setItems(std::move(items));
}

std::string frmMain::summaryOf(const releases::TypeInfo& type) const {
    const bool isOpened = opened_[static_cast<std::size_t>(type.tab)];
    if (type.isSingle())
        return isOpened ? releases::displayForm(selection_.theOne(type.type))
                        : std::string(type.defaultName);
    if (!selectionWasRead_ && !isOpened)
        return std::string(type.firstSummary);
    return std::to_string(selection_.countOf(type.type)) +
           std::string(isOpened ? type.selected : type.enabled);
}

/// The figures beside the tabs: how many releases there are, and how many are chosen.
void frmMain::showBadges() {
    if (counts_.empty())
        return;
    for (const auto* type : releases::typesByTab()) {
        const int all = counts_[static_cast<std::size_t>(type->tab)];
        tspMain.setBadge(type->tab, {std::min(marksOf(*type), all), all});
    }
}

int frmMain::marksOf(const releases::TypeInfo& type) const {
    if (type.type == currentType().type)
        return lstList.markedCount();
    const auto names = selection_.namesOf(type.type);
    if (type.isSingle())
        return store_.hasFolder(type.type, names.front()) ? 1 : 0;
    // After an interrupted run the selections hold an empty name.
    return static_cast<int>(
        std::count_if(names.begin(), names.end(), [](const auto& name) { return !name.empty(); }));
}

} // namespace windows
