// The game directory that a start works in, and what has to be there for it.
#pragma once

#include <optional>
#include <string>

#include "installation/installation.h"
#include "windows/toolkit.h"

namespace windows {

/// The directory that the command line names, or else the usual one, or else that which the user
/// picks. An installed program sets its data tree up there, notes the directory as the last one
/// used, and brings its own texts in it up to date. Nothing where the user wants none, or was told
/// why it cannot be.
std::optional<std::string> chooseDirectory(Toolkit& toolkit,
                                           installation::Installation& installation,
                                           const std::optional<std::string>& named);

/// Whether a directory has a data tree, by now: where there is none it is offered to be set up. The
/// user is told of what is in the way.
bool isReady(Toolkit& toolkit, installation::Installation& installation,
             const std::string& directory);

} // namespace windows
