// The game directory as a launch would leave it, worked out without changing anything: what lies
// where, who else wanted the place, and what would fail.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "cycle/decisions.h"
#include "cycle/plan.h"
#include "cycle/selection.h"
#include "cycle/unfinished.h"
#include "releases/game_directory.h"

namespace cycle {

struct Preview {
    /// Who wanted a place too.
    struct Rival {
        Owner owner;
        Owner lostTo;
        Why why = Why::answered;
        std::string path;    ///< where its file lies now, relative to the game directory
        std::string waitsAt; ///< where a file of the game makes room for the winner
    };
    struct File {
        std::string path; ///< relative to the game directory, in the spelling that it will have
        Owner owner;
        std::string from;       ///< where it lies now; the path itself for one that stays
        std::uint64_t size = 0; ///< bytes
        std::vector<Rival> rivals;

        /// Two different files want the place.
        bool isConflict() const;
        /// The user will be asked who gets it.
        bool isOpen() const;
        /// Who wants the place, the owner first, each once.
        std::vector<Owner> contenders() const;
    };
    /// A move that will fail, since something is in its way that no release answers for.
    struct Blocked {
        std::string from;
        std::string to;
        Owner owner;
    };

    /// By their paths, case ignored. Without what lies in the data tree already.
    std::vector<File> files;
    std::vector<std::string> newFolders;
    std::vector<Blocked> blocked;
    /// What the launch would write down.
    formats::Journal journal;

    std::uint64_t size() const;
    int conflicts() const;
    int open() const;
    /// Files of the game that make room.
    int displaced() const;
};

/// Folders that cannot be listed count as empty. Both decisions may be null; where neither knows,
/// A is taken, as by the default button of the question. That a release's program becomes the game
/// is a conflict with the game's own one, whether the game has one or not.
Preview makePreview(const releases::GameDirectory& game, const Selection& selection,
                    const Unfinished& unfinished, const Decisions* chosen,
                    const Decisions* remembered);

/// How far a choice reaches.
enum class Reach { file, folder, everywhere };

/// What is decided where one of its contenders gets a file, or all that it and they both bring to
/// the folder, or anywhere.
std::vector<Decision> decisionsFor(const Preview::File& file, const Owner& winner, Reach reach);

} // namespace cycle
