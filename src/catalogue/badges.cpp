// The figures beside the tabs: how many releases there are, and how many are chosen.
#include <algorithm>

#include "engine/frmMain.h"

namespace engine {

/// Names are read only at start, so the figures of tabs that were not opened yet stand from then
/// on.
void frmMain::countReleases() {
    for (std::size_t tab = 0; tab < releaseCounts_.size(); ++tab)
        releaseCounts_[tab] = releasesOf(namesOfTab(tspMain.captions()[tab]).type);
    showBadges();
}

int frmMain::releasesOf(ReleaseType type) {
    int count = 0;
    for (std::string_view folder : storeFolders.entries())
        if (cutPrefix(folder, type))
            count += isLooseFolder(folder, type) ? static_cast<int>(looseFiles(type).size()) : 1;
    return count;
}

void frmMain::showBadges() {
    releaseCounts_[static_cast<std::size_t>(tspMain.index())] = lstList.count();
    for (int tab = 0; tab < static_cast<int>(releaseCounts_.size()); ++tab) {
        const auto at = static_cast<std::size_t>(tab);
        const int all = releaseCounts_[at];
        tspMain.setBadge(tab,
                         {std::min(marksOf(namesOfTab(tspMain.captions()[at]).type), all), all});
    }
}

int frmMain::marksOf(ReleaseType type) {
    if (type == currentType().type)
        return lstList.markedCount();
    if (type == ReleaseType::tc)
        return arrayFind(storeFolders, "TC-" + selTC) != -1 ? 1 : 0;
    if (type == ReleaseType::ai)
        return arrayFind(storeFolders, "AI-" + selAI) != -1 ? 1 : 0;
    // After an interrupted run the selections hold an empty name.
    const auto names = selectionOf(type).entries();
    return static_cast<int>(
        std::count_if(names.begin(), names.end(), [](const auto& name) { return !name.empty(); }));
}

} // namespace engine
