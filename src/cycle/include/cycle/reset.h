// The reset: at every start the journal of the last run is undone, so that the game directory is
// plain while the catalogue is open.
#pragma once

#include <optional>

#include "formats/journal.h"
#include "releases/game_directory.h"

namespace cycle {

/// The journal of the last apply, or nothing for one that is damaged. Throws Failure where it
/// cannot be read. Its paths are not held against any rule yet; each move does that.
std::optional<formats::Journal> lastJournal(const releases::GameDirectory& game);

/// Moves every file back, the last one first, and removes the folders that were made, those of the
/// build-menu modifier too if it was on. Passes over every failure: what cannot be undone is told
/// of as a move that failed, and a folder with something left in it stays. Undone once more, a
/// journal takes nothing that is the game's own.
void undo(releases::GameDirectory& game, const formats::Journal& journal, bool modifierWasOn);

} // namespace cycle
