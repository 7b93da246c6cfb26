// What a run that was cut off left half done.
#pragma once

#include "releases/game_directory.h"

namespace cycle {

/// Removes files in the making from all folders that the program writes to, or from those alone
/// that it writes to behind the moves. Passes over every failure.
void removeLeftOvers(const releases::GameDirectory& game, bool everywhere);

} // namespace cycle
