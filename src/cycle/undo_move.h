// Undoes one move of a journal: first it is found out whose file lies at the destination.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

#include "cycle/last_launch.h"
#include "platform/look_ahead.h"
#include "releases/game_directory.h"

namespace cycle {

class UndoMove {
  public:
    UndoMove(releases::GameDirectory& game, const LastLaunch& last);

    /// Undoes a move by its place in the journal, from 0. False where its file still lies at the
    /// destination and is to go back some other time; the user has been told.
    bool undo(std::size_t number);
    /// The same for a move that an earlier reset could not undo.
    bool undoPending(const formats::Journal::Move& move);

  private:
    using Move = formats::Journal::Move;
    using Trust = LastLaunch::Trust;

    void begin(const Move& move);
    bool end(const Move& move, bool isDone);
    bool moveBack(const Move& move, const platform::EntryFacts& file);
    bool settleBoth(const Move& move, const platform::EntryFacts& file);
    bool isOurs(const Move& move, const platform::EntryFacts& file);
    bool isCopy(const Move& move);
    bool isUntouched(const platform::EntryFacts& file) const;
    std::int64_t knownSince() const;
    bool isTouched(const platform::EntryFacts& file) const;
    const std::string* waitingPlace(const Move& move);
    bool isThere(std::string_view folder);

    releases::GameDirectory& game_;
    const LastLaunch& last_;
    /// Of each destination; only where no move changes what another finds.
    std::optional<platform::LookAhead> ahead_;
    bool isPending_ = false;
    /// Where the files of the game that had to make room wait, by their places, case folded.
    std::unordered_map<std::string, std::string> displaced_;
    std::unordered_set<std::string> folders_;
    /// Destinations that a file could not leave.
    std::unordered_set<std::string> occupied_;
    // Their room is used again for each move.
    std::string line_;
    std::string from_;
    std::string to_;
    std::string lastFolder_;
    bool lastIsThere_ = true;
};

} // namespace cycle
