// All of the machine that the program is handed when it starts.
#pragma once

#include <string>

#include "installation/installation.h"
#include "platform/disk.h"
#include "platform/programs.h"
#include "windows/toolkit.h"

namespace windows {

struct Machine {
    platform::Disk& disk;
    Toolkit& toolkit;
    platform::Programs& programs;
    std::string programFolder;   ///< the directory to work in, in the system's form
    std::string programName;     ///< the program's file there, or empty where there is none
    std::string commandLine;     ///< all that says how to work there, as one string
    std::string handedOver = {}; ///< by the copy that started this one
    /// Null where the program knows of no directory but the one that it lies in.
    installation::Installation* installation = nullptr;
};

} // namespace windows
