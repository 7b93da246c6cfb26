// The conflict finder: weapon IDs that two archives of the game directory claim.
#pragma once

#include <string>
#include <vector>

#include "releases/game_directory.h"

namespace conflict {

class modConflict {
  public:
    explicit modConflict(releases::GameDirectory& game) : game_(game) {}

    struct Report {
        std::string text;      ///< a line for each ID
        std::string conflicts; ///< those lines of it that tell of a conflict
        std::vector<int> conflictIDs;
        /// What it comes to, in a line.
        std::string summary() const;
    };
    /// The report of all archives in the game directory. Works in a folder of its own in the data
    /// tree, which is there only meanwhile. Passes over what cannot be read.
    Report scanWeaponIDs();

  private:
    releases::GameDirectory& game_;
};

} // namespace conflict
