// What the system says of an entry, in the disk's own words and back.
#pragma once

#include <array>

#include <sys/stat.h>

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

} // namespace platform::posix
