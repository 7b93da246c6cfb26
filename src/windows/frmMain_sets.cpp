// Sets: the selection put away under a name and taken out again, and the lists that friends give
// to each other.
#include "cycle/release_list.h"
#include "platform/failure.h"
#include "platform/text.h"
#include "windows/frmMain.h"
#include "windows/frmSets.h"
#include "windows/slow_work.h"

namespace windows {
namespace {

/// A file's name without its folder and its ending, as the name of a set would be shown.
std::string nameOfFile(const std::string& path) {
    const auto start = path.find_last_of("/\\") + 1;
    const auto end = path.find_last_of('.');
    return releases::displayForm(
        std::string_view(path).substr(start, end > start ? end - start : std::string::npos));
}

std::string withoutBlanks(const std::string& text) {
    const auto start = text.find_first_not_of(' ');
    return start == std::string::npos ? ""
                                      : text.substr(start, text.find_last_not_of(' ') + 1 - start);
}

} // namespace

/// A name that no set can have is asked for once more.
std::optional<std::string> frmMain::askForSetName(const std::string& text, const std::string& title,
                                                  const std::string& preset) {
    auto name = preset;
    for (;;) {
        name = withoutBlanks(toolkit().askForText({text, title, name}).value_or(""));
        if (name.empty())
            return std::nullopt;
        const auto reason = cycle::Sets::reasonAgainst(name);
        if (reason.empty())
            return name;
        warn(reason);
    }
}

/// False where the user keeps the one that is there, or it cannot be written.
bool frmMain::saveSet(const std::string& name, const cycle::Set& set) {
    if (sets_.has(name) && !ask_.askWhetherSure("There is a set \"" + name +
                                                "\" already.\r\n\r\nWould you like to replace it?"))
        return false;
    const auto reason = sets_.save(name, set);
    if (!reason.empty())
        warn("The set \"" + name + "\" could not be saved.\r\n\r\n" + reason);
    return reason.empty();
}

void frmMain::mnuSSave_Click() {
    const auto name =
        askForSetName("Please Enter A Name For This Set:", "Save As Set", currentSet_);
    if (!name || !saveSet(*name, {selection_, answers_}))
        return;
    currentSet_ = releases::displayForm(*name);
    tell("The set \"" + *name + "\" has been saved.");
}

void frmMain::mnuSSwitch_Click() {
    std::optional<std::string> wanted;
    {
        frmSets window(*this, currentSet_);
        toolkit().showModal(window);
        currentSet_ = window.current();
        wanted = window.wanted();
    }
    if (wanted)
        switchToSet(*wanted);
}

void frmMain::switchToSet(const std::string& name) {
    cycle::Set set;
    if (const auto reason = sets_.load(name, set); !reason.empty())
        return warn("The set \"" + name + "\" could not be read.\r\n\r\n" + reason);
    const auto missing = cycle::takeOutMissing(set.selection, store_);
    noteLost(set.selection);
    noteNewNames(set.selection);
    takeSelection(std::move(set.selection));
    answers_.add(set.answers);
    saveAnswers();
    currentSet_ = name;
    if (missing.empty())
        return;
    std::vector<std::string> names;
    names.reserve(missing.size());
    for (const auto& release : missing)
        names.push_back(release.text());
    tell("These releases of the set \"" + name + "\" are not there and were left out:\r\n\r\n" +
         platform::shownList(names) + "\r\nThe set itself stays as it is.");
}

/// Ticks that another selection does not have can be put back.
void frmMain::noteLost(const cycle::Selection& next) {
    constexpr auto tc = releases::ReleaseType::tc;
    Cleared lost{selection_};
    for (const auto* type : releases::typesByTab())
        for (const auto& name : selection_.namesOf(type->type))
            if (!name.empty() && !next.has(type->type, name) &&
                !(type->isSingle() && name == type->defaultName)) {
                ++lost.ticks;
                lost.countsTC = lost.countsTC || type->type == tc;
            }
    cleared_.reset();
    if (lost.ticks > 0)
        cleared_ = std::move(lost);
}

/// What is there but was added since the start is not missing.
void frmMain::noteNewNames(const cycle::Selection& selection) {
    for (const auto* type : releases::typesByTab())
        if (!type->isSingle())
            for (const auto& name : selection.namesOf(type->type))
                newNames_.emplace(type->type, name);
}

void frmMain::mnuSImport_Click() {
    const auto file = toolkit().askForFile({"Import A Set", setFileFilter, {}});
    if (!file)
        return;
    cycle::Set set;
    if (const auto reason = cycle::readSetFile(game_, *file, set); !reason.empty())
        return warn("The set could not be imported.\r\n\r\n" + reason);
    const auto name = askForSetName("Please Enter A Name For The Imported Set:", "Import A Set",
                                    nameOfFile(*file));
    if (name && saveSet(*name, set) &&
        ask_.askYesNo("The set \"" + *name +
                      "\" has been imported.\r\n\r\nWould you like to switch to it now?"))
        switchToSet(releases::displayForm(*name));
}

void frmMain::mnuSList_Click() {
    saveListOf(selection_, currentSet_.empty() ? "Releases" : currentSet_);
}

void frmMain::saveListOf(const cycle::Selection& selection, const std::string& name) {
    cycle::ReleaseList list;
    try {
        SlowWork slow(*this);
        list = cycle::listReleases(releases::GameDirectory(game_, slow), store_, selection);
    } catch (const platform::Failure& failure) {
        return warn(std::string("The list could not be made.\r\n\r\n") + failure.what());
    }
    if (list.empty())
        return tell("Nothing but the game itself is chosen, so there is nothing to list.");
    const auto failure =
        toolkit().saveText({"Save A List For A Friend", setFileFilter, {}},
                           releases::folderForm(name) + " List.txt", cycle::textOf(list));
    if (!failure.empty())
        warn("The list could not be saved.\r\n\r\n" + failure);
}

void frmMain::mnuSCompare_Click() {
    const auto file = toolkit().askForFile({"Compare With A List", setFileFilter, {}});
    if (!file)
        return;
    cycle::ReleaseList list;
    if (const auto reason = cycle::readReleaseListFile(game_, *file, list); !reason.empty())
        return warn("The list could not be read.\r\n\r\n" + reason);
    cycle::ListComparison found;
    try {
        SlowWork slow(*this);
        found = cycle::compare(list, releases::GameDirectory(game_, slow), store_);
    } catch (const platform::Failure& failure) {
        return warn(std::string("The releases could not be compared.\r\n\r\n") + failure.what());
    }
    showReadme_.showText("Compare With A List",
                         "Your releases and the list \"" + nameOfFile(*file) + "\":", found.text());
}

void frmMain::renameInSets(releases::ReleaseType type, const std::string& oldName,
                           const std::string& newName) {
    const auto failures = sets_.renameRelease(type, oldName, newName);
    if (!failures.empty())
        warn("These sets still have the old name:\r\n\r\n" + platform::shownList(failures));
}

} // namespace windows
