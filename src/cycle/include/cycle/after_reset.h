// What a reset would leave, told without one: so that a launch can be planned, and all its
// questions asked, while the last one still lies in the game directory.
#pragma once

#include <optional>

#include "cycle/last_launch.h"
#include "cycle/plan.h"
#include "releases/game_directory.h"

namespace cycle {

/// The listings of a plan. Nothing where it cannot be told for sure: behind a launch that was
/// interrupted, where files were touched since or wait to be moved back. The directory must outlive
/// them, and stay as it is.
std::optional<Listings> listingsAfterReset(const releases::GameDirectory& game,
                                           const LastLaunch& last);

} // namespace cycle
