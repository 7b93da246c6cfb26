// Journal, readable twin and state are held against each other: each of them may be missing, cut or
// out of another launch.
#include "cycle/last_launch.h"

#include <utility>

#include "cycle/change_files.h"
#include "formats/state.h"
#include "platform/failure.h"

namespace cycle {
namespace {

struct ReadText {
    std::string bytes;
    bool isThere = false;
    std::string reason; ///< why it could not be read
};

ReadText readText(const releases::GameDirectory& game, const std::string& path) {
    ReadText text;
    try {
        text.bytes = game.disk().readFile(path);
        text.isThere = true;
    } catch (const platform::Failure& failure) {
        text.reason = failure.reason();
    }
    return text;
}

void take(LastLaunch& last, formats::Journal journal, std::string bytes,
          const std::optional<formats::State>& state) {
    last.journal = std::move(journal);
    last.journalBytes = std::move(bytes);
    if (!state)
        return;
    using Trust = LastLaunch::Trust;
    last.trust = state->stage == formats::State::Stage::undone ? Trust::undone
                 : state->isCarriedOut                         ? Trust::carriedOut
                                                               : Trust::interrupted;
    for (const auto number : state->failedMoves)
        last.failedMoves.insert(number - 1);
}

void readJournal(const releases::GameDirectory& game, LastLaunch& last) {
    auto text = readText(game, journalFile(game));
    auto journal = formats::readJournal(text.bytes);
    const auto state = formats::readState(readText(game, stateFile(game)).bytes);
    if (state && journal && formats::fits(*state, text.bytes))
        return take(last, std::move(*journal), std::move(text.bytes), state);
    const auto twin = formats::readHuman(readText(game, humanFile(game)).bytes);
    const auto twinBytes = twin ? formats::journalText(*twin) : std::string();
    if (state && twin && formats::fits(*state, twinBytes)) {
        last.wasRecovered = true;
        return take(last, *twin, twinBytes, state);
    }
    // The power may have gone between the journal and its state. A journal of before there were
    // states has none.
    const bool isConfirmed = twin && twinBytes == text.bytes;
    if (journal && (isConfirmed || (!state && formats::looksWhole(text.bytes))))
        return take(last, *journal, text.bytes, std::nullopt);
    const bool continuesIt = !text.isThere || twinBytes.starts_with(text.bytes);
    if (!state && twin && continuesIt && !twin->moves.empty()) {
        last.wasRecovered = true;
        return take(last, *twin, twinBytes, std::nullopt);
    }
    take(last, journal.value_or(formats::Journal()), text.bytes, std::nullopt);
    last.lostJournal = {journalFile(game), text.reason};
}

} // namespace

LastLaunch readLastLaunch(const releases::GameDirectory& game) {
    LastLaunch last;
    readJournal(game, last);
    if (last.trust == LastLaunch::Trust::carriedOut)
        last.carriedOutAt = game.disk().factsOf(stateFile(game)).changed;
    if (game.disk().kindOf(pendingFile(game)) == platform::EntryKind::none)
        return last;
    const auto text = readText(game, pendingFile(game));
    auto read = formats::readPending(text.bytes);
    last.pending = std::move(read.pending);
    last.pendingNotedAt = game.disk().factsOf(pendingFile(game)).changed;
    if (!read.isWhole)
        last.damagedPending = {pendingFile(game), text.reason};
    return last;
}

} // namespace cycle
