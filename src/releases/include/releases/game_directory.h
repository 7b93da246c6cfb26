// The game directory as all rooms above see it: where it is, what lies in it, and the guarded ways
// to change it. Whoever works on the game directory is handed one of these.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/disk.h"
#include "platform/log.h"
#include "platform/questions.h"
#include "releases/modArray.h"

namespace releases {

/// Disk, log and questions must outlive it. The log hears a breath at each name and step.
class GameDirectory {
  public:
    GameDirectory(platform::Disk& disk, platform::Log& log, platform::Questions& questions)
        : disk_(disk), log_(log), questions_(questions) {}
    /// The same directory for a piece of work with a log of its own.
    GameDirectory(const GameDirectory& other, platform::Log& log)
        : disk_(other.disk_), log_(log), questions_(other.questions_), TADir_(other.TADir_),
          dontXPSwitch_(other.dontXPSwitch_) {}

    /// The directory itself, in the system's form, without a separator at its end.
    const std::string& TADir() const { return TADir_; }
    /// Takes a folder for the game directory, which bounds all changes from then on. Does not look
    /// whether it is one, or is there at all.
    void open(const std::string& folder);

    /// Absolute paths, from ones relative to the game directory or to the data tree.
    std::string at(std::string_view relativePath) const;
    /// The same into a string whose room is used again.
    const std::string& at(std::string_view relativePath, std::string& path) const;
    std::string inDataTree(std::string_view relativePath) const;

    platform::Disk& disk() const { return disk_; }
    platform::Log& log() const { return log_; }
    platform::Questions& questions() const { return questions_; }

    /// What lies directly in a folder; nothing for one that cannot be listed.
    std::optional<platform::FolderNames> list(const std::string& thePath) const;

    /// The names of the folders, or files, directly in a folder. They catch failures: False for a
    /// folder that cannot be listed. `folderArray` then leaves the array empty, `fileArray` as it
    /// was.
    bool folderArray(StringArray& theArray, const std::string& thePath) const;
    bool fileArray(StringArray& theArray, const std::string& thePath) const;

    /// What cannot be looked at is not there. The file test does not tell files from folders.
    bool DoesFileExist(const std::string& fileToCheck) const;
    bool DoesFolderExist(const std::string& folderToCheck) const;

    /// Never overwrites: refuses, with a message, unless the source is there and its place free,
    /// both inside the game directory. A move that the system refuses is told of with the system's
    /// reason. Either way all is as it was, and the work goes on. An empty path, or one path twice,
    /// is passed over without a word.
    /// False for a move that was not made.
    bool MoveFile(const std::string& FromFile, const std::string& ToFile);

    /// The same without a word. The reason is the system's, if it gave one.
    struct MoveOutcome {
        bool isDone = false;
        std::string reason;
    };
    MoveOutcome tryMove(const std::string& from, const std::string& to);
    /// Tells of a move that failed, or was not tried, in a message and a line of the log.
    void tellOfFailedMove(const std::string& from, const std::string& to,
                          const std::string& reason = {});
    /// The message as a line of the log alone, for a move of which there is nothing wrong.
    void logFailedMove(const std::string& from, const std::string& to) const;
    /// The messages of failed moves from here on are a row of their own.
    void beginMoves() { moveFailures_ = platform::MessageRow::fromTheFirst(); }

    /// Replaces a file at the destination and makes missing folders. False where that fails.
    bool CopyFile(const std::string& FromFile, const std::string& ToFile) const;
    /// Passes over a failure. With `doCheck` it looks first whether the file is there.
    void DeleteFile(const std::string& delFile, bool doCheck) const;
    /// Removes a folder with all that the listings show of it; one that could not be emptied stays.
    /// Passes over every failure. With the flag the log tells the top folder.
    void totallyKillFolder(const std::string& folderToKill, bool showDelInShowReadme) const;

    /// Where `findString` stands in a text, counted from 1, or -1. The search goes to the right or
    /// to the left, from `startPos` or, with `noStart`, from the end where it begins.
    static int fIs(std::string_view inString, std::string_view findString, int startPos,
                   bool goL2R);
    static constexpr int noStart = -1234;

    /// Deletions go directly to the disk, not through a file operation. Told by a file in the data
    /// tree when the directory is opened.
    bool dontXPSwitch() const { return dontXPSwitch_; }

  private:
    platform::Disk& disk_;
    platform::Log& log_;
    platform::Questions& questions_;
    std::string TADir_;
    bool dontXPSwitch_ = false;
    platform::MessageRow moveFailures_ = platform::MessageRow::fromTheFirst();
};

} // namespace releases
