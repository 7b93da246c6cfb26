// Folders: opening, listing, looking at what is in them.
#include <memory>

#include <dirent.h>
#include <fcntl.h>

#include "entry.h"
#include "posix_disk.h"

namespace platform::posix {
namespace {

constexpr int folderFlags = O_RDONLY | O_DIRECTORY | O_CLOEXEC;
constexpr mode_t newFolderMode = 0777;

std::error_code openFolderAt(int in, const char* name, int links,
                             std::unique_ptr<RawFolder>& folder) {
    Descriptor descriptor(::openat(in, name, folderFlags | links));
    if (!descriptor)
        return lastError();
    folder = std::make_unique<PosixFolder>(std::move(descriptor));
    return {};
}

/// Not every file system says in a listing what its entries are.
RawKind kindOfItem(int folder, const dirent& item) {
    switch (item.d_type) {
    case DT_DIR:
        return RawKind::folder;
    case DT_REG:
        return RawKind::file;
    case DT_LNK:
        return RawKind::link;
    case DT_UNKNOWN:
        break;
    default:
        return RawKind::other;
    }
    struct stat found {};
    const bool isThere = ::fstatat(folder, item.d_name, &found, AT_SYMLINK_NOFOLLOW) == 0;
    return isThere ? kindOf(found.st_mode) : RawKind::other;
}

} // namespace

RawDisk::Error PosixDisk::openRoot(const std::string& path, std::unique_ptr<RawFolder>& folder) {
    return openFolderAt(AT_FDCWD, path.c_str(), 0, folder);
}

RawDisk::Error PosixDisk::openFolder(RawFolder& in, const std::string& name, Links links,
                                     std::unique_ptr<RawFolder>& folder) {
    return openFolderAt(numberOf(in), name.c_str(), links == Links::kept ? O_NOFOLLOW : 0, folder);
}

RawDisk::Error PosixDisk::list(RawFolder& folder, std::vector<RawName>& names) {
    names.clear();
    // A stream moves the place in its descriptor, so it gets one of its own.
    Descriptor own(::openat(numberOf(folder), ".", folderFlags));
    if (!own)
        return lastError();
    const std::unique_ptr<DIR, decltype([](DIR* d) { ::closedir(d); })> stream(
        ::fdopendir(own.get()));
    if (!stream)
        return lastError();
    own.release();
    for (;;) {
        errno = 0;
        const dirent* item = ::readdir(stream.get());
        if (item == nullptr)
            return errno == 0 ? Error() : lastError();
        const std::string_view name = item->d_name;
        if (name != "." && name != "..")
            names.push_back(
                {std::string(name), kindOfItem(numberOf(folder), *item), name.starts_with('.')});
    }
}

RawDisk::Error PosixDisk::look(RawFolder& in, const std::string& name, Links links,
                               RawEntry& entry) {
    struct stat found {};
    const int flags = links == Links::kept ? AT_SYMLINK_NOFOLLOW : 0;
    if (::fstatat(numberOf(in), name.c_str(), &found, flags) != 0)
        return lastError();
    entry = entryOf(found);
    return {};
}

RawDisk::Error PosixDisk::lookAt(RawFolder& folder, RawEntry& entry) {
    struct stat found {};
    if (::fstat(numberOf(folder), &found) != 0)
        return lastError();
    entry = entryOf(found);
    return {};
}

RawDisk::Error PosixDisk::setLike(RawFolder& folder, const RawEntry& model) {
    return setLikeModel(numberOf(folder), model);
}

RawDisk::Error PosixDisk::sync(RawFolder& folder) {
    // Some file systems have nothing to sync for a folder.
    if (::fsync(numberOf(folder)) != 0 && errno != EINVAL)
        return lastError();
    return {};
}

RawDisk::Error PosixDisk::syncAll(RawFolder& folder) {
#ifdef __linux__
    return errorOf(::syncfs(numberOf(folder)));
#else
    static_cast<void>(folder);
    ::sync();
    return {};
#endif
}

RawDisk::Error PosixDisk::makeFolder(RawFolder& in, const std::string& name) {
    return errorOf(::mkdirat(numberOf(in), name.c_str(), newFolderMode));
}

RawDisk::Error PosixDisk::removeFolder(RawFolder& in, const std::string& name) {
    return errorOf(::unlinkat(numberOf(in), name.c_str(), AT_REMOVEDIR));
}

} // namespace platform::posix
