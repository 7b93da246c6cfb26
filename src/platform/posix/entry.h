// What the system says of an entry, in the disk's own words and back.
#pragma once

#include <array>

#include <sys/stat.h>
#include <unistd.h>

#include "descriptor.h"
#include "platform/raw_disk.h"

namespace platform::posix {

inline constexpr FileTime nanosecondsInSecond = 1'000'000'000;

inline FileTime timeOf(const timespec& time) {
    return FileTime{time.tv_sec} * nanosecondsInSecond + time.tv_nsec;
}

inline RawKind kindOf(mode_t mode) {
    if (S_ISDIR(mode))
        return RawKind::folder;
    if (S_ISLNK(mode))
        return RawKind::link;
    return S_ISREG(mode) ? RawKind::file : RawKind::other;
}

inline RawEntry entryOf(const struct stat& found) {
    RawEntry entry;
    entry.kind = kindOf(found.st_mode);
    entry.identity = {static_cast<std::uint64_t>(found.st_dev),
                      static_cast<std::uint64_t>(found.st_ino)};
    entry.size = static_cast<std::uint64_t>(found.st_size);
    entry.names = static_cast<std::uint64_t>(found.st_nlink);
    entry.mode = static_cast<std::uint32_t>(found.st_mode & 07777U);
    entry.owner = found.st_uid;
    entry.group = found.st_gid;
#ifdef __APPLE__
    entry.accessed = timeOf(found.st_atimespec);
    entry.modified = timeOf(found.st_mtimespec);
    entry.changed = timeOf(found.st_ctimespec);
#else
    entry.accessed = timeOf(found.st_atim);
    entry.modified = timeOf(found.st_mtim);
    entry.changed = timeOf(found.st_ctim);
#endif
    return entry;
}

/// The times of an entry, access first, as the calls that set them want them.
inline std::array<timespec, 2> timesOf(const RawEntry& entry) {
    const auto split = [](FileTime time) {
        timespec parts{};
        parts.tv_sec = time / nanosecondsInSecond;
        parts.tv_nsec = time % nanosecondsInSecond;
        if (parts.tv_nsec < 0) {
            parts.tv_sec -= 1;
            parts.tv_nsec += nanosecondsInSecond;
        }
        return parts;
    };
    return {split(entry.accessed), split(entry.modified)};
}

/// Owner, permissions and times of an open entry. Only the superuser may give a file away, but its
/// owner may give it to another group of his.
inline std::error_code setLikeModel(int descriptor, const RawEntry& model) {
    constexpr auto unchanged = static_cast<uid_t>(-1);
    // Behind a change of the owner the system may take permissions away, so those come later.
    if (::fchown(descriptor, model.owner, model.group) != 0)
        static_cast<void>(::fchown(descriptor, unchanged, model.group) == 0);
    const auto error = errorOf(::fchmod(descriptor, static_cast<mode_t>(model.mode)));
    const auto timeError = errorOf(::futimens(descriptor, timesOf(model).data()));
    return error ? error : timeError;
}

} // namespace platform::posix
