// A file at a destination is the release's where the journal is known to have been carried out.
// Else it may be the game's own, of a move that was never made.
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
}

bool UndoMove::undo(std::size_t number) {
    const auto& move = last_.journal.moves[number];
    begin(move);
    bool isDone = true;
    if (last_.trust == Trust::undone || last_.failedMoves.contains(number))
        game_.logFailedMove(from_, to_);
    else
        isDone = moveBack(move, last_.trust);
    return end(move, isDone);
}

bool UndoMove::undoPending(const Move& move) {
    begin(move);
    return end(move, moveBack(move, Trust::carriedOut));
}

bool UndoMove::end(const Move& move, bool isDone) {
    if (!isDone)
        occupied_.insert(platform::foldCase(move.destination));
    game_.log().breathe();
    return isDone;
}

void UndoMove::begin(const Move& move) {
    game_.log().line(line_.assign(move.destination).append(" to ").append(move.source));
    game_.at(move.destination, from_);
    game_.at(move.source, to_);
}

bool UndoMove::moveBack(const Move& move, Trust trust) {
    // A folder of the journal may stand where a file was that made room for a release's.
    if (move.source.find('\\') == std::string::npos &&
        folders_.contains(platform::foldCase(move.source)))
        platform::attempt([&] { game_.disk().removeFolder(to_); });
    const auto file = game_.disk().factsOf(from_);
    if (file.kind == EntryKind::file && isOurs(move, trust)) {
        const auto outcome = game_.tryMove(from_, to_);
        if (outcome.isDone) {
            tellOfChange(move, file.changed);
            return true;
        }
        if (game_.disk().kindOf(to_) == EntryKind::none) {
            game_.tellOfFailedMove(from_, to_, outcome.reason);
            return false;
        }
    }
    if (game_.disk().kindOf(to_) == EntryKind::none) {
        game_.tellOfFailedMove(from_, to_);
        return true;
    }
    if (file.kind == EntryKind::file)
        return settleBoth(move, trust);
    game_.logFailedMove(from_, to_);
    return true;
}

/// There is a file at either end.
bool UndoMove::settleBoth(const Move& move, Trust trust) {
    if (isCopy(move, trust)) {
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
    if (trust == Trust::carriedOut) {
        game_.tellOfFailedMove(from_, to_);
        return false;
    }
    game_.logFailedMove(from_, to_);
    return true;
}

/// Whether the file at a move's destination came there by that move.
bool UndoMove::isOurs(const Move& move, Trust trust) {
    if (trust == Trust::carriedOut || isGames(move))
        return true;
    // A file of the game that makes room does so ahead of the release's file that comes there.
    if (const auto* waiting = waitingPlace(move))
        return game_.DoesFileExist(game_.at(*waiting));
    return trust == Trust::interrupted || isThere(std::string_view(to_).substr(0, to_.rfind('\\')));
}

/// Whether a move was cut off between the copy and the removal of the original. A release's file
/// that could not leave the place of the game's may be equal to it, and is no copy.
bool UndoMove::isCopy(const Move& move, Trust trust) {
    bool isSame = false;
    if (trust != Trust::unknown && isOurs(move, trust) &&
        !occupied_.contains(platform::foldCase(move.source)))
        platform::attempt([&] { isSame = game_.disk().holdSame(from_, to_); });
    return isSame;
}

void UndoMove::tellOfChange(const Move& move, std::int64_t changed) {
    if (last_.carriedOutAt != 0 && changed > last_.carriedOutAt)
        game_.log().line("\"" + move.destination + "\" has been changed since it was moved there");
}

const std::string* UndoMove::waitingPlace(const Move& move) {
    if (displaced_.empty())
        for (const auto& each : last_.journal.moves)
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
