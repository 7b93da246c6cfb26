// What the files that a user has at hand may be: a name, a type and a text to begin with, which he
// can change.
#pragma once

#include <string>
#include <vector>

#include "platform/disk.h"
#include "releases/release_types.h"

namespace releases {

struct Guess {
    /// That of the only map, or of the only unit, else the first file's; of permitted characters.
    /// Empty where nothing is left of it.
    std::string name;
    ReleaseType type = ReleaseType::none; ///< `none` where what lies inside is none of the known
    /// About the only map or unit, as `aboutText` tells it; empty where there is none or several.
    std::string about;
};

/// By files, folders, zip archives and archives of the game, in the system's form; a release's own
/// folder too. What cannot be read tells nothing.
Guess guessRelease(platform::Disk& disk, const std::vector<std::string>& paths);

} // namespace releases
