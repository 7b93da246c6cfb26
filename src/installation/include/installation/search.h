// Looks where games of Windows are usually kept.
#pragma once

#include <chrono>
#include <cstddef>
#include <string>
#include <vector>

#include "platform/disk.h"
#include "platform/user_places.h"

namespace installation {

/// What a search may cost. Where it is used up, what was found is all.
struct SearchLimits {
    std::size_t folders = 2000; ///< that are looked at, for each place of the search
    std::chrono::milliseconds time{1500};
};

/// The folders that hold the game, in the system's form, the likeliest first: the current folder,
/// wine prefixes, then game libraries below the home folder. Links are not followed, but where a
/// place that is looked at is one itself. What cannot be read is passed over.
std::vector<std::string> findDirectories(platform::Disk& disk, const platform::UserPlaces& places,
                                         const SearchLimits& limits = {});

/// Those in one folder, itself among them, a few levels deep.
std::vector<std::string> findBelow(platform::Disk& disk, const std::string& folder,
                                   const SearchLimits& limits = {});

} // namespace installation
