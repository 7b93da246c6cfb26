// All of the machine that the program is handed when it starts.
#pragma once

#include <string>

#include "platform/disk.h"
#include "platform/programs.h"
#include "windows/toolkit.h"

namespace windows {

struct Machine {
    platform::Disk& disk;
    Toolkit& toolkit;
    platform::Programs& programs;
    std::string programFolder;   ///< where the program lies, in the system's form
    std::string programName;     ///< its file's name there, or empty where there is none
    std::string commandLine;     ///< all behind the program's name, as one string
    std::string handedOver = {}; ///< by the copy that started this one
};

} // namespace windows
