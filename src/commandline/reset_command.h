// The game directory made plain, for scripts and for the uninstaller.
#pragma once

#include "commandline/commands.h"

namespace commandline {

ExitCode reset(const Machine& machine);

} // namespace commandline
