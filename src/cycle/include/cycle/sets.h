// Sets: whole selections under names, with the settings of the build-menu modifier and the
// remembered answers, each in a file that people can read, change and pass on.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "cycle/decisions.h"
#include "cycle/selection.h"
#include "releases/game_directory.h"
#include "releases/store.h"

namespace cycle {

struct Set {
    Selection selection;
    Decisions answers;
};

/// A set as text and back. Names that no release can have are left out.
std::string textOf(const Set& set);
/// Gives back why a text is no set, in a sentence for people, with the set as it was; or nothing.
/// A release that stands there twice is chosen once, whether there is such a release or not.
std::string readSet(std::string_view text, Set& set);
/// The same with a file, by its path wherever it lies.
std::string readSetFile(const releases::GameDirectory& game, const std::string& path, Set& set);

/// Takes out of a selection what is not there (any more) and gives it back, in the order of the
/// tabs. Where names differ in case alone, the selection gets the spelling that is there.
std::vector<Owner> takeOutMissing(Selection& selection, const releases::Store& store);

/// The sets of a game directory, by their names as people see them: a "/" stands as "~" in the
/// name of the file. All that can fail gives back why, in a sentence for people, or nothing; then
/// every set is as it was, whole.
class Sets {
  public:
    explicit Sets(const releases::GameDirectory& game) : game_(game) {}

    /// In the order of a listing; none where the folder cannot be listed.
    std::vector<std::string> names() const;
    bool has(std::string_view name) const;

    std::string load(std::string_view name, Set& set) const;
    /// Replaces a set of that name, and makes the folder of the sets where there is none.
    std::string save(std::string_view name, const Set& set) const;
    /// Never replaces another set. The name may be the same in another case.
    std::string rename(std::string_view name, std::string_view newName) const;
    std::string remove(std::string_view name) const;

    /// Why a new set cannot have this name, or nothing. Refused is what some system cannot have as
    /// the name of a file, so that sets can be passed on.
    static std::string reasonAgainst(std::string_view name);

    /// A release has another name now, as people see it, in all sets. Gives back those that could
    /// not be written, each with the reason. A set that cannot be read is passed over.
    std::vector<std::string> renameRelease(releases::ReleaseType type, std::string_view name,
                                           std::string_view newName) const;

  private:
    std::string folder() const;
    std::string fileOf(std::string_view name) const;
    std::string reasonToHaveNone(std::string_view name) const;

    const releases::GameDirectory& game_;
};

} // namespace cycle
