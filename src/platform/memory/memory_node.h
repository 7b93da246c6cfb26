// What the disk in memory is made of: nodes, and what is handed out of them.
#pragma once

#include <utility>

#include "platform/memory_disk.h"

namespace platform {

/// An entry. It keeps beside what it holds what of that has been synced.
struct MemoryDisk::Node {
    RawEntry entry;
    bool isMount = false;
    std::string content; ///< of a file, or the target of a link
    std::string syncedContent;
    Entries entries;
    Entries syncedEntries;
};

class MemoryFolder final : public RawFolder {
  public:
    explicit MemoryFolder(MemoryDisk::NodePtr opened) : node(std::move(opened)) {}
    MemoryDisk::NodePtr node;
};

class MemoryFile final : public RawFile {
  public:
    explicit MemoryFile(MemoryDisk::NodePtr opened) : node(std::move(opened)) {}
    MemoryDisk::NodePtr node;
    std::uint64_t offset = 0;
};

inline MemoryDisk::Node& nodeOf(RawFolder& folder) {
    return *static_cast<MemoryFolder&>(folder).node;
}

inline MemoryDisk::Node& nodeOf(RawFile& file) {
    return *static_cast<MemoryFile&>(file).node;
}

inline const MemoryDisk::NodePtr& pointerOf(RawFolder& folder) {
    return static_cast<MemoryFolder&>(folder).node;
}

inline RawEntry told(const MemoryDisk::Node& node) {
    auto entry = node.entry;
    entry.size = node.content.size();
    return entry;
}

inline std::error_code errorOf(std::errc kind) {
    return std::make_error_code(kind);
}

} // namespace platform
