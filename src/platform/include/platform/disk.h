// The one door to the disk.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

/// Takes a file's content piece by piece, in order.
using PieceSink = std::function<void(std::string_view piece)>;

/// Told how many bytes more have been copied.
using CopyProgress = std::function<void(std::uint64_t bytes)>;

/// A file's bytes where they lie, for as long as the view lives.
class FileView {
  public:
    FileView() = default;
    virtual ~FileView() = default;
    FileView(const FileView&) = delete;
    FileView& operator=(const FileView&) = delete;
    virtual std::span<const std::uint8_t> bytes() const = 0;
};

enum class EntryKind { none, file, folder };

/// The machine's disk under the program's own kind of path: bytes, parts set off by backslashes,
/// case ignored on every system. An entry is found whatever its case; a new one takes the spelling
/// given, while folders on the way to it keep the spelling they have.
///
/// The game directory bounds all changes: a change of anything outside it fails, and so does every
/// path below it with a part "..", ".", a drive or a separator of the system in it. Links are never
/// followed below it: a link is a file like any other. Reading works outside too, where a path may
/// have the system's own form.
///
/// Every call throws Failure if it cannot do what it says, and then has changed nothing unless
/// said.
class Disk {
  public:
    Disk() = default;
    virtual ~Disk() = default;
    Disk(const Disk&) = delete;
    Disk& operator=(const Disk&) = delete;

    /// Sets the game directory: a folder in the system's own form, without a separator at its end.
    virtual void setGameDirectory(const std::string& folder) = 0;

    /// Whether a path names an entry below the game directory in the form that journals have:
    /// not absolute once more, not below a drive, with no part that leads away.
    virtual bool isInside(std::string_view path) const = 0;

    /// The path of an entry in the system's own form, in the spelling that the disk has.
    virtual std::string systemPath(const std::string& path) = 0;

    /// Never throws: what cannot be looked at is not there.
    virtual EntryKind kindOf(const std::string& path) = 0;

    /// Bare names, ascending, case ignored. Files leave out hidden and system files. Names that a
    /// path of the program cannot express (a backslash or a line end in them) are left out.
    virtual std::vector<std::string> folderNames(const std::string& path) = 0;
    virtual std::vector<std::string> fileNames(const std::string& path) = 0;

    /// Whether an entry below a folder is a link or lies behind one. Below the game directory that
    /// makes no difference, but a folder of the user's own is read through links.
    virtual bool leadsThroughLink(const std::string& folder, const std::string& relative) = 0;

    /// Fails for a file too large to be a text.
    virtual std::string readFile(const std::string& path) = 0;

    /// Maps a file: only what is looked at is read.
    virtual std::unique_ptr<FileView> mapFile(const std::string& path) = 0;

    /// Writes a file out of pieces, in an existing folder. It takes the place of an older one only
    /// when `produce` has given out all of them; where that throws, nothing has changed.
    virtual void writePieces(const std::string& path,
                             const std::function<void(const PieceSink&)>& produce) = 0;

    /// Writes a file anew or over what it held.
    virtual void writeFile(const std::string& path, std::string_view bytes) = 0;

    /// The same in such a way that a crash leaves the old or the new file, whole.
    virtual void replaceFile(const std::string& path, std::string_view bytes) = 0;

    /// Moves a file or folder, across disks too, and makes missing folders on the way to `to`.
    /// Nothing is ever replaced: false, with nothing changed, if the source is missing or anything
    /// of the new name is there.
    virtual bool moveEntry(const std::string& from, const std::string& to) = 0;

    /// Gives an entry another name in its folder, also one that differs in case alone. False, with
    /// nothing changed, if it is missing or another entry has that name.
    virtual bool renameEntry(const std::string& path, const std::string& newName) = 0;

    /// Copies a file, its time included. Replaces a file at `to`, makes missing folders.
    /// `onProgress`, if there is one, runs now and then with the bytes copied since the last time.
    virtual void copyFile(const std::string& from, const std::string& to,
                          const CopyProgress& onProgress = {}) = 0;

    /// Removes a file, never a folder.
    virtual void removeFile(const std::string& path) = 0;

    /// Makes one folder in an existing one. Fails if anything of that name is there.
    virtual void makeFolder(const std::string& path) = 0;

    /// Removes an empty folder, never a file.
    virtual void removeFolder(const std::string& path) = 0;

    /// Removes a folder with all that is in it, hidden or not. Links are removed, never followed. A
    /// failure may leave part of it.
    virtual void removeTree(const std::string& path) = 0;

    /// Returns when all changes so far would survive a power cut.
    virtual void flush() = 0;
};

/// The disk of this machine.
std::unique_ptr<Disk> makeDisk();

/// A path as people see it: with the system's own separator.
std::string shownPath(std::string_view path);

/// The folder that the running program lies in, in the system's form, and the program's file name.
std::string programFolder();
std::string programName();

/// A folder given on a command line, made absolute, without a separator at its end.
std::string absoluteFolder(const std::string& folder);

} // namespace platform
