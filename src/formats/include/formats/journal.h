// The texts of the change journal: what an apply is about to do to the game directory, so that the
// next start can undo it; and of what could not be undone.
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

/// Whether a text reads as a journal with nothing missing at its end, as far as a text without an
/// end mark can tell: its last line is whole, and each source has its destination.
bool looksWhole(std::string_view journalText);

/// The journal out of its readable twin, which has all of it. Nothing for a text with any line that
/// is not of this form.
std::optional<Journal> readHuman(std::string_view text);

/// What a reset could not undo yet: moves, and the folders that stay because of them.
std::string pendingText(const Journal& pending);

struct PendingRead {
    Journal pending; ///< as far as it could be read
    bool isWhole = false;
};
PendingRead readPending(std::string_view text);

} // namespace formats
