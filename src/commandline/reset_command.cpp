// The game directory made plain, for scripts and for the uninstaller. The selection stays as it was
// saved: the next catalogue begins with it.
#include "verbs.h"

namespace commandline {

ExitCode reset(Workspace& work) {
    work.refuseRunningGame();
    const bool wasPendingDamaged = work.last().damagedPending.has_value();
    const auto unfinished = work.reset();
    const bool isPlain = unfinished.pending().moves.empty() && !unfinished.isJournalLost() &&
                         !wasPendingDamaged && unfinished.isNoted();
    return isPlain && work.questions.told() == 0 ? done : failed;
}

} // namespace commandline
