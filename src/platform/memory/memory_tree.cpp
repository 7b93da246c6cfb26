// What a test puts on the disk in memory and looks at, and what the power leaves of it.
#include <algorithm>

#include "memory_node.h"

namespace platform {

namespace {

std::vector<std::string> partsOf(std::string_view path) {
    std::vector<std::string> parts;
    while (!path.empty()) {
        const auto end = std::min(path.find('/'), path.size());
        if (end != 0)
            parts.emplace_back(path.substr(0, end));
        path.remove_prefix(std::min(end + 1, path.size()));
    }
    return parts;
}

} // namespace

MemoryDisk::MemoryDisk(MemoryDiskKind kind) : kind_(kind), root_(newNode(RawKind::folder, 0)) {}

MemoryDisk::NodePtr MemoryDisk::newNode(RawKind kind, std::uint64_t device) {
    auto node = std::make_shared<Node>();
    node->entry.kind = kind;
    node->entry.identity = {device, ++nodes_};
    node->entry.mode = kind == RawKind::folder ? 0755 : 0644;
    node->entry.accessed = node->entry.modified = node->entry.changed = nextTime();
    return node;
}

MemoryDisk::NodePtr MemoryDisk::find(std::string_view path) const {
    auto node = root_;
    for (const auto& part : partsOf(path)) {
        const auto found = node->entries.find(part);
        if (found == node->entries.end())
            return nullptr;
        node = found->second;
    }
    return node;
}

MemoryDisk::NodePtr MemoryDisk::folderFor(std::string_view path, std::string& leaf) {
    auto parts = partsOf(path);
    leaf = parts.back();
    parts.pop_back();
    auto folder = root_;
    for (const auto& part : parts) {
        auto& next = folder->entries[part];
        if (!next)
            next = newNode(RawKind::folder, folder->entry.identity.device);
        folder->syncedEntries[part] = next;
        folder = next;
    }
    folder->entry.modified = nextTime();
    return folder;
}

void MemoryDisk::put(std::string_view path, std::string_view content) {
    std::string leaf;
    const auto folder = folderFor(path, leaf);
    auto node = newNode(RawKind::file, folder->entry.identity.device);
    node->content = node->syncedContent = content;
    folder->entries[leaf] = folder->syncedEntries[leaf] = node;
}

void MemoryDisk::putFolder(std::string_view path) {
    std::string leaf;
    folderFor(std::string(path) + "/x", leaf);
}

void MemoryDisk::putLink(std::string_view path, std::string_view target) {
    put(path, target);
    find(path)->entry.kind = RawKind::link;
}

void MemoryDisk::remove(std::string_view path) {
    std::string leaf;
    const auto folder = folderFor(path, leaf);
    folder->entries.erase(leaf);
    folder->syncedEntries.erase(leaf);
}

std::uint64_t MemoryDisk::mount(std::string_view path) {
    std::string leaf;
    const auto folder = folderFor(path, leaf);
    const auto device = devices_++;
    auto node = newNode(RawKind::folder, device);
    node->isMount = true;
    folder->entries[leaf] = folder->syncedEntries[leaf] = node;
    return device;
}

void MemoryDisk::setMode(std::string_view path, std::uint32_t mode) {
    find(path)->entry.mode = mode;
}

std::optional<std::string> MemoryDisk::content(std::string_view path) const {
    const auto node = find(path);
    if (!node || node->entry.kind != RawKind::file)
        return std::nullopt;
    return node->content;
}

RawEntry MemoryDisk::entry(std::string_view path) const {
    return told(*find(path));
}

std::map<std::string, std::string> MemoryDisk::files(std::string_view path) const {
    std::map<std::string, std::string> found;
    for (const auto& [name, node] : find(path)->entries) {
        if (node->entry.kind != RawKind::folder)
            found[name] = node->content;
        else
            for (const auto& [below, content] : files(std::string(path) + "/" + name))
                found[name + "/" + below] = content;
    }
    return found;
}

int MemoryDisk::calls(const std::string& name) const {
    const auto known = calls_.find(name);
    return known == calls_.end() ? 0 : known->second;
}

void MemoryDisk::losePower(const std::set<std::uint64_t>& disksWithAllNames) {
    revert(*root_, disksWithAllNames);
    unsynced_.clear();
}

void MemoryDisk::revert(Node& node, const std::set<std::uint64_t>& disksWithAllNames) {
    node.content = node.syncedContent;
    if (!disksWithAllNames.contains(node.entry.identity.device))
        node.entries = node.syncedEntries;
    for (const auto& [name, below] : node.entries)
        revert(*below, disksWithAllNames);
}

void MemoryDisk::syncTree(Node& node) {
    if (kind_.syncsAllContents)
        node.syncedContent = node.content;
    node.syncedEntries = node.entries;
    for (const auto& [name, below] : node.entries)
        if (below->entry.identity.device == node.entry.identity.device)
            syncTree(*below);
}

} // namespace platform
