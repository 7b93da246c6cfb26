// What the chosen archives define against each other, and which of them are damaged: told ahead of
// a launch, out of the archives where they lie.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "cycle/preview.h"
#include "platform/disk.h"
#include "platform/log.h"
#include "releases/game_directory.h"

namespace conflict {

struct ChosenArchive {
    std::string name;  ///< as it will lie in the game directory, which decides on the order
    std::string path;  ///< absolute, where it lies now
    std::string owner; ///< who brings it, as in `Map "Great Divide"`
};

/// Where something stands.
struct Source {
    std::string archive; ///< its name in the game directory
    std::string owner;
    std::string path; ///< in the archive

    bool operator==(const Source&) const = default;
};

/// One file of which archives have versions with different bytes.
struct DoubledFile {
    struct Version {
        Source source;
        std::uint64_t size = 0; ///< bytes, unpacked
        bool isSame = false;    ///< has the bytes of the version that the game takes
    };
    std::string path;              ///< in the spelling that the game finds
    std::vector<Version> versions; ///< the one that the game takes comes first

    /// Whoever brings it has made it so.
    bool isOfOneOwner() const;
};

/// A unit's name that is given more than once. Copies of one file, byte for byte, count once.
struct DoubledUnit {
    struct Definition {
        Source source;
        bool isTaken = true; ///< false where another archive's file of that path is taken instead
    };
    std::string name;
    std::vector<Definition> definitions;

    bool isOfOneOwner() const;
};

/// A builder's menu with more on it than it has room for: seven menus of six buttons, numbered as
/// the game does, menus from 2 and buttons from 0.
struct OverflowingMenu {
    struct Entry {
        std::string unit;
        Source source;
    };
    /// A button that different units want. The game shows one of them.
    struct SharedButton {
        int menu = 0;
        int button = 0;
        std::vector<Entry> units;
    };
    std::string builder;
    std::vector<SharedButton> sharedButtons;
    /// The units that the build-menu modifier would find no button for, once all menus are merged.
    std::vector<Entry> leftOut;
};

struct DamagedArchive {
    struct File {
        std::string path;
        std::string reason;
    };
    std::string archive;
    std::string owner;
    std::string reason;      ///< what is wrong with the archive as a whole; empty where nothing is
    std::vector<File> files; ///< what cannot be read of it
};

struct ArchiveReports {
    std::vector<DoubledFile> doubledFiles;         ///< by their paths
    std::vector<DoubledUnit> doubledUnits;         ///< by their names
    std::vector<OverflowingMenu> overflowingMenus; ///< by their builders
    std::vector<DamagedArchive> damagedArchives;   ///< as the game orders them

    bool empty() const;
    /// What it comes to, in a line.
    std::string summary() const;
    /// All of it for a person to read; every line has a line break.
    std::string text() const;
};

struct ReportSettings {
    /// The build-menu modifier closes the gaps in the menus, and so drops placeholders.
    bool compressMenus = false;
    /// Unpacks every file of every archive, so that no damage escapes. Otherwise the directories
    /// are read, the menus, the units and what lies in two archives; damage elsewhere shows where
    /// the directory does not agree with the archive's length.
    bool readEverything = false;
};

/// Reads the archives and changes nothing. Only files that the game opens by their names count as
/// archives. What cannot be read is reported as damage and otherwise passed over; nothing is
/// thrown. Tells the log its stages and how far they have come.
ArchiveReports reportOnArchives(platform::Disk& disk, std::span<const ChosenArchive> archives,
                                platform::Log& log, const ReportSettings& settings = {});

/// The archives that will lie in the game directory after a launch.
std::vector<ChosenArchive> archivesOf(const releases::GameDirectory& game,
                                      const cycle::Preview& preview);

} // namespace conflict
