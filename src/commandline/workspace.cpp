// The order is that of a start with windows: lock, data tree, running game, then all else.
#include "workspace.h"

#include <algorithm>

#include "cycle/change_files.h"
#include "cycle/reset.h"
#include "cycle/selection_files.h"
#include "platform/text.h"
#include "releases/release_types.h"

namespace commandline {
namespace {

std::unique_ptr<platform::InstanceLock> lockOf(const std::string& folder) {
    auto outcome = platform::lockFolder(folder, platform::Holder::isLeftAlone);
    if (!outcome.lock)
        throw Stop{failed, "Vexillum is already running in this directory."};
    return std::move(outcome.lock);
}

} // namespace

Workspace::Workspace(const Machine& theMachine, const CommandLine& theLine)
    : machine(theMachine), line(theLine), log(machine.output),
      questions(machine.errors, line.answer), game(machine.disk, log, questions), store(game) {
    if (!line.directory && machine.gameDirectory.empty())
        throw Stop{failed,
                   "No game directory is known yet. Name one with --directory; --setup makes "
                   "it ready."};
    const auto folder =
        line.directory ? platform::absoluteFolder(*line.directory) : machine.gameDirectory;
    if (machine.disk.kindOf(folder) != platform::EntryKind::folder)
        throw Stop{failed, "There is no folder \"" + platform::shownPath(folder) + "\"."};
    lock_ = lockOf(folder);
    game.open(folder);
    if (!game.DoesFolderExist(game.at(releases::dataTree)))
        throw Stop{failed, "There is no folder \"" + std::string(releases::dataTree) + "\" in \"" +
                               platform::shownPath(folder) + "\"."};
    store.read();
    last_ = cycle::readLastLaunch(game);
}

bool Workspace::isApplied() const {
    const bool hasChanges = !last_.journal.moves.empty() || !last_.journal.folders.empty();
    return (last_.trust != cycle::LastLaunch::Trust::undone && hasChanges) ||
           game.DoesFileExist(cycle::trellisFile(game));
}

bool Workspace::gameRuns() const {
    return machine.programs.isRunning(game.at(releases::gameProgram));
}

cycle::Unfinished Workspace::unfinished() const {
    cycle::Unfinished unfinished(last_.pending, true);
    unfinished.setJournalLost(last_.lostJournal.has_value());
    return unfinished;
}

void Workspace::refuseRunningGame() const {
    if (gameRuns())
        throw Stop{failed, "The game is still running in this directory."};
}

void Workspace::refuseApplied(const std::string& command) const {
    if (isApplied())
        throw Stop{failed, "Files of the last launch lie in the game directory, and " + command +
                               " needs a plain one. Use --reset first, which moves them back."};
}

cycle::Selection Workspace::savedSelection() {
    cycle::Selection selection;
    for (const auto& unread : cycle::readSels(game, selection))
        questions.warn("This file of the selection could not be read and counts as blank: " +
                       unread);
    return selection;
}

cycle::Set Workspace::selected() {
    cycle::Set selected;
    const auto unread = cycle::readAnswers(game, selected.answers);
    answersWereRead_ = unread.empty();
    if (!answersWereRead_)
        questions.warn("The remembered answers could not be read: " + unread);
    if (line.operands.empty()) {
        selected.selection = savedSelection();
        return selected;
    }
    cycle::Set set;
    const cycle::Sets sets(game);
    const auto& name = line.operands.front();
    if (const auto reason = sets.load(name, set); !reason.empty())
        throw Stop{failed,
                   sets.has(name) ? "The set \"" + name + "\" cannot be read.\n" + reason : reason};
    selected.selection = std::move(set.selection);
    selected.answers.add(set.answers);
    return selected;
}

std::vector<cycle::Owner> Workspace::missing(cycle::Selection selection) const {
    auto missing = cycle::takeOutMissing(selection, store);
    const auto applied = appliedLooseFiles();
    std::erase_if(missing, [&](const auto& owner) {
        return std::ranges::any_of(applied, [&](const auto& loose) {
            return loose.type == owner.type && platform::equalIgnoringCase(loose.name, owner.name);
        });
    });
    return missing;
}

std::vector<cycle::Owner> Workspace::appliedLooseFiles() const {
    std::vector<cycle::Owner> files;
    if (!isApplied())
        return files;
    for (const auto& move : last_.journal.moves)
        for (const auto& info : releases::releaseTypes()) {
            const auto folder =
                std::string(releases::dataTree) + "\\" + std::string(info.shortName) + "-Misc\\";
            if (info.hasLooseFolder && move.source.size() > folder.size() &&
                platform::equalIgnoringCase(move.source.substr(0, folder.size()), folder) &&
                game.DoesFileExist(game.at(move.destination)) &&
                !game.DoesFileExist(game.at(move.source)))
                files.push_back({info.type, move.source.substr(folder.size())});
        }
    return files;
}

void Workspace::tellOfDamage() const {
    for (const auto* damage : {&last_.lostJournal, &last_.damagedPending})
        if (*damage)
            machine.errors << "\"" << printable(platform::shownPath((*damage)->file))
                           << "\" is missing or damaged, so files of the last launch may still lie "
                              "in the game directory.\n"
                           << printable((*damage)->reason) << '\n';
}

cycle::Unfinished Workspace::reset() {
    // There may have been a launch since.
    last_ = cycle::readLastLaunch(game);
    tellOfDamage();
    cycle::Selection saved;
    // A selection that cannot be read has nothing to do with what lies where.
    cycle::readSels(game, saved);
    // What an undone launch made is gone: folders of the modifier's names are somebody else's.
    const bool modifierWasOn =
        saved.modifier.enabled && last_.trust != cycle::LastLaunch::Trust::undone;
    return cycle::undo(game, last_, modifierWasOn);
}

const releases::TypeInfo& typeOf(const std::string& shortName) {
    const auto types = releases::releaseTypes();
    const auto type = std::ranges::find_if(types, [&](const auto& info) {
        return platform::equalIgnoringCase(info.shortName, shortName);
    });
    if (type == types.end())
        throw WrongUse{"There is no type \"" + shortName +
                       "\". The types are TC, AI, Race, Mod, Map and Unit."};
    return *type;
}

std::string named(const cycle::Owner& owner) {
    return owner.isGame() ? "the game" : owner.text();
}

} // namespace commandline
