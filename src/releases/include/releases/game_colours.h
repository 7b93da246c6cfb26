// The colours that pictures of maps are drawn in.
#pragma once

#include <optional>
#include <string>

#include "formats/picture.h"
#include "platform/disk.h"

namespace releases {

/// Out of the game's folder, its first archive, or any other that has them. Nothing where none has.
std::optional<formats::Colours> coloursOfGame(platform::Disk& disk, const std::string& folder);

} // namespace releases
