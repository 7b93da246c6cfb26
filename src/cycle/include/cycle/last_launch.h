// What the disk tells of the last launch: its journal, how far that came, and how much of this can
// be believed.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <unordered_set>
#include <vector>

#include "formats/journal.h"
#include "releases/game_directory.h"

namespace cycle {

struct LastLaunch {
    enum class Trust {
        undone,      ///< nothing of it is in the game directory any more
        carriedOut,  ///< each move was made, but for those that failed
        interrupted, ///< the journal is the right one; nobody knows how far it came
        unknown      ///< nothing is known of the journal but what it says
    };

    formats::Journal journal;
    /// The journal's own bytes, which the state beside it speaks of.
    std::string journalBytes;
    Trust trust = Trust::unknown;
    std::unordered_set<std::size_t> failedMoves; ///< by their places in the journal, from 0
    /// When the last move was made, by the clock of the disk; 0 if nobody knows.
    std::int64_t carriedOutAt = 0;
    /// What an earlier reset could not undo.
    formats::Journal pending;
    /// When that was noted, by the same clock.
    std::int64_t pendingNotedAt = 0;

    /// A file that should tell of the launch and does not.
    struct Damage {
        std::string file;   ///< its path
        std::string reason; ///< the system's words, if it gave any
    };
    /// The journal is missing or damaged, and its readable twin does not make up for it. Then
    /// `journal` holds what can still be read.
    std::optional<Damage> lostJournal;
    std::optional<Damage> damagedPending;
    bool wasRecovered = false; ///< the journal came out of its readable twin
};

/// Never throws Failure: what cannot be read is damage.
LastLaunch readLastLaunch(const releases::GameDirectory& game);

} // namespace cycle
