// Who gets a place that two releases want, known ahead of the question: by the user's choice before
// a launch, or by an answer that he wished to be remembered.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "cycle/clash.h"
#include "releases/release_types.h"

namespace cycle {

/// A release, by its name as people see it; the game stands as the default total conversion.
struct Owner {
    releases::ReleaseType type = releases::ReleaseType::none;
    std::string name;

    // NOLINTNEXTLINE(modernize-use-nullptr): there is no pointer in it
    auto operator<=>(const Owner&) const = default;
    bool isGame() const;
    /// As in `Map "Great Divide"`.
    std::string text() const;
};

Owner theGame();
Owner ownerOf(const moveEntry& entry);
/// What such a text names, or nothing.
std::optional<Owner> readOwner(std::string_view text);

struct Decision {
    /// A file's path; a folder's with a backslash behind it; empty for all places. Relative to the
    /// game directory, case ignored.
    std::string place;
    Owner winner;
    Owner loser;
};

class Decisions {
  public:
    /// Takes the place of one about the same two and the same place.
    void decide(Decision decision);
    /// The same without exceptions: those about the same two within the place are forgotten.
    void decideThroughout(Decision decision);
    /// False where there is none about these two and this place.
    bool forget(const Decision& decision);
    /// All about the two that reach a file.
    void forgetAt(std::string_view file, const Owner& one, const Owner& other);
    void clear() { byRivals_.clear(); }
    /// Takes in all of the others, which count where both speak of the same two and the same place.
    void add(const Decisions& others);

    /// Whether A gets the place. The closest decision counts: of the file, then of its folder, then
    /// of all places.
    std::optional<bool> isForA(const ClashQuestion& question) const;

    /// The same, told by a decision about just this place.
    std::optional<bool> isForAAt(std::string_view place, const Owner& a, const Owner& b) const;

    void rename(releases::ReleaseType type, std::string_view name, std::string_view newName);
    /// All that are about a release.
    void forget(releases::ReleaseType type, std::string_view name);

    /// By releases, then by places.
    std::vector<Decision> all() const;
    bool empty() const { return byRivals_.empty(); }

    /// A line for each that people can read, and back. Lines that say nothing of the kind are
    /// passed over; of two about the same the later one counts.
    std::string text() const;
    void readText(std::string_view text);

  private:
    using Rivals = std::pair<Owner, Owner>; ///< the smaller one first
    /// By their places, case folded.
    std::map<Rivals, std::map<std::string, Decision>> byRivals_;
};

/// The answer to a question that is known ahead: chosen before the launch, or remembered. Whether a
/// program that a release brings shall be the game is a decision about the place of the game's own
/// one. Both decisions may be null.
std::optional<Verdict> knownVerdict(const ClashQuestion& question, const Decisions* chosen,
                                    const Decisions* remembered);
std::optional<Verdict> knownVerdict(const ExeQuestion& question, const Decisions* chosen,
                                    const Decisions* remembered);

} // namespace cycle
