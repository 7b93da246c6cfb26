// What Windows says of an entry, in the disk's own words and back.
#include "system_error.h"
#include "windows_disk.h"

namespace platform::windows {
namespace {

constexpr std::uint32_t readable = 0555;
constexpr std::uint32_t writable = 0222;
/// Windows counts steps of 100 nanoseconds since 1601.
constexpr std::int64_t step = 100;
constexpr std::int64_t stepsUntil1970 = 116'444'736'000'000'000;

std::int64_t stepsOf(const FILETIME& time) {
    LARGE_INTEGER steps{};
    steps.LowPart = time.dwLowDateTime;
    steps.HighPart = static_cast<LONG>(time.dwHighDateTime);
    return steps.QuadPart;
}

FileTime timeOf(const FILETIME& time) {
    return (stepsOf(time) - stepsUntil1970) * step;
}

LARGE_INTEGER stepsOf(FileTime time) {
    LARGE_INTEGER steps{};
    steps.QuadPart = time / step + stepsUntil1970;
    return steps;
}

/// Files that are only here when they are asked for are reparse points too, but no links.
bool isLink(HANDLE handle, DWORD attributes) {
    if ((attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0)
        return false;
    FILE_ATTRIBUTE_TAG_INFO info{};
    return GetFileInformationByHandleEx(handle, FileAttributeTagInfo, &info, sizeof info) == 0 ||
           info.ReparseTag == IO_REPARSE_TAG_SYMLINK ||
           info.ReparseTag == IO_REPARSE_TAG_MOUNT_POINT;
}

std::uint64_t joined(DWORD high, DWORD low) {
    constexpr unsigned bits = 32;
    return std::uint64_t{high} << bits | low;
}

} // namespace

Handle openEntry(const std::wstring& path, Links links, DWORD access) {
    constexpr DWORD sharing = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const DWORD flags =
        FILE_FLAG_BACKUP_SEMANTICS | (links == Links::kept ? FILE_FLAG_OPEN_REPARSE_POINT : 0);
    return Handle(
        CreateFileW(path.c_str(), access, sharing, nullptr, OPEN_EXISTING, flags, nullptr));
}

std::error_code lookAtHandle(HANDLE handle, RawEntry& entry) {
    BY_HANDLE_FILE_INFORMATION info{};
    if (GetFileInformationByHandle(handle, &info) == 0)
        return lastError();
    const bool isFolder = (info.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
    entry.kind = isFolder ? RawKind::folder : RawKind::file;
    if (isLink(handle, info.dwFileAttributes))
        entry.kind = RawKind::link;
    entry.identity = {info.dwVolumeSerialNumber, joined(info.nFileIndexHigh, info.nFileIndexLow)};
    entry.size = joined(info.nFileSizeHigh, info.nFileSizeLow);
    entry.names = info.nNumberOfLinks;
    const bool isReadOnly = (info.dwFileAttributes & FILE_ATTRIBUTE_READONLY) != 0;
    entry.mode = isReadOnly ? readable : readable | writable;
    entry.accessed = timeOf(info.ftLastAccessTime);
    entry.modified = timeOf(info.ftLastWriteTime);
    FILE_BASIC_INFO basic{};
    if (GetFileInformationByHandleEx(handle, FileBasicInfo, &basic, sizeof basic) != 0)
        entry.changed = (basic.ChangeTime.QuadPart - stepsUntil1970) * step;
    return {};
}

std::error_code setHandleLike(HANDLE handle, const RawEntry& model) {
    FILE_BASIC_INFO info{};
    if (GetFileInformationByHandleEx(handle, FileBasicInfo, &info, sizeof info) == 0)
        return lastError();
    info.LastAccessTime = stepsOf(model.accessed);
    info.LastWriteTime = stepsOf(model.modified);
    info.ChangeTime.QuadPart = 0;
    info.FileAttributes &= ~static_cast<DWORD>(FILE_ATTRIBUTE_READONLY);
    if ((model.mode & writable) == 0)
        info.FileAttributes |= FILE_ATTRIBUTE_READONLY;
    return errorOf(SetFileInformationByHandle(handle, FileBasicInfo, &info, sizeof info));
}

} // namespace platform::windows
