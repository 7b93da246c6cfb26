// Folders: opening, listing, looking at what is in them.
#include <memory>

#include "part_file.h"
#include "paths.h"
#include "read_only.h"
#include "system_error.h"
#include "system_text.h"
#include "windows_disk.h"

namespace platform::windows {
namespace {

std::error_code openFolderAt(std::wstring path, Links links, std::unique_ptr<RawFolder>& folder) {
    const auto handle = openEntry(path, links);
    if (!handle)
        return lastError();
    RawEntry entry;
    if (const auto error = lookAtHandle(handle.get(), entry))
        return error;
    if (entry.kind != RawKind::folder)
        return codeOf(ERROR_DIRECTORY);
    folder = std::make_unique<WindowsFolder>(std::move(path));
    return {};
}

RawKind kindOf(const WIN32_FIND_DATAW& found) {
    if ((found.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0 &&
        leadsElsewhere(found.dwReserved0))
        return RawKind::link;
    return (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0 ? RawKind::folder
                                                                    : RawKind::file;
}

/// Not every file system gives a folder out for writing, or has anything to flush for one.
bool hasNothingToFlush(std::error_code error) {
    return error == std::errc::permission_denied || error == std::errc::not_supported ||
           error == std::errc::invalid_argument;
}

} // namespace

RawDisk::Error WindowsDisk::openRoot(const std::string& path, std::unique_ptr<RawFolder>& folder) {
    return openFolderAt(rawForm(path), Links::followed, folder);
}

RawDisk::Error WindowsDisk::openFolder(RawFolder& in, const std::string& name, Links links,
                                       std::unique_ptr<RawFolder>& folder) {
    std::wstring path;
    if (const auto error = findPath(in, name, path))
        return error;
    return openFolderAt(std::move(path), links, folder);
}

RawDisk::Error WindowsDisk::list(RawFolder& folder, std::vector<RawName>& names) {
    constexpr DWORD hidden = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM;
    names.clear();
    std::wstring all;
    if (const auto error = findPath(folder, "*", all))
        return error;
    WIN32_FIND_DATAW found{};
    const HANDLE search =
        FindFirstFileExW(all.c_str(), FindExInfoBasic, &found, FindExSearchNameMatch, nullptr,
                         FIND_FIRST_EX_LARGE_FETCH);
    if (search == INVALID_HANDLE_VALUE)
        return GetLastError() == ERROR_FILE_NOT_FOUND ? Error() : lastError();
    const std::unique_ptr<void, decltype([](HANDLE h) { FindClose(h); })> closing(search);
    do {
        auto name = narrow(found.cFileName);
        if (name == "." || name == "..")
            continue;
        // A dot hides nothing here.
        const bool isHidden = (found.dwFileAttributes & hidden) != 0 || isPart(name);
        names.push_back({std::move(name), kindOf(found), isHidden});
    } while (FindNextFileW(search, &found) != 0);
    return GetLastError() == ERROR_NO_MORE_FILES ? Error() : lastError();
}

RawDisk::Error WindowsDisk::look(RawFolder& in, const std::string& name, Links links,
                                 RawEntry& entry) {
    std::wstring path;
    if (const auto error = findPath(in, name, path))
        return error;
    const auto handle = openEntry(path, links);
    return handle ? lookAtHandle(handle.get(), entry) : lastError();
}

RawDisk::Error WindowsDisk::lookAt(RawFolder& folder, RawEntry& entry) {
    const auto handle = openEntry(pathOf(folder), Links::followed);
    return handle ? lookAtHandle(handle.get(), entry) : lastError();
}

RawDisk::Error WindowsDisk::setLike(RawFolder& folder, const RawEntry& model) {
    const auto handle =
        openEntry(pathOf(folder), Links::kept, FILE_READ_ATTRIBUTES | FILE_WRITE_ATTRIBUTES);
    return handle ? setHandleLike(handle.get(), model) : lastError();
}

RawDisk::Error WindowsDisk::sync(RawFolder& folder) {
    const auto handle = openEntry(pathOf(folder), Links::followed, GENERIC_WRITE);
    if (handle && FlushFileBuffers(handle.get()) != 0)
        return {};
    const auto error = lastError();
    return hasNothingToFlush(error) ? Error() : error;
}

/// There is no call for a whole disk without an administrator's rights. Names are in one log, which
/// goes to the disk up to the newest of them.
RawDisk::Error WindowsDisk::syncAll(RawFolder& folder) {
    return sync(folder);
}

RawDisk::Error WindowsDisk::makeFolder(RawFolder& in, const std::string& name) {
    std::wstring path;
    if (const auto error = newPath(in, name, path))
        return error;
    return patience_.with([&] { return errorOf(CreateDirectoryW(path.c_str(), nullptr)); });
}

RawDisk::Error WindowsDisk::removeFolder(RawFolder& in, const std::string& name) {
    RawEntry entry;
    std::wstring path;
    if (const auto error = look(in, name, Links::kept, entry))
        return error;
    if (entry.kind != RawKind::folder)
        return codeOf(ERROR_DIRECTORY);
    if (const auto error = findPath(in, name, path))
        return error;
    return patience_.with([&] {
        return despiteReadOnly(path, [&] { return errorOf(RemoveDirectoryW(path.c_str())); });
    });
}

} // namespace platform::windows
