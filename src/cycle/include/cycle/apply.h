// The apply: from the selection to the state of the game directory. All questions come before the
// first change, and the journal stands on the disk before the first file moves.
#pragma once

#include <functional>

#include "cycle/plan.h"
#include "cycle/selection.h"
#include "releases/game_directory.h"

namespace cycle {

/// Works the plan out and asks about every clash. Changes nothing on the disk, so the program may
/// end in the middle of a question. Folders that cannot be listed count as empty.
Plan makePlan(const releases::GameDirectory& game, const Selection& selection);

/// Writes the journal, makes the folders, moves the files; then runs `modifier`, if there is one.
/// Passes over every failure, that of writing the journal too: a file that cannot be moved is told
/// of, all others go on. What the reset before it changed is synced before the journal of that
/// reset is replaced. What `modifier` throws goes through.
void carryOut(releases::GameDirectory& game, const formats::Journal& journal,
              const std::function<void()>& modifier = {});

} // namespace cycle
