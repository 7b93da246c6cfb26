// Where this user, and an installed program, keep what belongs to no game directory.
#pragma once

#include <string>
#include <vector>

namespace platform {

/// Folders in the system's own form, empty where the system tells of none. They need not be there.
struct UserPlaces {
    std::string current; ///< where the program was started
    std::string home;
    std::string settings; ///< of this program alone
    std::string data;     ///< of this user's programs
    std::string winePrefix;
    std::vector<std::string> programs; ///< where a setup puts programs, on Windows
};

/// By the environment, as it is when this is called.
UserPlaces userPlaces();

/// The files of a new data tree, which came with an installed program: VEXILLUM_STOCK in the
/// environment, or else a folder that is reached from the program's own. Empty where there is none.
std::string stockFolder();

/// Makes a folder with all that are missing on the way to it, for this user's eyes alone. Passes
/// over one that is there; throws Failure, and may leave some of them then.
void makeFolders(const std::string& folder);

/// The folder by its real name, with no link on the way to it. One that cannot be looked at keeps
/// its name.
std::string realFolder(const std::string& folder);

} // namespace platform
