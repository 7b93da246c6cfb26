// A disk in memory: fast, the same at every run, and it knows what a power cut would leave of it.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "platform/raw_disk.h"

namespace platform {

/// What a disk can do and cannot.
struct MemoryDiskKind {
    bool ignoresCase = false;
    /// Not so where the system tells case apart and one of its file systems does not.
    bool saysWhetherItIgnoresCase = true;
    bool refusesToReplace = true; ///< renames that never replace
    bool hasHardLinks = true;
    /// A sync of the whole disk reaches the contents of files, not only names.
    bool syncsAllContents = true;
};

/// What of the changes that were not synced a power cut leaves.
struct PowerLoss {
    /// Asked of each change of names, the oldest first, whether it has arrived. One that stands on
    /// another that has not is not asked about and has not either.
    std::function<bool()> nameArrives;
    /// Whether the changes of one folder arrive one after the other.
    bool inOrder = true;
    /// What is left of a file, of what was synced and what it held.
    std::function<std::string(const std::string& synced, const std::string& written)> content;
};

/// Paths of the calls beside those of the raw disk are absolute, with "/".
class MemoryDisk final : public RawDisk {
  public:
    struct Node;
    using NodePtr = std::shared_ptr<Node>;

    explicit MemoryDisk(MemoryDiskKind kind = {});

    /// Folders on the way are made. What is put there is synced.
    void put(std::string_view path, std::string_view content);
    void putFolder(std::string_view path);
    void putLink(std::string_view path, std::string_view target);
    void remove(std::string_view path);
    /// Makes a folder that is a disk of its own, and gives back its number. The first disk has 0.
    std::uint64_t mount(std::string_view path);
    void setMode(std::string_view path, std::uint32_t mode);

    std::optional<std::string> content(std::string_view path) const;
    bool has(std::string_view path) const { return find(path) != nullptr; }
    RawEntry entry(std::string_view path) const;
    /// All files and links below a folder by their paths from it, with content or target.
    std::map<std::string, std::string> files(std::string_view path) const;

    /// The power goes: file contents are those last synced, empty for none. Names are those last
    /// synced, but on some disks all the changes of names had arrived.
    void losePower(const std::set<std::uint64_t>& disksWithAllNames);

    /// The same by a finer model: a change of names has arrived whole or not at all, so no rename
    /// leaves an entry with two names or none.
    void cutPower(const PowerLoss& loss);

    /// A disk of its own that holds the same, identities, times and what is not synced included.
    std::shared_ptr<MemoryDisk> copy() const;

    /// How often each call was made.
    int calls(const std::string& name) const;

    bool ignoresCase() const override {
        return kind_.ignoresCase && kind_.saysWhetherItIgnoresCase;
    }
    bool syncsAllContents() const override { return kind_.syncsAllContents; }
    Error openRoot(const std::string& path, std::unique_ptr<RawFolder>& folder) override;
    Error openFolder(RawFolder& in, const std::string& name, Links links,
                     std::unique_ptr<RawFolder>& folder) override;
    Error list(RawFolder& folder, std::vector<RawName>& names) override;
    Error look(RawFolder& in, const std::string& name, Links links, RawEntry& entry) override;
    Error lookAt(RawFolder& folder, RawEntry& entry) override;
    Error lookAt(RawFile& file, RawEntry& entry) override;
    Error openFile(RawFolder& in, const std::string& name, Links links,
                   std::unique_ptr<RawFile>& file) override;
    Error createFile(RawFolder& in, const std::string& name, std::uint32_t mode,
                     std::unique_ptr<RawFile>& file) override;
    Error emptyFile(RawFolder& in, const std::string& name,
                    std::unique_ptr<RawFile>& file) override;
    Error read(RawFile& file, std::span<std::uint8_t> into, std::size_t& count) override;
    Error write(RawFile& file, std::string_view bytes) override;
    Error seek(RawFile& file, std::uint64_t offset) override;
    Error map(RawFile& file, std::unique_ptr<FileView>& view) override;
    Error setLike(RawFile& file, const RawEntry& model) override;
    Error setLike(RawFolder& folder, const RawEntry& model) override;
    Error sync(RawFile& file) override;
    Error sync(RawFolder& folder) override;
    Error syncAll(RawFolder& folder) override;
    Error renameNew(RawFolder& from, const std::string& name, RawFolder& to,
                    const std::string& newName) override;
    Error renameOver(RawFolder& from, const std::string& name, RawFolder& to,
                     const std::string& newName) override;
    Error hardLink(RawFolder& from, const std::string& name, RawFolder& to,
                   const std::string& newName) override;
    Error readLink(RawFolder& in, const std::string& name, std::string& target) override;
    Error makeLink(RawFolder& in, const std::string& name, const std::string& target) override;
    Error unlink(RawFolder& in, const std::string& name) override;
    Error makeFolder(RawFolder& in, const std::string& name) override;
    Error removeFolder(RawFolder& in, const std::string& name) override;

  private:
    using Entries = std::map<std::string, NodePtr>;

    /// A change of names that is not synced: an entry that came (no `from`), went (no `to`) or did
    /// both.
    struct NameChange {
        NodePtr node;
        NodePtr from;
        std::string name;
        NodePtr to;
        std::string newName;
        NodePtr replaced;
        FileTime changed = 0; ///< of the entry, before; for a rename

        bool touches(const NodePtr& folder) const { return from == folder || to == folder; }
        bool touches(const NodePtr& folder, const std::string& entry) const {
            return (from == folder && name == entry) || (to == folder && newName == entry);
        }
        bool standsOn(const NameChange& earlier, bool inOrder) const;
        void takeBack() const;
    };

    NodePtr find(std::string_view path) const;
    NodePtr folderFor(std::string_view path, std::string& leaf);
    NodePtr newNode(RawKind kind, std::uint64_t device);
    Entries::iterator named(Node& folder, const std::string& name) const;
    /// The entry of a name, or why there is none.
    Error nodeIn(RawFolder& in, const std::string& name, NodePtr& node) const;
    /// Whether a new name can come into a folder.
    Error freeIn(RawFolder& in, const std::string& name) const;
    void add(Node& folder, const std::string& name, const NodePtr& node);
    void take(Node& folder, Entries::iterator entry);
    Error rename(RawFolder& from, const std::string& name, RawFolder& to,
                 const std::string& newName, bool mayReplace);
    void syncTree(Node& node);
    void noteNamesSynced(const NodePtr& folder);
    void revert(Node& node, const std::set<std::uint64_t>& disksWithAllNames);

    /// Every change has a time of its own.
    FileTime nextTime() { return time_ += 1'000'000; }

    MemoryDiskKind kind_;
    std::uint64_t devices_ = 1;
    std::uint64_t nodes_ = 0;
    FileTime time_ = 1'000'000'000'000'000'000;
    NodePtr root_; ///< numbered by the counters above it, as every node
    std::map<std::string, int> calls_;
    std::vector<NameChange> unsynced_;
};

} // namespace platform
