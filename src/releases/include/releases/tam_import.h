// A release in the format of another tool, TAM, becomes one of the data tree. The TAM release stays
// where it is.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "formats/tam_release.h"
#include "platform/write_batch.h"
#include "releases/game_directory.h"

namespace releases {

class TamImport {
  public:
    /// A file of the new release, by its path below the game directory with a backslash ahead. One
    /// that was not there or could not be copied is among them, with a note.
    struct Added {
        std::string file;
        std::string note; ///< what went wrong with it, or nothing
    };

    explicit TamImport(GameDirectory& game) : game_(game) {}

    /// Converts the release of a data file, by its path in the system's form, into a new release of
    /// a type. False where it was not converted to the end; the user has been told why, and what
    /// was made by then stays.
    bool convert(formats::TamType type, const std::string& path, const std::string& shortType);

    /// What the last conversion has made, in its order, also of one that ended early.
    const std::vector<Added>& added() const { return added_; }

  private:
    bool carryOut(const formats::TamStep& step);
    bool commit(platform::WriteBatch& files);
    bool makeReleaseFolder(const std::string& name);
    void add(const std::string& name, const std::string& note, const std::function<void()>& make);
    void copyMember(const formats::TamStep& step);

    GameDirectory& game_;
    std::string shortType_;
    std::string dataFolder_;
    std::string releaseFolder_; ///< below the game directory
    std::vector<Added> added_;
    std::string reason_; ///< of the last file that could not be copied
};

} // namespace releases
