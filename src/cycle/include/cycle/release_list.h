// The list that a player gives to a friend: which releases he plays with, and which files they lay
// into the game. The friend holds it against his own data tree.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "cycle/decisions.h"
#include "cycle/selection.h"
#include "releases/game_directory.h"
#include "releases/store.h"

namespace cycle {

struct ListedFile {
    std::string path;       ///< where a launch lays it, relative to the game directory
    std::uint64_t size = 0; ///< bytes
    std::uint32_t checksum = 0;

    bool operator==(const ListedFile&) const = default;
};

struct ListedRelease {
    Owner release;
    std::vector<ListedFile> files;

    bool operator==(const ListedRelease&) const = default;
};

/// In the order in which a launch lays them over the game.
using ReleaseList = std::vector<ListedRelease>;

/// What a launch would lay into the game, without the releases that stand for the game as it came.
/// What is chosen and not there is left out. Reads all of the files; throws Failure for one that
/// cannot be read.
ReleaseList listReleases(const releases::GameDirectory& game, const releases::Store& store,
                         const Selection& selection);

/// A list as text and back. Gives back why a text is no list, in a sentence for people, with the
/// list as it was; or nothing. Names and paths that lead out of a folder are refused.
std::string textOf(const ReleaseList& list);
std::string readReleaseList(std::string_view text, ReleaseList& list);
/// The same with a file, by its path wherever it lies.
std::string readReleaseListFile(const releases::GameDirectory& game, const std::string& path,
                                ReleaseList& list);

/// What the data tree lacks of a list, in the order of the list.
struct ListComparison {
    /// One that is there with other files than in the list, by the paths of those.
    struct OtherVersion {
        Owner release;
        std::vector<std::string> missing;
        std::vector<std::string> different;
        std::vector<std::string> notListed;
    };
    std::vector<Owner> missing;
    std::vector<OtherVersion> otherVersions;
    std::size_t same = 0; ///< releases

    /// For people, with the program's line breaks.
    std::string text() const;
};

/// Reads the files whose sizes are those of the list; throws Failure for one that cannot be read.
/// Names may differ in case.
ListComparison compare(const ReleaseList& list, const releases::GameDirectory& game,
                       const releases::Store& store);

} // namespace cycle
