// What the program does for a command line, without a window and without a display.
#pragma once

#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

#include "installation/installation.h"
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
    /// Where none is named, in the system's own form; empty where none is known.
    std::string gameDirectory;
    std::ostream& output;
    std::ostream& errors;
    installation::Installation* installation = nullptr; ///< null where the program knows of none
};

/// A command line for the windows.
struct WindowsLine {
    std::optional<std::string> directory; ///< as it was given
    std::string rest;
};

/// Nothing for one that asks for work without a window, or says nothing that could be done.
std::optional<WindowsLine> windowsLine(std::vector<std::string> arguments);

/// Carries the command out, under the lock of the game directory.
ExitCode run(const Machine& machine, const std::vector<std::string>& arguments);

} // namespace commandline
