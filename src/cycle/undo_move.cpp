// A file at a destination is surely the release's where the journal was carried out and nobody has
// touched the file since. Else it may be the game's own, of a move that was never made, or was
// undone already.
#include "undo_move.h"

#include "platform/failure.h"
#include "platform/text.h"
#include "releases/release_types.h"

namespace cycle {
namespace {

using platform::EntryKind;

bool isInDataTree(std::string_view path) {
    return path.size() > releases::dataTree.size() && path[releases::dataTree.size()] == '\\' &&
           platform::equalIgnoringCase(path.substr(0, releases::dataTree.size()),
                                       releases::dataTree);
}

/// A file of the game that had to make room.
bool isGames(const formats::Journal::Move& move) {
    return !isInDataTree(move.source);
}

} // namespace

UndoMove::UndoMove(releases::GameDirectory& game, const LastLaunch& last)
    : game_(game), last_(last) {
    if (last.trust != Trust::undone)
        for (const auto& folder : last.journal.folders)
            folders_.insert(platform::foldCase(folder));
    if (last.trust == Trust::carriedOut)
        ahead_.emplace(game.disk(), last.journal.moves.size(),
                       [&game, &last](std::size_t number, std::string& path) {
                           game.at(last.journal.moves[number].destination, path);
                       });
}

bool UndoMove::undo(std::size_t number) {
    const auto& move = last_.journal.moves[number];
    begin(move);
    bool isDone = true;
    if (last_.trust == Trust::undone || last_.failedMoves.contains(number))
        game_.logFailedMove(from_, to_);
    else
        isDone = moveBack(move, ahead_ ? ahead_->factsOf(number) : game_.disk().factsOf(from_));
    return end(move, isDone);
}

bool UndoMove::undoPending(const Move& move) {
    begin(move);
    isPending_ = true;
    const bool isDone = moveBack(move, game_.disk().factsOf(from_));
    isPending_ = false;
    return end(move, isDone);
}

void UndoMove::begin(const Move& move) {
    game_.log().line(line_.assign(move.destination).append(" to ").append(move.source));
    game_.at(move.destination, from_);
    game_.at(move.source, to_);
}

bool UndoMove::end(const Move& move, bool isDone) {
    if (!isDone)
        occupied_.insert(platform::foldCase(move.destination));
    game_.log().breathe();
    return isDone;
}

bool UndoMove::moveBack(const Move& move, const platform::EntryFacts& file) {
    if (platform::equalIgnoringCase(from_, to_))
        return true;
    // A folder of the journal may stand where a file was that made room for a release's.
    if (move.source.find('\\') == std::string::npos &&
        folders_.contains(platform::foldCase(move.source)))
        platform::attempt([&] { game_.disk().removeFolder(to_); });
    const bool isOurs = file.kind == EntryKind::file && this->isOurs(move, file);
    if (isOurs) {
        const auto outcome = game_.tryMove(from_, to_);
        if (outcome.isDone) {
            if (isTouched(file))
                game_.log().line("\"" + move.destination +
                                 "\" has been changed since it was moved there");
            return true;
        }
        if (game_.disk().kindOf(to_) == EntryKind::none) {
            game_.tellOfFailedMove(from_, to_, outcome.reason);
            return false;
        }
    }
    if (game_.disk().kindOf(to_) == EntryKind::none)
        game_.tellOfFailedMove(from_, to_);
    else if (isOurs)
        return settleBoth(move, file);
    else
        game_.logFailedMove(from_, to_);
    return true;
}

/// There is an entry at the source too, so one of the two came since.
bool UndoMove::settleBoth(const Move& move, const platform::EntryFacts& file) {
    if (isCopy(move)) {
        try {
            game_.disk().removeFile(from_);
            game_.log().line("\"" + move.destination + "\" was a second copy of \"" + move.source +
                             "\" and is removed");
            return true;
        } catch (const platform::Failure& failure) {
            game_.tellOfFailedMove(from_, to_, failure.reason());
            return false;
        }
    }
    game_.tellOfFailedMove(from_, to_);
    // Only what is surely the release's, or waits to come back, may be tried once more.
    return !isGames(move) && !isUntouched(file);
}

/// Whether the file at a move's destination is taken to have come there by that move.
bool UndoMove::isOurs(const Move& move, const platform::EntryFacts& file) {
    if (isGames(move) || isUntouched(file))
        return true;
    // A file of the game that makes room does so ahead of the release's file that comes there, and
    // comes back behind it.
    if (const auto* waiting = waitingPlace(move))
        return game_.DoesFileExist(game_.at(*waiting));
    return (!isPending_ && last_.trust == Trust::interrupted) ||
           isThere(std::string_view(to_).substr(0, to_.rfind('\\')));
}

/// Whether a move was cut off between the copy and the removal of the original. A release's file
/// that could not leave the place of the game's may be equal to it, and is no copy.
bool UndoMove::isCopy(const Move& move) {
    bool isSame = false;
    if ((isPending_ || last_.trust != Trust::unknown) &&
        !occupied_.contains(platform::foldCase(move.source)))
        platform::attempt([&] { isSame = game_.disk().holdSame(from_, to_); });
    return isSame;
}

/// Nobody has laid a hand on the file since the last move.
bool UndoMove::isUntouched(const platform::EntryFacts& file) const {
    return knownSince() != 0 && file.changed != 0 && file.changed <= knownSince();
}

bool UndoMove::isTouched(const platform::EntryFacts& file) const {
    return knownSince() != 0 && file.changed > knownSince();
}

/// When the disk was told that the file at the destination is the one that was moved there.
std::int64_t UndoMove::knownSince() const {
    return isPending_ ? last_.pendingNotedAt : last_.carriedOutAt;
}

const std::string* UndoMove::waitingPlace(const Move& move) {
    if (displaced_.empty())
        for (const auto* journal : {&last_.pending, &last_.journal})
            for (const auto& each : journal->moves)
                displaced_.emplace(platform::foldCase(each.source), each.destination);
    const auto waiting = displaced_.find(platform::foldCase(move.destination));
    return waiting == displaced_.end() ? nullptr : &waiting->second;
}

/// Neighbours in a journal mostly share their folder.
bool UndoMove::isThere(std::string_view folder) {
    if (folder != lastFolder_) {
        lastFolder_ = folder;
        lastIsThere_ = game_.DoesFolderExist(lastFolder_);
    }
    return lastIsThere_;
}

} // namespace cycle
