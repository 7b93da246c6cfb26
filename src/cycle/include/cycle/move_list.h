// The planned files in the order of their coming, found by where they are to go.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/hash_chains.h"
#include "releases/release_types.h"

namespace cycle {

/// One planned file. Paths are relative to the game directory.
struct moveEntry {
    std::string fromPath;
    std::string toPath;
    releases::ReleaseType relType = releases::ReleaseType::none;
    std::string relName;

    /// The one test of what is carried out and stands in the journal. It leaves out the game's
    /// files that stay and the entries that were cleared.
    bool moves() const { return toPath != fromPath; }
    /// Files found in the game directory are booked as those of the default total conversion.
    bool isGames() const {
        return relType == releases::ReleaseType::tc && relName == releases::defaultTC;
    }
};

/// Slot 0 is blank and stands for nothing.
class MoveList {
  public:
    MoveList() : slots_(1) {}

    int last() const { return static_cast<int>(slots_.size()) - 1; }
    const moveEntry& operator[](int slot) const { return slots_[static_cast<std::size_t>(slot)]; }
    std::span<const moveEntry> entries() const { return std::span(slots_).subspan(1); }
    /// Hands all slots out, the blank one included; the list is empty then.
    std::vector<moveEntry> takeSlots();

    /// A slot keeps its number for good. The calls below take those from 1 to `last`.
    void add(moveEntry entry);
    void setToPath(int slot, std::string toPath);
    /// Makes a slot blank: it moves nothing, and no destination finds it.
    void clear(int slot);
    /// The first slot with that destination, case ignored, or -1.
    int firstWithDest(std::string_view toPath) const;

  private:
    moveEntry& at(int slot) { return slots_[static_cast<std::size_t>(slot)]; }
    void forget(int slot);
    void remember(int slot);

    std::vector<moveEntry> slots_;
    /// By their destinations, whatever the case.
    platform::HashChains byDest_;
};

/// Without leading backslashes, doubled ones made single.
std::string cleanRelPath(std::string path);

/// Adds an entry with both paths cleaned. `relName` is in the form in which the selection has it.
void addMove(MoveList& moves, std::string fromPath, std::string toPath, releases::ReleaseType type,
             std::string_view relName);

/// The first slot with that destination, case ignored, or -1.
int findDest(const MoveList& moves, std::string_view toPath);

} // namespace cycle
