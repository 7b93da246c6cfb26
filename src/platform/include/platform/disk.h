// The one door to the disk.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace platform {

class Folder;
class FolderCache;
class PartFile;
class RawDisk;
class RawFile;
struct RawEntry;
class SharedFiles;
struct Spot;
class WriteBatch;

/// Takes a file's content piece by piece, in order.
using PieceSink = std::function<void(std::string_view piece)>;

/// Told how many bytes more have been copied.
using CopyProgress = std::function<void(std::uint64_t bytes)>;

/// A file's bytes where they lie, for as long as the view lives. A file that is cut while a view of
/// it lives takes its bytes away under the reader: the system may end the program.
class FileView {
  public:
    FileView() = default;
    virtual ~FileView() = default;
    FileView(const FileView&) = delete;
    FileView& operator=(const FileView&) = delete;
    /// All of the file, as long as it was when it was mapped; empty for an empty one.
    virtual std::span<const std::uint8_t> bytes() const = 0;
};

/// An open file, read from its start on. The disk it came from must outlive it. Calls throw
/// Failure.
class FileReader {
  public:
    FileReader() = default;
    virtual ~FileReader() = default;
    FileReader(const FileReader&) = delete;
    FileReader& operator=(const FileReader&) = delete;

    /// Bytes, as they were when the file was opened.
    virtual std::uint64_t size() const = 0;
    /// How many bytes were read: none only at the end of the file.
    virtual std::size_t read(std::span<std::uint8_t> into) = 0;
    /// Where the next read begins, in bytes from the start. Beyond the end there is nothing.
    virtual void seek(std::uint64_t offset) = 0;
};

/// A link, a pipe or a device counts as a file; a link to a folder too, where links are not
/// followed.
enum class EntryKind { none, file, folder };

struct EntryFacts {
    EntryKind kind = EntryKind::none;
    std::uint64_t size = 0; ///< bytes, of a file
    /// When its content, name or permissions last changed, by the clock of the disk it lies on, in
    /// nanoseconds; 0 where the system does not tell. Only for comparing.
    std::int64_t changed = 0;
    /// When its content last changed, in nanoseconds since 1970; 0 where that is not known. A copy
    /// has the time of what it was copied from.
    std::int64_t modified = 0;
};

/// Bare names, ascending, case ignored.
struct FolderNames {
    std::vector<std::string> folders;
    std::vector<std::string> files;
};

/// A disk under the program's own kind of path: bytes, parts set off by backslashes, case ignored
/// on every system. An entry is found whatever its case; a new one takes the spelling given, while
/// folders on the way to it keep the spelling they have.
///
/// The game directory bounds all changes: a change of anything outside it fails, and so does every
/// path below it that RelativePath refuses as one of the program's own. Links are never followed
/// below it: a link is a file like any other. Reading works outside too, where a path may have the
/// system's own form.
///
/// Every call throws Failure if it cannot do what it says, and then has changed nothing unless
/// said: folders made on the way are gone again, and so are half files.
///
/// What others change in a folder is seen at once by its listings, and by all other calls a tenth
/// of a second later; in a folder that the program itself is changing it may take until a pause.
class Disk {
  public:
    explicit Disk(std::shared_ptr<RawDisk> raw);
    virtual ~Disk();
    Disk(const Disk&) = delete;
    Disk& operator=(const Disk&) = delete;

    const std::shared_ptr<RawDisk>& raw() const { return raw_; }

    /// Sets the game directory: a folder in the system's own form, without a separator at its end.
    /// Does not look whether it is there. Until then no change is allowed anywhere.
    void setGameDirectory(const std::string& folder);
    const std::string& gameDirectory() const;

    /// Whether a path names an entry below the game directory in the form that journals have:
    /// not absolute once more, not below a drive, with no part that leads away.
    bool isInside(std::string_view path) const;

    /// The path of an entry in the system's own form, in the spelling that the disk has. Parts that
    /// are not there keep the spelling given.
    std::string systemPath(const std::string& path);

    /// Never throws: what cannot be looked at is not there.
    EntryKind kindOf(const std::string& path);

    /// What there is to be known of an entry. Never throws: what cannot be looked at is not there.
    EntryFacts factsOf(const std::string& path);

    /// What lies directly in a folder. Files leave out hidden and system files. Names that a path
    /// of the program cannot express (a backslash or a line end in them) are left out.
    FolderNames list(const std::string& path);
    /// One half of it.
    std::vector<std::string> folderNames(const std::string& path);
    std::vector<std::string> fileNames(const std::string& path);

    /// Whether an entry below a folder is a link or lies behind one. Below the game directory that
    /// makes no difference, but a folder of the user's own is read through links.
    bool leadsThroughLink(const std::string& folder, const std::string& relative);

