// The moves are undone from the last to the first: a release's file leaves the place of the game's
// before that one comes back.
#include "cycle/reset.h"

#include <algorithm>
#include <string>
#include <unordered_set>

#include "cycle/change_files.h"
#include "formats/state.h"
#include "left_overs.h"
#include "platform/failure.h"
#include "platform/text.h"
#include "trellis_removal.h"
#include "undo_move.h"

namespace cycle {
namespace {

using formats::Journal;
using Trust = LastLaunch::Trust;

/// What a reset has left to do, and the folders that this keeps.
Journal collect(const std::vector<Journal::Move>& left, const LastLaunch& last) {
    Journal pending;
    pending.moves = left;
    // They were met from the last to the first.
    std::reverse(pending.moves.begin(), pending.moves.end());
    std::unordered_set<std::string> kept;
    for (const auto& move : left)
        kept.insert(platform::foldCase(move.destination.substr(0, move.destination.find('\\'))));
    for (const auto* folders : {&last.journal.folders, &last.pending.folders})
        for (const auto& folder : *folders)
            if (kept.erase(platform::foldCase(folder)) > 0)
                pending.folders.push_back(folder);
    return pending;
}

void removeFolders(const releases::GameDirectory& game, const std::vector<std::string>& folders) {
    for (const auto& folder : folders) {
        game.log().line(folder);
        platform::attempt([&] { game.disk().removeFolder(game.at(folder)); });
        game.log().breathe();
    }
}

/// What was moved back is on the disk before the disk is told that it is.
void note(const releases::GameDirectory& game, const LastLaunch& last, const Journal& pending) {
    auto& disk = game.disk();
    disk.flush();
    const bool hadPending = disk.kindOf(pendingFile(game)) != platform::EntryKind::none;
    if (last.damagedPending)
        keepBeside(game, pendingFile(game));
    if (!pending.moves.empty())
        disk.replaceFile(pendingFile(game), formats::pendingText(pending));
    else if (hadPending)
        disk.removeFile(pendingFile(game));
    if (!last.lostJournal && last.trust != Trust::undone)
        disk.replaceFile(stateFile(game), formats::stateText(formats::stateOf(
                                              last.journalBytes, formats::State::Stage::undone)));
}

bool hasToNote(const LastLaunch& last, const Journal& pending) {
    return (!last.lostJournal && last.trust != Trust::undone) || last.damagedPending ||
           !last.pending.moves.empty() || !pending.moves.empty();
}

} // namespace

Unfinished undo(releases::GameDirectory& game, const LastLaunch& last, bool modifierWasOn) {
    auto& log = game.log();
    log.stage("Unmoving Files...");
    if (last.wasRecovered)
        log.line("The journal was missing or damaged and is read out of its twin \"Human.txt\"");
    // They would keep folders from going. A run that came to the end of its moves left none on the
    // way, and looking through all releases takes long.
    removeLeftOvers(game, last.trust != Trust::carriedOut);
    game.beginMoves();
    std::vector<Journal::Move> left;
    UndoMove moves(game, last);
    const auto all = last.journal.moves.size();
    for (auto number = all; number > 0; --number) {
        log.progress(all - number, all);
        if (!moves.undo(number - 1))
            left.push_back(last.journal.moves[number - 1]);
    }
    for (auto move = last.pending.moves.rbegin(); move != last.pending.moves.rend(); ++move)
        if (!moves.undoPending(*move))
            left.push_back(*move);
    log.stage("Removing Extra Subdirectories...");
    if (last.trust == Trust::undone)
        for (const auto& folder : last.journal.folders) {
            log.line(folder);
            log.breathe();
        }
    else
        removeFolders(game, last.journal.folders);
    removeFolders(game, last.pending.folders);
    log.stage("Removing Trellis Data Files...");
    removeModifierOutput(game, modifierWasOn);
    auto pending = collect(left, last);
    bool isNoted = true;
    if (hasToNote(last, pending))
        try {
            note(game, last, pending);
        } catch (const platform::Failure& failure) {
            isNoted = false;
            game.questions().ask({"The reset could not be noted in \"" +
                                      platform::shownPath(changeFile(game, "")) +
                                      "\".\r\n\r\nPlease make room on the disk or allow writing "
                                      "there before you launch.",
                                  {"OK"},
                                  0,
                                  failure.what()});
        }
    Unfinished unfinished(std::move(pending), isNoted);
    unfinished.setJournalLost(last.lostJournal.has_value());
    log.stage("Done");
    return unfinished;
}

} // namespace cycle
