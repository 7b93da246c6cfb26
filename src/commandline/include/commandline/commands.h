// What the program does for a command line, without a window and without a display.
#pragma once

#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

#include "platform/disk.h"
#include "platform/programs.h"

namespace commandline {

/// What the program ends with.
enum ExitCode {
    done = 0,
    failed = 1,    ///< something could not be done; it was said what
    wrongUsage = 2 ///< nothing was done
};

struct Machine {
    platform::Disk& disk;
    platform::Programs& programs;
    std::string gameDirectory; ///< in the system's own form
    std::ostream& output;
    std::ostream& errors;
};

/// Whether a command line asks for work without a window; one that is empty, or is for the windows,
/// does not.
bool isCommand(const std::vector<std::string>& arguments);

/// Carries the command out, under the lock of the game directory.
ExitCode run(const Machine& machine, const std::vector<std::string>& arguments);

} // namespace commandline
