// The change journal: what an apply did to the game directory, so that the next start can undo it.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "engine/plan.h"

namespace engine {

/// What the reset needs of a journal. Paths are relative to the game directory.
struct Journal {
    struct Move {
        std::string source;
        std::string destination;
    };
    std::vector<std::string> folders; ///< made in the game directory, in the order of making
    std::vector<Move> moves;          ///< in the order of moving
};

/// Where a journal sent the files of the game that had to make room, by their places, case folded.
using DisplacedFiles = std::unordered_map<std::string, std::string>;

/// The journal proper, read back at the next start.
std::string journalText(const Plan& plan);

/// The same facts laid out for a person.
std::string humanText(const Plan& plan);

/// Nothing if one of the words that head the two sections is missing. A last source that has no
/// destination is passed over.
std::optional<Journal> readJournal(std::string_view text);

} // namespace engine
