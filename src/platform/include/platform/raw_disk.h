// The few calls that a system must offer. All promises of the disk are made above them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace platform {

class FileView;

/// Two entries are one where both numbers are equal, whatever path led to them.
struct Identity {
    std::uint64_t device = 0;
    std::uint64_t number = 0;
    bool operator==(const Identity&) const = default;
};

enum class RawKind { file, folder, link, other };

/// Nanoseconds since 1970.
using FileTime = std::int64_t;

/// What the system tells of an entry. The size, in bytes, counts for files alone.
struct RawEntry {
    RawKind kind = RawKind::other;
    Identity identity;
    std::uint64_t size = 0;
    std::uint64_t names = 1; ///< hard links
    std::uint32_t mode = 0;  ///< permissions, as far as the system has them
    /// By the system's numbers, where it has such.
    std::uint32_t owner = 0;
    std::uint32_t group = 0;
    FileTime accessed = 0;
    FileTime modified = 0;
    /// When anything about the entry last changed: content, name, permissions. Nobody can set it; 0
    /// where the system does not tell.
    FileTime changed = 0;
};

/// A link is told as a link, wherever it leads.
struct RawName {
    std::string name;
    RawKind kind = RawKind::other;
    bool isHidden = false;
};

/// What is done with a link under the very name that is asked for: taken as it is, or as what it
/// leads to.
enum class Links { kept, followed };

/// An open folder. It stays the same folder when it gets another name, unless the system can hold
/// on to names alone.
class RawFolder {
  public:
    RawFolder() = default;
    virtual ~RawFolder() = default;
    RawFolder(const RawFolder&) = delete;
    RawFolder& operator=(const RawFolder&) = delete;
};

/// An open file.
class RawFile {
  public:
    RawFile() = default;
    virtual ~RawFile() = default;
    RawFile(const RawFile&) = delete;
    RawFile& operator=(const RawFile&) = delete;
};

/// Names are those of single entries, in the bytes that the disk has; nothing here knows of paths,
/// case or the game. A call gives back the system's error, or none; on an error it has changed
/// nothing, and what it was to give back holds nothing of use. Folders and files serve only the
/// disk that opened them.
class RawDisk {
  public:
    using Error = std::error_code;

    RawDisk() = default;
    virtual ~RawDisk() = default;
    RawDisk(const RawDisk&) = delete;
    RawDisk& operator=(const RawDisk&) = delete;

    /// Whether names that differ in case alone are one name to the system.
    virtual bool ignoresCase() const = 0;
    /// Whether calls may come from several threads at once.
    virtual bool servesThreads() const { return false; }

    /// Opens a folder by its absolute path in the system's own form; links in it are followed.
    virtual Error openRoot(const std::string& path, std::unique_ptr<RawFolder>& folder) = 0;
    /// not_a_directory or another error for anything but a folder, a link that is kept included.
    virtual Error openFolder(RawFolder& in, const std::string& name, Links links,
                             std::unique_ptr<RawFolder>& folder) = 0;
    /// All entries but the folder itself and its parent, in the order of the disk.
    virtual Error list(RawFolder& folder, std::vector<RawName>& names) = 0;
    /// no_such_file_or_directory if there is none.
    virtual Error look(RawFolder& in, const std::string& name, Links links, RawEntry& entry) = 0;
    virtual Error lookAt(RawFolder& folder, RawEntry& entry) = 0;
    virtual Error lookAt(RawFile& file, RawEntry& entry) = 0;

    /// Opens a file to read it from its start. Never waits, whatever the entry is.
    virtual Error openFile(RawFolder& in, const std::string& name, Links links,
                           std::unique_ptr<RawFile>& file) = 0;
    /// Makes a file to write to. Never touches one that is there: file_exists.
    virtual Error createFile(RawFolder& in, const std::string& name, std::uint32_t mode,
                             std::unique_ptr<RawFile>& file) = 0;
    /// Empties a file that is there and opens it to write to. Never follows a link.
    virtual Error emptyFile(RawFolder& in, const std::string& name,
                            std::unique_ptr<RawFile>& file) = 0;
    /// Gives fewer bytes than there is room for only near the end, none only at the end.
    virtual Error read(RawFile& file, std::span<std::uint8_t> into, std::size_t& count) = 0;
    /// Writes all bytes. An error may leave some of them written.
    virtual Error write(RawFile& file, std::string_view bytes) = 0;
    /// From the start, in bytes.
    virtual Error seek(RawFile& file, std::uint64_t offset) = 0;
    /// The view outlives the file that it was made of.
    virtual Error map(RawFile& file, std::unique_ptr<FileView>& view) = 0;

    /// Gives an entry the permissions and times of another. Where the disk can hold but one of the
    /// two, that is set all the same. Owner and group come too where that is allowed; no error
    /// tells of them.
    virtual Error setLike(RawFile& file, const RawEntry& model) = 0;
    virtual Error setLike(RawFolder& folder, const RawEntry& model) = 0;

    /// A file's content, or the names in a folder, would survive a power cut.
    virtual Error sync(RawFile& file) = 0;
    virtual Error sync(RawFolder& folder) = 0;
    /// All changes of names so far on the disk that a folder lies on, and of contents if
    /// syncsAllContents.
    virtual Error syncAll(RawFolder& folder) = 0;
    /// Where not, each file is to be synced by itself.
    virtual bool syncsAllContents() const { return true; }

    /// file_exists if anything of the new name is there, cross_device_link between two disks.
    /// invalid_argument, not_supported or function_not_supported where the file system cannot
    /// refuse to replace.
    virtual Error renameNew(RawFolder& from, const std::string& name, RawFolder& to,
                            const std::string& newName) = 0;
    /// Takes the place of a file that is there.
    virtual Error renameOver(RawFolder& from, const std::string& name, RawFolder& to,
                             const std::string& newName) = 0;
    /// A second name for a file or link; never replaces. operation_not_permitted or one of the
    /// errors of renameNew where the file system has no such names.
    virtual Error hardLink(RawFolder& from, const std::string& name, RawFolder& to,
                           const std::string& newName) = 0;
    /// A link's target is the text that it was made of; there need be no such entry.
    virtual Error readLink(RawFolder& in, const std::string& name, std::string& target) = 0;
    virtual Error makeLink(RawFolder& in, const std::string& name, const std::string& target) = 0;
    /// Removes a file or link, never a folder.
    virtual Error unlink(RawFolder& in, const std::string& name) = 0;
    /// file_exists if anything of that name is there.
    virtual Error makeFolder(RawFolder& in, const std::string& name) = 0;
    /// Removes an empty folder, never a file.
    virtual Error removeFolder(RawFolder& in, const std::string& name) = 0;
};

/// The calls of this machine.
std::shared_ptr<RawDisk> makeRawDisk();

} // namespace platform
