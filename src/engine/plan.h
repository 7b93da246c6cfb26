// The plan: which file of which release is to lie where. Worked out of directory listings, the
// selection and the user's answers; nothing here touches the disk.
#pragma once

#include <functional>
#include <map>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "engine/modArray.h"
#include "engine/releases.h"

namespace engine {

/// One planned file. Paths are relative to the game directory.
struct moveEntry {
    std::string fromPath;
    std::string toPath;
    ReleaseType relType = ReleaseType::none;
    std::string relName;

    /// The one test of what is carried out and stands in the journal. It leaves out the game's
    /// files that stay and the entries that were cleared.
    bool moves() const { return toPath != fromPath; }
    /// Files found in the game directory are booked as those of the default total conversion.
    bool isGames() const { return relType == ReleaseType::tc && relName == defaultTC; }
};

/// The entries in the order of their coming. Slot 0 is blank and stands for nothing.
class MoveList {
  public:
    MoveList() : slots_(1) {}

    int last() const { return static_cast<int>(slots_.size()) - 1; }
    const moveEntry& operator[](int slot) const { return slots_[static_cast<std::size_t>(slot)]; }
    std::span<const moveEntry> entries() const { return std::span(slots_).subspan(1); }

    void add(moveEntry entry);
    void setToPath(int slot, std::string toPath);
    void clear(int slot);
    int firstWithDest(std::string_view toPath) const;

  private:
    moveEntry& at(int slot) { return slots_[static_cast<std::size_t>(slot)]; }
    void forget(int slot);
    void remember(int slot);

    std::vector<moveEntry> slots_;
    /// Slots by their destination, case folded.
    std::unordered_map<std::string, std::vector<int>> byDest_;
};

/// A question with Yes and No about files: true for Yes.
using AskYesNo = std::function<bool(const std::string& question)>;

/// Without leading backslashes, doubled ones made single.
std::string cleanRelPath(std::string_view path);

void addMove(MoveList& moves, std::string_view fromPath, std::string_view toPath, ReleaseType type,
             std::string_view relName);

/// The first slot with that destination, case ignored, or -1.
int findDest(const MoveList& moves, std::string_view toPath);

/// Settles who gets a destination that two entries want. The loser is cleared, but for a file of
/// the game, which goes to the holding folder.
void resolveClash(MoveList& moves, int idxA, int idxB, const AskYesNo& ask);

/// The directory listings that the plan is made of, by paths relative to the game directory. False
/// where there is no such folder, and then the array is as it was.
struct Listings {
    using List = std::function<bool(StringArray& names, const std::string& relativePath)>;
    List folders;
    List files;
};

class Plan {
  public:
    /// Books what the game directory holds, its root's text files left out.
    void gatherGame(const Listings& listings);

    /// Lays a release over the game directory. `name` is in the form in which the selection has it.
    void gatherRelease(ReleaseType type, const std::string& name, const Listings& listings,
                       const AskYesNo& ask);

    /// Asks of each EXE that a release brings whether it shall be the game, up to the first Yes.
    void chooseExe(const AskYesNo& ask);

    std::span<const moveEntry> entries() const { return moves_.entries(); }
    /// The folders directly in the game directory that the releases need.
    const StringArray& mkdirs() const { return mkdirs_; }

  private:
    void gatherFolder(ReleaseType type, const std::string& name, const std::string& folder,
                      const std::vector<std::string>& files, const std::string& sub,
                      const AskYesNo& ask);
    void gatherLoose(ReleaseType type, const std::string& name, const Listings& listings,
                     const AskYesNo& ask);
    void settleLast(const AskYesNo& ask);

    MoveList moves_;
    StringArray mkdirs_;
    /// The files of the loose folders by type, case folded; listed when first asked for.
    std::map<ReleaseType, std::unordered_set<std::string>> looseFiles_;
};

} // namespace engine
