// A new release, whole or not at all: who runs a script does not look what is missing of it.
#include <algorithm>

#include "formats/display_name.h"
#include "formats/game_files.h"
#include "platform/failure.h"
#include "platform/text.h"
#include "releases/member_import.h"
#include "verbs.h"

namespace commandline {
namespace {

std::string nameOf(const std::string& path) {
    return path.substr(path.find_last_of("/\\") + 1);
}

/// By the rules of the wizard, which takes out what is not permitted; here nobody would see that.
void checkName(const std::string& name, const releases::TypeInfo& info) {
    if (const auto permitted = formats::permittedPart(name); permitted != name)
        throw WrongUse{"Not all characters of \"" + name +
                           "\" are permitted in display names. Permitted are letters, digits, "
                           "blanks and ()-./_",
                       Verb::add};
    if (releases::isLooseFolder(name, info.type))
        throw WrongUse{"\"" + name + "\" is the folder of single files.", Verb::add};
}

void refuseExisting(const Workspace& work, const releases::TypeInfo& info,
                    const std::string& name) {
    const auto names = work.store.releasesOf(info.type);
    const bool isListed = std::ranges::any_of(
        names, [&](const auto& each) { return platform::equalIgnoringCase(each, name); });
    if (isListed ||
        work.machine.disk.kindOf(work.store.folderOf(info.type, name)) != platform::EntryKind::none)
        throw Stop{failed, "A release of that name exists already: " +
                               cycle::Owner{info.type, name}.text() + "."};
}

/// What comes to lie in the release's folder. A folder stands for what is in it, unless the game
/// knows it by its name and looks into it.
std::vector<std::string> membersOf(platform::Disk& disk, const std::string& path) {
    if (disk.kindOf(path) != platform::EntryKind::folder)
        return {path};
    const auto names = disk.list(path);
    if (formats::isGameFolder(nameOf(path)) &&
        std::ranges::none_of(names.files, formats::isGameArchive))
        return {path};
    std::vector<std::string> members;
    for (const auto* each : {&names.folders, &names.files})
        for (const auto& name : *each)
            members.push_back(path + "\\" + name);
    return members;
}

/// False where the release is not whole.
bool copy(Workspace& work, const std::string& path, const std::string& folder) {
    releases::MemberImport import(work.game, folder,
                                  [&](const auto&) { return work.questions.open() == 0; });
    const auto result = import.copy(membersOf(work.machine.disk, path));
    if (work.questions.open() > 0 || result.failed > 0)
        return false;
    if (result.copied() == 0)
        work.questions.warn("There is no file in \"" + platform::shownPath(path) + "\".");
    else
        work.machine.output << platform::withSeparators(result.files.size())
                            << (result.copied() == 1 ? " file copied to \"" : " files copied to \"")
                            << printable(platform::shownPath(folder)) << "\".\n";
    return result.copied() > 0;
}

} // namespace

ExitCode add(Workspace& work) {
    const auto& info = typeOf(*work.line.type);
    const auto& name = *work.line.name;
    checkName(name, info);
    auto& disk = work.machine.disk;
    const auto path = platform::absoluteFolder(work.line.operands.front());
    if (disk.kindOf(path) == platform::EntryKind::none)
        throw Stop{failed, "There is no \"" + platform::shownPath(path) + "\"."};
    work.refuseRunningGame();
    work.refuseApplied("a new release");
    refuseExisting(work, info, name);
    const auto folder = work.store.folderOf(info.type, name);
    disk.makeFolder(folder);
    bool isWhole = false;
    try {
        isWhole = copy(work, path, folder);
    } catch (const platform::Failure& failure) {
        work.questions.warn(failure.what());
    }
    if (isWhole)
        return done;
    disk.removeTree(folder);
    const auto notAdded = "The " + cycle::Owner{info.type, name}.text() + " was not added.";
    if (work.questions.open() > 0)
        throw Stop{wrongUsage, notAdded + " Answer with --yes or --no."};
    throw Stop{failed, notAdded};
}

} // namespace commandline