    /// Whether two entries are files with the same bytes; an entry is no copy of itself. Throws for
    /// what is no readable file.
    bool holdSame(const std::string& one, const std::string& other);

    /// Bytes in a file.
    std::uint64_t sizeOf(const std::string& path);

    /// All bytes of a file. Fails for one too large to be a text (256 MiB).
    std::string readFile(const std::string& path);

    /// Maps a file: only what is looked at is read.
    std::unique_ptr<FileView> mapFile(const std::string& path);

    /// Opens a file to read pieces of it. It can be moved and replaced meanwhile; the reader stays
    /// with the one that was opened.
    std::unique_ptr<FileReader> openFile(const std::string& path);

    /// Writes a file out of pieces, in an existing folder. It takes the place of an older one only
    /// when `produce` has given out all of them; where that throws, nothing has changed.
    void writePieces(const std::string& path, const std::function<void(const PieceSink&)>& produce);

    /// Writes a file anew or over what it held. A failure in the middle may leave an older file
    /// cut; a new one is gone again.
    void writeFile(const std::string& path, std::string_view bytes);

    /// The same in such a way that a crash or power cut leaves the old or the new file, whole. When
    /// it returns, the new one is there to stay; only where that last step fails the new one is in
    /// its place behind a failure.
    void replaceFile(const std::string& path, std::string_view bytes);

    /// Moves a file, link or folder, across disks too, and makes missing folders on the way to
    /// `to`. Nothing is ever replaced: false, with nothing changed, if the source is missing or
    /// anything of the new name is there.
    ///
    /// Across disks the whole entry is copied beside its new place, permissions, times, links and
    /// hard links included, the owner where that is allowed, and synced before it gets its name;
    /// only then the original goes. Names of one file that are moved one by one are names of one
    /// file there too.
    bool moveEntry(const std::string& from, const std::string& to);

    /// Gives an entry another name in its folder, also one that differs in case alone. False, with
    /// nothing changed, if it is missing or another entry has that name.
    bool renameEntry(const std::string& path, const std::string& newName);

    /// Copies a file, its time included. Replaces a file at `to`, which a power cut leaves old or
    /// new, whole; makes missing folders.
    /// `onProgress`, if there is one, runs now and then with the bytes copied since the last time.
    void copyFile(const std::string& from, const std::string& to,
                  const CopyProgress& onProgress = {});

    /// Removes a file, never a folder.
    void removeFile(const std::string& path);

    /// Makes one folder in an existing one. Fails if anything of that name is there.
    void makeFolder(const std::string& path);

    /// Removes an empty folder, never a file.
    void removeFolder(const std::string& path);

    /// Removes a folder with all that is in it, hidden or not. Links are removed, never followed. A
    /// failure may leave part of it.
    void removeTree(const std::string& path);

    /// Throws Failure where a folder takes no new files, which is tried.
    void checkWritable(const std::string& folder);

    /// Removes from a folder what processes that run no more left half done there: files and
    /// folders in the making, which have their content elsewhere. Passes over failures, a folder
    /// that is not there among them.
    void removeLeftOvers(const std::string& folder);

    /// Returns when all changes so far would survive a power cut.
    void flush();

  protected:
    /// Called by each change with the path it is about, before anything is looked at or done. What
    /// it throws keeps the change from happening.
    virtual void aboutToChange(const std::string& path);

  private:
    struct Target;

    std::unique_ptr<RawFile> openToRead(const std::string& path, std::string_view call,
                                        RawEntry& entry);
    bool isOneEntry(const std::string& one, const std::string& other);
    void finish(std::unique_ptr<PartFile> part, const Target& target);
    Target targetOf(const Spot& spot, const std::string& path);
    void overwrite(const Target& target, const std::string& path, std::string_view bytes);
    bool move(const Spot& source, const Spot& target, const std::string& to);
    bool moveToOtherDisk(Folder& from, const std::string& name, const Spot& target,
                         const std::string& to);
    void remove(const std::string& path,
                const std::function<std::error_code(Folder&, const std::string&)>& step);

    std::shared_ptr<RawDisk> raw_;
    std::unique_ptr<FolderCache> folders_;
    std::unique_ptr<SharedFiles> sharedFiles_;
    friend class WriteBatch;
    WriteBatch* batch_ = nullptr;
};

/// The disk of this machine.
std::unique_ptr<Disk> makeDisk();

/// A path as people see it: with the system's own separator.
std::string shownPath(std::string_view path);

/// The folder that the running program lies in, in the system's form, and the program's file name.
/// Where the system does not tell: the current folder, and an empty name.
std::string programFolder();
std::string programName();

/// A folder given on a command line, made absolute, without a separator at its end. Does not look
/// whether it is there.
std::string absoluteFolder(const std::string& folder);

} // namespace platform
