// The conflict finder: weapon IDs that two archives of the game directory claim.
#pragma once

#include <string>

#include "releases/game_directory.h"

namespace conflict {

class modConflict {
  public:
    explicit modConflict(releases::GameDirectory& game) : game_(game) {}

    /// The report of all archives in the game directory, a line for each ID. Works in a folder of
    /// its own in the data tree, which is there only meanwhile. Passes over what cannot be read.
    std::string scanWeaponIDs();

  private:
    releases::GameDirectory& game_;
};

} // namespace conflict
