// The apply: from the selection to the state of the game directory. All questions come before the
// first change, and the journal stands on the disk before the first file moves.
#pragma once

#include <functional>

#include "cycle/decisions.h"
#include "cycle/plan.h"
#include "cycle/selection.h"
#include "cycle/unfinished.h"
#include "releases/game_directory.h"

namespace cycle {

/// What a plan is made of: the folders of the game directory, without the files that a reset could
/// not move back. Both must outlive it.
Listings listingsOf(const releases::GameDirectory& game, const Unfinished& unfinished);

/// Whether the two files of a clash have the same bytes. Those that cannot be read have not.
bool holdSame(const ClashQuestion& clash, const releases::GameDirectory& game);

/// What need not be asked. The decisions may be null.
struct Settled {
    const Decisions* chosen = nullptr; ///< for this launch; goes first
    Decisions* remembered = nullptr;   ///< takes in what the user wishes to be remembered
    /// Two files of the same bytes need no choice.
    bool skipsSame = false;
};

/// Works the plan out and asks about every clash that is not settled. Changes nothing on the disk,
/// so the program may end in the middle of a question. Folders that cannot be listed count as
/// empty; files that a reset could not move back count as nobody's.
Plan makePlan(const releases::GameDirectory& game, const Selection& selection,
              const Unfinished& unfinished = {}, const Settled& settled = {});

/// The same over listings of any kind. Only `questions` is asked.
Plan makePlan(const releases::GameDirectory& game, const Listings& listings,
              platform::Questions& questions, const Selection& selection,
              const Settled& settled = {});

/// Writes the journal and its state, makes the folders, moves the files; then runs `modifier`, if
/// there is one. Where the reset before it lost a journal, the user is asked first, and the old
/// file is kept beside the new one.
///
/// False, with nothing moved, where that is declined or where journal and state cannot be written
/// whole and synced, of which the user is told. From then on every failure is passed over: a file
/// that cannot be moved is told of, all others go on. What `modifier` throws goes through.
bool carryOut(releases::GameDirectory& game, const formats::Journal& journal,
              Unfinished& unfinished, const std::function<void()>& modifier = {});

} // namespace cycle
