// The calls that change names.
#include <algorithm>

#include "memory_node.h"

namespace platform {

namespace {

constexpr std::uint32_t writable = 0200;

bool holds(const MemoryDisk::Node& folder, const MemoryDisk::Node& wanted) {
    return &folder == &wanted ||
           std::any_of(folder.entries.begin(), folder.entries.end(),
                       [&](const auto& each) { return holds(*each.second, wanted); });
}

} // namespace

RawDisk::Error MemoryDisk::freeIn(RawFolder& in, const std::string& name) const {
    if (named(nodeOf(in), name) != nodeOf(in).entries.end())
        return errorOf(std::errc::file_exists);
    const bool isReadOnly = (nodeOf(in).entry.mode & writable) == 0;
    return isReadOnly ? errorOf(std::errc::permission_denied) : Error();
}

void MemoryDisk::add(Node& folder, const std::string& name, const NodePtr& node) {
    folder.entries[name] = node;
    folder.entry.modified = node->entry.changed = nextTime();
}

void MemoryDisk::take(Node& folder, Entries::iterator entry) {
    folder.entries.erase(entry);
    folder.entry.modified = nextTime();
}

RawDisk::Error MemoryDisk::rename(RawFolder& from, const std::string& name, RawFolder& to,
                                  const std::string& newName, bool mayReplace) {
    auto& source = nodeOf(from);
    auto& target = nodeOf(to);
    NodePtr node;
    if (const auto error = nodeIn(from, name, node))
        return error;
    const auto taken = named(target, newName);
    const bool isTaken = taken != target.entries.end();
    if (isTaken && !mayReplace)
        return errorOf(std::errc::file_exists);
    if (node->isMount)
        return errorOf(std::errc::device_or_resource_busy);
    if (node->entry.identity.device != target.entry.identity.device)
        return errorOf(std::errc::cross_device_link);
    if (holds(*node, target))
        return errorOf(std::errc::invalid_argument);
    if (isTaken && taken->second != node) {
        const bool isFolder = taken->second->entry.kind == RawKind::folder;
        if (isFolder != (node->entry.kind == RawKind::folder))
            return errorOf(isFolder ? std::errc::is_a_directory : std::errc::not_a_directory);
        if (!taken->second->entries.empty())
            return errorOf(std::errc::directory_not_empty);
    }
    if (((source.entry.mode & target.entry.mode) & writable) == 0)
        return errorOf(std::errc::permission_denied);
    const auto replaced = isTaken ? taken->second : nullptr;
    const auto changed = node->entry.changed;
    if (isTaken)
        take(target, taken);
    if (const auto old = named(source, name); old != source.entries.end())
        take(source, old);
    add(target, newName, node);
    unsynced_.push_back({node, pointerOf(from), name, pointerOf(to), newName, replaced, changed});
    return {};
}

RawDisk::Error MemoryDisk::renameNew(RawFolder& from, const std::string& name, RawFolder& to,
                                     const std::string& newName) {
    if (!kind_.refusesToReplace)
        return errorOf(std::errc::invalid_argument);
    return rename(from, name, to, newName, false);
}

RawDisk::Error MemoryDisk::renameOver(RawFolder& from, const std::string& name, RawFolder& to,
                                      const std::string& newName) {
    return rename(from, name, to, newName, true);
}

RawDisk::Error MemoryDisk::hardLink(RawFolder& from, const std::string& name, RawFolder& to,
                                    const std::string& newName) {
    NodePtr node;
    if (!kind_.hasHardLinks)
        return errorOf(std::errc::operation_not_permitted);
    if (const auto error = nodeIn(from, name, node))
        return error;
    if (node->entry.identity.device != nodeOf(to).entry.identity.device)
        return errorOf(std::errc::cross_device_link);
    if (const auto error = freeIn(to, newName))
        return error;
    ++node->entry.names;
    add(nodeOf(to), newName, node);
    unsynced_.push_back({node, nullptr, {}, pointerOf(to), newName, nullptr});
    return {};
}

RawDisk::Error MemoryDisk::readLink(RawFolder& in, const std::string& name, std::string& target) {
    NodePtr node;
    if (const auto error = nodeIn(in, name, node))
        return error;
    if (node->entry.kind != RawKind::link)
        return errorOf(std::errc::invalid_argument);
    target = node->content;
    return {};
}

RawDisk::Error MemoryDisk::makeLink(RawFolder& in, const std::string& name,
                                    const std::string& target) {
    if (const auto error = freeIn(in, name))
        return error;
    const auto node = newNode(RawKind::link, nodeOf(in).entry.identity.device);
    node->content = node->syncedContent = target;
    add(nodeOf(in), name, node);
    unsynced_.push_back({node, nullptr, {}, pointerOf(in), name, nullptr});
    return {};
}

RawDisk::Error MemoryDisk::unlink(RawFolder& in, const std::string& name) {
    NodePtr node;
    if (const auto error = nodeIn(in, name, node))
        return error;
    if (node->entry.kind == RawKind::folder)
        return errorOf(std::errc::is_a_directory);
    if ((nodeOf(in).entry.mode & writable) == 0)
        return errorOf(std::errc::permission_denied);
    --node->entry.names;
    take(nodeOf(in), named(nodeOf(in), name));
    unsynced_.push_back({node, pointerOf(in), name, nullptr, {}, nullptr});
    return {};
}

RawDisk::Error MemoryDisk::makeFolder(RawFolder& in, const std::string& name) {
    if (const auto error = freeIn(in, name))
        return error;
    const auto node = newNode(RawKind::folder, nodeOf(in).entry.identity.device);
    add(nodeOf(in), name, node);
    unsynced_.push_back({node, nullptr, {}, pointerOf(in), name, nullptr});
    return {};
}

RawDisk::Error MemoryDisk::removeFolder(RawFolder& in, const std::string& name) {
    NodePtr node;
    if (const auto error = nodeIn(in, name, node))
        return error;
    if (node->entry.kind != RawKind::folder)
        return errorOf(std::errc::not_a_directory);
    if (!node->entries.empty())
        return errorOf(std::errc::directory_not_empty);
    if (node->isMount)
        return errorOf(std::errc::device_or_resource_busy);
    if ((nodeOf(in).entry.mode & writable) == 0)
        return errorOf(std::errc::permission_denied);
    take(nodeOf(in), named(nodeOf(in), name));
    unsynced_.push_back({node, pointerOf(in), name, nullptr, {}, nullptr});
    return {};
}

} // namespace platform
