// The texts of the change journal: what an apply is about to do to the game directory, so that the
// next start can undo it.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace formats {

/// Paths are relative to the game directory, in the program's own form. Nothing here holds them
/// against the rules for paths: a journal may be damaged, so the disk does.
struct Journal {
    struct Move {
        std::string source;
        std::string destination;
        // For the readable text alone; empty and 0 in a journal that was read back.
        std::string release;
        int typeNumber = 0;
    };
    std::vector<std::string> folders; ///< made in the game directory, in the order of making
    std::vector<Move> moves;          ///< in the order of moving
};

/// The journal proper, read back at the next start: a line for each folder, two for each move. A
/// path with a line end in it cannot be told; the disk lists none.
std::string journalText(const Journal& journal);

/// The same facts laid out for a person.
std::string humanText(const Journal& journal);

/// Nothing if one of the words that head the two sections is missing. A last source that has no
/// destination is passed over: a journal that ends between two lines keeps its whole pairs.
std::optional<Journal> readJournal(std::string_view text);

} // namespace formats
