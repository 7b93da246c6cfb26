// All that a program knows that does not lie in a game directory: its stock data, and where the
// user keeps the game.
#pragma once

#include <optional>
#include <string>

#include "installation/known_directories.h"
#include "platform/disk.h"
#include "platform/user_places.h"

namespace installation {

struct Installation {
    /// The disk is for this alone, and must outlive it. `stock` is empty where there is none.
    Installation(platform::Disk& theDisk, platform::UserPlaces thePlaces, std::string theFolder,
                 std::string theName, std::string theStock);

    platform::Disk& disk;
    platform::UserPlaces places;
    std::string programFolder; ///< that the running program lies in
    std::string programName;   ///< its file there; empty where the system does not tell
    std::string stock;
    KnownDirectories known;

    /// Whether the program is for any directory: not where a data tree lies beside it, and not
    /// where it could set up none.
    bool isInstalled() const;
    /// The running program's file, in the system's form, where that has to be started for this
    /// directory: in a game directory of its own it is not.
    std::optional<std::string> programFor(const std::string& directory) const;

    /// The directory to work in where none is named: the program's own, or for an installed one
    /// that which was used last, if it still has a data tree. Nothing where that is not known.
    std::optional<std::string> usual() const;
};

} // namespace installation
