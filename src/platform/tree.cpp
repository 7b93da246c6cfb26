// Trees are gone through by open folders, so nothing that happens to a path on the way leads out of
// them.
#include "tree.h"

#include <algorithm>
#include <map>
#include <memory>
#include <utility>

namespace platform {
namespace {

constexpr std::uint64_t smallestBlock = 512;
constexpr std::uint64_t largestBlock = 1U << 20U;

class TreeCopy {
  public:
    using Error = std::error_code;
    using Handle = std::shared_ptr<RawFolder>;

    explicit TreeCopy(RawDisk& disk) : disk_(disk) {}

    Error copy(RawFolder& from, const std::string& name, const Handle& to,
               const std::string& newName) {
        RawEntry entry;
        if (const auto error = disk_.look(from, name, Links::kept, entry))
            return error;
        switch (entry.kind) {
        case RawKind::folder:
            return copyFolder(from, name, entry, *to, newName);
        case RawKind::file:
            return copyFile(from, name, entry, to, newName);
        case RawKind::link:
            return copyLink(from, name, *to, newName);
        case RawKind::other:
            break;
        }
        return std::make_error_code(std::errc::not_supported);
    }

  private:
    Error copyFolder(RawFolder& from, const std::string& name, const RawEntry& entry, RawFolder& to,
                     const std::string& newName) {
        std::unique_ptr<RawFolder> source;
        std::unique_ptr<RawFolder> opened;
        std::vector<RawName> names;
        if (const auto error = disk_.openFolder(from, name, Links::kept, source))
            return error;
        if (const auto error = disk_.list(*source, names))
            return error;
        if (const auto error = disk_.makeFolder(to, newName))
            return error;
        if (const auto error = disk_.openFolder(to, newName, Links::kept, opened))
            return error;
        const Handle target = std::move(opened);
        for (const auto& each : names)
            if (const auto error = copy(*source, each.name, target, each.name))
                return error;
        // The times and a lock against writing come last. Not every disk can hold them.
        disk_.setLike(*target, entry);
        return disk_.sync(*target);
    }

    Error copyFile(RawFolder& from, const std::string& name, const RawEntry& entry,
                   const Handle& to, const std::string& newName) {
        if (entry.names > 1) {
            const auto known = copied_.find({entry.identity.device, entry.identity.number});
            if (known != copied_.end() &&
                !disk_.hardLink(*known->second.first, known->second.second, *to, newName))
                return {};
        }
        std::unique_ptr<RawFile> source;
        std::unique_ptr<RawFile> target;
        if (const auto error = disk_.openFile(from, name, Links::kept, source))
            return error;
        if (const auto error = disk_.createFile(*to, newName, entry.mode, target))
            return error;
        if (const auto error = copyBytes(disk_, *source, *target, entry.size))
            return error;
        disk_.setLike(*target, entry);
        if (entry.names > 1)
            copied_[{entry.identity.device, entry.identity.number}] = {to, newName};
        return disk_.sync(*target);
    }

    Error copyLink(RawFolder& from, const std::string& name, RawFolder& to,
                   const std::string& newName) {
        std::string target;
        if (const auto error = disk_.readLink(from, name, target))
            return error;
        return disk_.makeLink(to, newName, target);
    }

    RawDisk& disk_;
    /// Files of several names, and the first one that each got.
    std::map<std::pair<std::uint64_t, std::uint64_t>, std::pair<Handle, std::string>> copied_;
};

std::error_code removeFolderAt(RawDisk& disk, RawFolder& in, const std::string& name,
                               const RawEntry& entry, ReadOnly readOnly) {
    constexpr std::uint32_t ownersRights = 0700;
    std::unique_ptr<RawFolder> folder;
    if (const auto error = disk.openFolder(in, name, Links::kept, folder))
        return error;
    if (readOnly == ReadOnly::goes && (entry.mode & ownersRights) != ownersRights) {
        auto open = entry;
        open.mode |= ownersRights;
        disk.setLike(*folder, open);
    }
    std::vector<RawName> names;
    if (const auto error = disk.list(*folder, names))
        return error;
    for (const auto& each : names)
        if (const auto error = removeEntry(disk, *folder, each.name, readOnly))
            return error;
    folder.reset();
    return disk.removeFolder(in, name);
}

} // namespace

std::error_code copyBytes(RawDisk& disk, RawFile& from, RawFile& to, std::uint64_t expected,
                          const CopyProgress& onProgress) {
    std::vector<std::uint8_t> block(std::clamp(expected, smallestBlock, largestBlock));
    for (;;) {
        std::size_t count = 0;
        if (const auto error = disk.read(from, block, count))
            return error;
        if (count == 0)
            return {};
        if (const auto error = disk.write(to, {reinterpret_cast<const char*>(block.data()), count}))
            return error;
        if (onProgress)
            onProgress(count);
    }
}

std::error_code copyEntry(RawDisk& disk, RawFolder& from, const std::string& name, RawFolder& to,
                          const std::string& newName) {
    const TreeCopy::Handle notOwned(&to, [](RawFolder*) {});
    return TreeCopy(disk).copy(from, name, notOwned, newName);
}

std::error_code removeEntry(RawDisk& disk, RawFolder& in, const std::string& name,
                            ReadOnly readOnly) {
    RawEntry entry;
    if (const auto error = disk.look(in, name, Links::kept, entry))
        return error;
    return entry.kind == RawKind::folder ? removeFolderAt(disk, in, name, entry, readOnly)
                                         : disk.unlink(in, name);
}

} // namespace platform
