// What the files that a user has at hand may be: a name and a type to begin with, which he can
// change.
#pragma once

#include <string>
#include <vector>

#include "platform/disk.h"
#include "releases/release_types.h"

namespace releases {

struct Guess {
    std::string name; ///< of permitted characters; empty where nothing is left of the file's
    ReleaseType type = ReleaseType::none; ///< `none` where what lies inside is none of the known
};

/// By files, folders, zip archives and archives of the game, in the system's form. What cannot be
/// read tells nothing.
Guess guessRelease(platform::Disk& disk, const std::vector<std::string>& paths);

} // namespace releases
