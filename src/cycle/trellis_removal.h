// Takes what the build-menu modifier made out of the game directory again.
#pragma once

#include <array>

#include "releases/game_directory.h"

namespace cycle {

/// The folders that the build-menu modifier makes.
constexpr std::array<const char*, 3> modifierFolders = {"anims", "download", "guis"};

/// Removes the files that the modifier noted, and the folders that are empty then. What somebody
/// else put there, or has changed since, stays and is told of. Where the notes are missing or
/// damaged though the modifier was on, nobody knows whose the files are: the folders are moved
/// aside, whole. Passes over every failure.
void removeModifierOutput(const releases::GameDirectory& game, bool modifierWasOn);

} // namespace cycle
