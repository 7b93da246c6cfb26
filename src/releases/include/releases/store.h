// The data tree: which releases there are, where their files lie, their texts and codes, and the
// changes that a user makes to it by name.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "releases/game_directory.h"
#include "releases/modArray.h"
#include "releases/release_types.h"
#include "releases/tally.h"

namespace releases {

/// What the catalogue shows of a release.
struct ReleaseTexts {
    /// The absolute path of a file that is there.
    std::optional<std::string> readme;
    std::optional<std::string>
        about; ///< its lines, each with a line break; nothing if there is none
    std::optional<std::vector<std::string>> codes;
};

/// Releases by type and display name. Nothing of a release is kept but the name of its folder:
/// texts and codes are read whenever they are asked for.
class Store {
  public:
    explicit Store(GameDirectory& game) : game_(game) {}

    /// Reads the names of all folders of the data tree. They stay as they are until the next time:
    /// whatever adds, renames or removes a release shows at the program's next start. A data tree
    /// that cannot be listed has none.
    void read();
    const StringArray& storeFolders() const { return storeFolders_; }

    /// The display names of a type's releases, in the order of a listing; a name may occur twice,
    /// as a folder and as a loose file. Loose files are listed anew each time.
    std::vector<std::string> releasesOf(ReleaseType type) const;
    int countOf(ReleaseType type) const;
    /// Whether a release has a folder, by the form of its name that the folder has.
    bool hasFolder(ReleaseType type, std::string_view folderName) const;

    /// Whether a release is on the disk now, whatever was read before.
    bool isThere(ReleaseType type, std::string_view displayName) const;

    /// The absolute path of a release's folder, whether there is one or not.
    std::string folderOf(ReleaseType type, std::string_view displayName) const;

    /// Where its files belong, relative to the game directory: a folder, and where its type has
    /// such releases, a loose file.
    std::vector<std::string> placesOf(ReleaseType type, std::string_view displayName) const;

    /// A release without a folder is taken for a loose file. What cannot be read shows as not
    /// there.
    ReleaseTexts textsOf(ReleaseType type, std::string_view displayName) const;

    /// The folder to look into for a release's files: its own, or that of the loose files.
    std::string shownFolderOf(ReleaseType type, std::string_view displayName) const;

    enum class Text { about, codes };
    /// Where a text of a release belongs, whether it is there or not. Nothing for the codes of a
    /// loose file, which has none.
    std::optional<std::string> placeOfText(ReleaseType type, std::string_view displayName,
                                           Text text) const;

    /// The absolute path of what there is of a release: its folder, or its loose file.
    std::string pathOf(ReleaseType type, std::string_view displayName) const;

    /// When a release was changed last, in seconds since 1970, as far as a short look tells; 0
    /// where nothing is found.
    std::int64_t dateOf(ReleaseType type, std::string_view displayName) const;
    /// What there is of a release, to be counted bit by bit.
    Tally tallyOf(ReleaseType type, std::string_view displayName) const;

    /// Gives a release's folder another name. Returns why that could not be done, in a sentence for
    /// people, or nothing. A loose file cannot be renamed.
    std::string rename(ReleaseType type, std::string_view oldName, std::string_view newName) const;

    struct Removal {
        std::string reason;            ///< why not all of it is gone for good; empty where it is
        std::vector<std::string> left; ///< the files that are still there, by their paths
    };
    /// Removes a release with its folder, or a loose file with the text beside it. Goes on behind
    /// a failure; what could not be removed is there at the next start.
    Removal remove(ReleaseType type, std::string_view displayName) const;

  private:
    void addFilesOf(const std::string& folder, std::vector<std::string>& files) const;
    std::string looseFolderOf(ReleaseType type) const;
    /// The file of a release that is loose.
    std::optional<std::string> looseFileOf(ReleaseType type, std::string_view displayName) const;
    std::vector<std::string> looseFiles(ReleaseType type) const;
    std::optional<std::string> companionOf(ReleaseType type, std::string_view file) const;
    std::optional<std::string> readText(const std::string& path) const;

    GameDirectory& game_;
    StringArray storeFolders_;
};

} // namespace releases
