// What the build-menu modifier makes in the game directory, so that the next start can take away
// that and nothing else.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace formats {

struct TrellisNotes {
    std::vector<std::string> files; ///< relative to the game directory
    bool isMade = false;            ///< all of them are written
};

std::string trellisNotesText(const TrellisNotes& notes);

struct TrellisNotesRead {
    /// As far as they could be read. Paths that lead out of the game directory are left out.
    TrellisNotes notes;
    bool isWhole = false;
};
TrellisNotesRead readTrellisNotes(std::string_view text);

} // namespace formats
