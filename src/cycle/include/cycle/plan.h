// The plan: which file of which release is to lie where. Worked out of directory listings, the
// selection and the user's answers; nothing here touches the disk.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "cycle/clash.h"
#include "cycle/move_list.h"
#include "cycle/selection.h"
#include "formats/journal.h"
#include "platform/disk.h"
#include "releases/modArray.h"

namespace cycle {

/// The directory listings that the plan is made of, by paths relative to the game directory, empty
/// for that itself. Nothing where there is no such folder. Names are in the order of a listing.
using Listings =
    std::function<std::optional<platform::FolderNames>(const std::string& relativePath)>;

/// Text files at the root of a release, or of the game, are documentation.
bool isDocumentation(std::string_view file, bool atRoot);

/// Files count that lie at the root of the game or of a release, or in a folder directly below it.
/// Left where they are: text files at a root, which are documentation, and names in one folder that
/// differ in case alone, which could not be told apart on the way back.
class Plan {
  public:
    /// The whole plan of a selection: the game, then the releases in the order of their types, then
    /// the question of the game's own program.
    static Plan make(const Selection& selection, const Listings& listings, const Answers& answers);

    /// The stages of it, one by one. `name` is in the form in which the selection has it.
    void gatherGame(const Listings& listings);
    void gatherRelease(releases::ReleaseType type, const std::string& name,
                       const Listings& listings, const Answers& answers);
    void chooseExe(const Answers& answers);

    /// All files that count, those that stay where they are and those that were cleared included.
    std::span<const moveEntry> entries() const { return moves_.entries(); }
    /// The folders directly in the game directory that the releases need.
    const releases::StringArray& mkdirs() const { return mkdirs_; }
    /// In the order in which they were settled.
    const std::vector<Clash>& clashes() const { return clashes_; }

    /// What is carried out, and what the next start is to undo. The order counts: a file of the
    /// game leaves its place ahead of the release's file that comes there.
    formats::Journal journal() const&;
    formats::Journal journal() &&;

  private:
    void gatherFolder(releases::ReleaseType type, const std::string& name, const std::string& from,
                      const std::string& to, const platform::FolderNames& names,
                      const Answers& answers);
    void gatherLoose(releases::ReleaseType type, const std::string& name, const Listings& listings,
                     const Answers& answers);
    void settleLast(const Answers& answers);

    MoveList moves_;
    releases::StringArray mkdirs_;
    std::vector<Clash> clashes_;
    /// The files of the loose folders by type, case folded; listed when first asked for.
    std::map<releases::ReleaseType, std::unordered_set<std::string>> looseFiles_;
};

} // namespace cycle
