// What a run that was cut off left half done.
#pragma once

#include "releases/game_directory.h"

namespace cycle {

/// Removes files in the making from all folders that the program writes to. Passes over every
/// failure.
void removeLeftOvers(const releases::GameDirectory& game);

} // namespace cycle
