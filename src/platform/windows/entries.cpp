// What Windows says of an entry, in the disk's own words and back.
#include "held_names.h"
#include "system_error.h"
#include "system_text.h"
#include "windows_disk.h"

namespace platform::windows {
namespace {

constexpr std::uint32_t readable = 0555;
constexpr std::uint32_t writable = 0222;
/// Attributes that no other system has lie above the permissions, so that a copy gets them too.
constexpr unsigned attributesAt = 16;
constexpr DWORD keptAttributes = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM;
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

bool isLink(HANDLE handle, DWORD attributes) {
    if ((attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0)
        return false;
    FILE_ATTRIBUTE_TAG_INFO info{};
    return GetFileInformationByHandleEx(handle, FileAttributeTagInfo, &info, sizeof info) == 0 ||
           leadsElsewhere(info.ReparseTag);
}

std::uint64_t joined(DWORD high, DWORD low) {
    constexpr unsigned bits = 32;
    return std::uint64_t{high} << bits | low;
}

std::wstring joinedPath(const RawFolder& in, const std::wstring& name) {
    const auto& folder = pathOf(in);
    return folder + (folder.ends_with(L'\\') ? L"" : L"\\") + name;
}

} // namespace

bool leadsElsewhere(DWORD reparseTag) {
    constexpr DWORD nameSurrogate = 0x20000000;
    return (reparseTag & nameSurrogate) != 0;
}

DWORD attributesFor(std::uint32_t mode) {
    const DWORD kept = mode >> attributesAt & keptAttributes;
    return kept | ((mode & writable) == 0 ? DWORD{FILE_ATTRIBUTE_READONLY} : 0U);
}

std::error_code findPath(const RawFolder& in, const std::string& name, std::wstring& path) {
    const auto text = toWide(name);
    if (!text)
        return codeOf(ERROR_FILE_NOT_FOUND);
    path = joinedPath(in, *text);
    return {};
}

std::error_code newPath(const RawFolder& in, const std::string& name, std::wstring& path) {
    const auto refusal = whyRefused(name);
    return refusal ? refusal : findPath(in, name, path);
}

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
    entry.mode |= (info.dwFileAttributes & keptAttributes) << attributesAt;
    entry.accessed = timeOf(info.ftLastAccessTime);
    entry.modified = timeOf(info.ftLastWriteTime);
    FILE_BASIC_INFO basic{};
    if (GetFileInformationByHandleEx(handle, FileBasicInfo, &basic, sizeof basic) != 0 &&
        basic.ChangeTime.QuadPart != 0)
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
    info.FileAttributes &= ~(FILE_ATTRIBUTE_READONLY | keptAttributes);
    info.FileAttributes |= attributesFor(model.mode);
    // None at all would mean that they stay.
    if (info.FileAttributes == 0)
        info.FileAttributes = FILE_ATTRIBUTE_NORMAL;
    return errorOf(SetFileInformationByHandle(handle, FileBasicInfo, &info, sizeof info));
}

} // namespace platform::windows
