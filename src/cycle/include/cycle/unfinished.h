// What a reset had to leave undone. It goes with the run: the plan passes over such files, no
// command touches them, and the next journal is written only when they are noted.
#pragma once

#include <string>
#include <string_view>
#include <unordered_set>

#include "formats/journal.h"

namespace cycle {

class Unfinished {
  public:
    Unfinished() = default;
    /// `isNoted`: the disk has it.
    Unfinished(formats::Journal pending, bool isNoted);

    const formats::Journal& pending() const { return pending_; }
    bool isNoted() const { return isNoted_; }
    void setNoted() { isNoted_ = true; }

    /// The journal of the last launch could not be read: what it moved is still in the game
    /// directory, and only the journal's file tells of it, as far as it does.
    bool isJournalLost() const { return isJournalLost_; }
    void setJournalLost(bool isLost) { isJournalLost_ = isLost; }

    /// Paths are relative to the game directory; case is ignored.
    bool isPending(std::string_view path) const;
    /// Whether a file that waits belongs to a place, which is a folder or a file's own, or lies in
    /// that folder.
    bool touches(std::string_view place) const;

  private:
    formats::Journal pending_;
    std::unordered_set<std::string> destinations_;
    std::unordered_set<std::string> places_;
    bool isNoted_ = true;
    bool isJournalLost_ = false;
};

} // namespace cycle
