// Tabs and clicks in the list: how the one TC and the one AI stay single, the others multiple, and
// how the summary boxes follow.
#include <algorithm>

#include "engine/frmMain.h"
#include "platform/text.h"

namespace engine {

const ReleaseTypeNames& frmMain::currentType() const {
    return namesOfTab(tspMain.caption());
}

std::string frmMain::getShortSelType() const {
    return std::string(currentType().shortName);
}

std::string frmMain::getLongSelType() const {
    const auto& caption = tspMain.caption();
    return caption.substr(0, caption.size() - 1);
}

void frmMain::tspMain_Click() {
    const auto shortType = getShortSelType();
    lblList.setText("Available " + tspMain.caption() + ":");
    lblRename.setText("(Rename This " +
                      platform::replaceAll(getLongSelType(), "Mod", "Modification") + ")");
    cmdExplore.setText("View This " + shortType + "'s Files");
    cmdHelp.setText("Help with " + shortType + "s");
    cmdRemove.setText("Remove This " + shortType);
    cmdAdd.setText("Add A New " + shortType);
    fillList();
    showBadges();
}

void frmMain::revertSels(bool refreshList) {
    selTC = defaultTC;
    selAI = defaultAI;
    for (auto* names : {&selRaces, &selMods, &selMaps, &selUnits})
        names->clear();
    txtSelTC.setText(selTC);
    txtSelAI.setText(selAI);
    showCountsAtStart();
    if (refreshList)
        tspMain_Click();
    else
        showBadges();
}

void frmMain::lstList_Click() {
    if (fillingList)
        return;
    // A total conversion is a new ground: nothing chosen for another one stays.
    if (currentType().type == ReleaseType::tc)
        revertSels(false);
    cmdExplore.setEnabled(true);
    cmdRemove.setEnabled(true);
    pickListItem(lstList.index());
    const auto& text = lstList.itemText(lstList.index());
    cmdRemove.setEnabled(text != defaultAI && text != defaultTC);
    showBadges();
}

void frmMain::pickListItem(int itemIndex) {
    if (fillingList)
        return;
    curListIndex = itemIndex;
    do {
        fallsBackToDefaultAI = false;
        pickOnce();
    } while (fallsBackToDefaultAI);
}

void frmMain::pickOnce() {
    const auto type = currentType().type;
    const bool single = type == ReleaseType::tc || type == ReleaseType::ai;
    if (single && curListIndex == -1)
        curListIndex = listFind(lstList, displayForm(type == ReleaseType::tc ? selTC : selAI));
    // The choice names a release that is gone: nothing is there to mark or to show.
    if (curListIndex == -1)
        return;
    if (single && lstList.markedCount() > 1)
        markOnly(curListIndex);
    if (single && lstList.markedCount() < 1)
        markOnly(curListIndex);
    const auto name = lstList.itemText(curListIndex);
    lblAbout.setText("About " + name + ":");
    if (type == ReleaseType::tc)
        chooseTC(name);
    else if (type == ReleaseType::ai)
        chooseAI(name);
    else
        toggleMany(name);
}

void frmMain::markOnly(int index) {
    fillingList = true;
    for (int i = 0; i < lstList.count(); ++i)
        lstList.setMarked(i, i == index);
    fillingList = false;
}

void frmMain::chooseTC(const std::string& name) {
    txtSelTC.setText(name);
    selTC = folderForm(name);
    showInfo("TC-" + selTC);
    cmdGo.setText("Apply Settings\r\nand Launch\r\n" + selTC);
}

void frmMain::chooseAI(const std::string& name) {
    txtSelAI.setText(name);
    selAI = folderForm(name);
    showInfo("AI-" + selAI);
}

/// A disk that tells case apart may hold two names alike; then it is the very name that goes.
void frmMain::takeOut(StringArray& names, const std::string& name) {
    const auto entries = names.entries();
    const auto at = std::find(entries.begin(), entries.end(), name);
    if (at != entries.end())
        arrayRemoveAt(names, static_cast<int>(at - entries.begin()) + 1);
    else
        arrayRemove(names, name);
}

void frmMain::toggleMany(const std::string& name) {
    const auto type = currentType().type;
    if (lstList.marked(curListIndex))
        arrayAdd(selectionOf(type), name);
    else
        takeOut(selectionOf(type), name);
    showSummary(type);
    showInfo(folderForm(getShortSelType() + "-" + name));
}

} // namespace engine
