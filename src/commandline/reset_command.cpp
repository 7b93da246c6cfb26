// The selection stays as it was saved: the next catalogue begins with it.
#include "reset_command.h"

#include "cycle/reset.h"
#include "cycle/selection_files.h"
#include "platform/failure.h"
#include "releases/release_types.h"
#include "terminal.h"

namespace commandline {
namespace {

bool canBegin(const Machine& machine, const releases::GameDirectory& game) {
    if (!game.DoesFolderExist(game.at(releases::dataTree))) {
        machine.errors << "There is no folder \"" << releases::dataTree << "\" in \""
                       << platform::shownPath(game.TADir()) << "\".\n";
        return false;
    }
    if (machine.programs.isRunning(game.at(releases::gameProgram))) {
        machine.errors << "The game is still running in this directory.\n";
        return false;
    }
    return true;
}

} // namespace

ExitCode reset(const Machine& machine) {
    TerminalLog log(machine.output);
    TerminalQuestions questions(machine.errors);
    releases::GameDirectory game(machine.disk, log, questions);
    game.open(machine.gameDirectory);
    if (!canBegin(machine, game))
        return failed;
    cycle::Selection selection;
    // A selection that cannot be read has nothing to do with what lies where.
    cycle::readSels(game, selection);
    const auto last = cycle::readLastLaunch(game);
    for (const auto* damage : {&last.lostJournal, &last.damagedPending})
        if (*damage)
            machine.errors << "\"" << platform::shownPath((*damage)->file)
                           << "\" is missing or damaged, so files of the last launch may still lie "
                              "in the game directory.\n"
                           << (*damage)->reason << '\n';
    // What an undone launch made is gone: folders of the modifier's names are somebody else's.
    const bool modifierWasOn =
        selection.modifier.enabled && last.trust != cycle::LastLaunch::Trust::undone;
    const auto unfinished = cycle::undo(game, last, modifierWasOn);
    const bool isPlain = unfinished.pending().moves.empty() && !unfinished.isJournalLost() &&
                         !last.damagedPending && unfinished.isNoted();
    return isPlain && questions.asked() == 0 ? done : failed;
}

} // namespace commandline
