// The cleaner: clears the game directory of all that came neither with the game nor with this
// program.
#pragma once

#include <string_view>

#include "cycle/unfinished.h"
#include "releases/game_directory.h"

namespace cycle {

/// Moves everything else into the folder "CleanedFiles", folders whole but for the data tree.
/// `programName` is this program's file, which stays too. Passes over every failure but those that
/// MoveFile tells of. No journal is kept: only the user brings back what he misses. Files that a
/// reset could not move back stay where they are, and so do the folders that they lie in.
void cleanGameDirectory(releases::GameDirectory& game, std::string_view programName,
                        const Unfinished& unfinished);

} // namespace cycle
