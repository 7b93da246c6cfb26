// The calls that look, read and write.
#include <algorithm>

#include "memory_node.h"
#include "platform/disk.h"
#include "platform/text.h"

namespace platform {

namespace {

class Copy final : public FileView {
  public:
    explicit Copy(std::string bytes) : bytes_(std::move(bytes)) {}
    std::span<const std::uint8_t> bytes() const override {
        return {reinterpret_cast<const std::uint8_t*>(bytes_.data()), bytes_.size()};
    }

  private:
    std::string bytes_;
};

} // namespace

MemoryDisk::Entries::iterator MemoryDisk::named(Node& folder, const std::string& name) const {
    if (!kind_.ignoresCase)
        return folder.entries.find(name);
    return std::find_if(folder.entries.begin(), folder.entries.end(),
                        [&](const auto& each) { return equalIgnoringCase(each.first, name); });
}

RawDisk::Error MemoryDisk::nodeIn(RawFolder& in, const std::string& name, NodePtr& node) const {
    const auto found = named(nodeOf(in), name);
    if (found == nodeOf(in).entries.end())
        return errorOf(std::errc::no_such_file_or_directory);
    node = found->second;
    return {};
}

RawDisk::Error MemoryDisk::openRoot(const std::string& path, std::unique_ptr<RawFolder>& folder) {
    const auto node = find(path);
    if (!node)
        return errorOf(std::errc::no_such_file_or_directory);
    folder = std::make_unique<MemoryFolder>(node);
    return {};
}

RawDisk::Error MemoryDisk::openFolder(RawFolder& in, const std::string& name, Links links,
                                      std::unique_ptr<RawFolder>& folder) {
    NodePtr node;
    if (const auto error = nodeIn(in, name, node))
        return error;
    if (node->entry.kind == RawKind::link && links == Links::followed)
        return openRoot(node->content, folder);
    if (node->entry.kind != RawKind::folder)
        return errorOf(std::errc::not_a_directory);
    folder = std::make_unique<MemoryFolder>(node);
    return {};
}

RawDisk::Error MemoryDisk::list(RawFolder& folder, std::vector<RawName>& names) {
    ++calls_["list"];
    names.clear();
    for (const auto& [name, node] : nodeOf(folder).entries)
        names.push_back({name, node->entry.kind, name.starts_with('.')});
    return {};
}

RawDisk::Error MemoryDisk::look(RawFolder& in, const std::string& name, Links links,
                                RawEntry& entry) {
    ++calls_["look"];
    NodePtr node;
    if (const auto error = nodeIn(in, name, node))
        return error;
    if (node->entry.kind == RawKind::link && links == Links::followed)
        node = find(node->content);
    if (!node)
        return errorOf(std::errc::no_such_file_or_directory);
    entry = told(*node);
    return {};
}

RawDisk::Error MemoryDisk::lookAt(RawFolder& folder, RawEntry& entry) {
    entry = told(nodeOf(folder));
    return {};
}

RawDisk::Error MemoryDisk::lookAt(RawFile& file, RawEntry& entry) {
    entry = told(nodeOf(file));
    return {};
}

RawDisk::Error MemoryDisk::openFile(RawFolder& in, const std::string& name, Links links,
                                    std::unique_ptr<RawFile>& file) {
    NodePtr node;
    if (const auto error = nodeIn(in, name, node))
        return error;
    if (node->entry.kind == RawKind::link)
        node = links == Links::followed ? find(node->content) : nullptr;
    if (!node)
        return errorOf(std::errc::too_many_symbolic_link_levels);
    file = std::make_unique<MemoryFile>(node);
    return {};
}

RawDisk::Error MemoryDisk::createFile(RawFolder& in, const std::string& name, std::uint32_t mode,
                                      std::unique_ptr<RawFile>& file) {
    if (const auto error = freeIn(in, name))
        return error;
    const auto node = newNode(RawKind::file, nodeOf(in).entry.identity.device);
    constexpr std::uint32_t umask = 022;
    node->entry.mode = mode & ~umask;
    add(nodeOf(in), name, node);
    unsynced_.push_back({node, nullptr, {}, pointerOf(in), name, nullptr});
    file = std::make_unique<MemoryFile>(node);
    return {};
}

RawDisk::Error MemoryDisk::emptyFile(RawFolder& in, const std::string& name,
                                     std::unique_ptr<RawFile>& file) {
    NodePtr node;
    if (const auto error = nodeIn(in, name, node))
        return error;
    if (node->entry.kind != RawKind::file)
        return errorOf(std::errc::too_many_symbolic_link_levels);
    node->content.clear();
    file = std::make_unique<MemoryFile>(node);
    return {};
}

RawDisk::Error MemoryDisk::read(RawFile& file, std::span<std::uint8_t> into, std::size_t& count) {
    auto& open = static_cast<MemoryFile&>(file);
    const auto& bytes = open.node->content;
    const auto start = std::min<std::uint64_t>(open.offset, bytes.size());
    count = std::min<std::size_t>(into.size(), bytes.size() - start);
    std::copy_n(bytes.begin() + static_cast<std::ptrdiff_t>(start), count, into.begin());
    open.offset += count;
    return {};
}

RawDisk::Error MemoryDisk::write(RawFile& file, std::string_view bytes) {
    nodeOf(file).content += bytes;
    nodeOf(file).entry.modified = nodeOf(file).entry.changed = nextTime();
    return {};
}

RawDisk::Error MemoryDisk::seek(RawFile& file, std::uint64_t offset) {
    static_cast<MemoryFile&>(file).offset = offset;
    return {};
}

RawDisk::Error MemoryDisk::map(RawFile& file, std::unique_ptr<FileView>& view) {
    view = std::make_unique<Copy>(nodeOf(file).content);
    return {};
}

RawDisk::Error MemoryDisk::setLike(RawFile& file, const RawEntry& model) {
    auto& own = nodeOf(file).entry;
    own.mode = model.mode;
    own.owner = model.owner;
    own.group = model.group;
    own.accessed = model.accessed;
    own.modified = model.modified;
    own.changed = nextTime();
    return {};
}

RawDisk::Error MemoryDisk::setLike(RawFolder& folder, const RawEntry& model) {
    auto& own = nodeOf(folder).entry;
    own.mode = model.mode;
    own.owner = model.owner;
    own.group = model.group;
    own.accessed = model.accessed;
    own.modified = model.modified;
    own.changed = nextTime();
    return {};
}

RawDisk::Error MemoryDisk::sync(RawFile& file) {
    ++calls_["sync"];
    nodeOf(file).syncedContent = nodeOf(file).content;
    return {};
}

RawDisk::Error MemoryDisk::sync(RawFolder& folder) {
    ++calls_["sync"];
    nodeOf(folder).syncedEntries = nodeOf(folder).entries;
    noteNamesSynced(pointerOf(folder));
    return {};
}

RawDisk::Error MemoryDisk::syncAll(RawFolder& folder) {
    syncTree(nodeOf(folder));
    const auto device = nodeOf(folder).entry.identity.device;
    std::erase_if(unsynced_, [device](const auto& change) {
        return (change.to ? change.to : change.from)->entry.identity.device == device;
    });
    return {};
}

} // namespace platform
