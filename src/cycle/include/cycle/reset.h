// The reset: at every start the journal of the last run is undone, so that the game directory is
// plain while the catalogue is open.
#pragma once

#include "cycle/last_launch.h"
#include "cycle/unfinished.h"
#include "releases/game_directory.h"

namespace cycle {

/// Moves every file back, the last one first, then those that an earlier reset could not move, and
/// removes the folders that were made, those of the build-menu modifier too if it was on. A journal
/// that is undone is gone through in the log alone. Passes over every failure: what cannot be
/// undone is told of as a move that failed, noted on the disk and given back, to be tried at the
/// next start. A file that is the game's own is never moved.
///
/// The log tells a line for each move, and another where there was nothing to move, or where the
/// file has been changed since it was moved.
Unfinished undo(releases::GameDirectory& game, const LastLaunch& last, bool modifierWasOn);

} // namespace cycle
