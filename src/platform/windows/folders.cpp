// Folders: opening, listing, looking at what is in them.
#include <memory>

#include "system_error.h"
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
    const bool isLink = (found.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0 &&
                        (found.dwReserved0 == IO_REPARSE_TAG_SYMLINK ||
                         found.dwReserved0 == IO_REPARSE_TAG_MOUNT_POINT);
    if (isLink)
        return RawKind::link;
    return (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0 ? RawKind::folder
                                                                    : RawKind::file;
}

} // namespace

RawDisk::Error WindowsDisk::openRoot(const std::string& path, std::unique_ptr<RawFolder>& folder) {
    constexpr std::size_t driveLength = 2;
    auto text = L"\\\\?\\" + wide(path);
    for (auto& letter : text)
        if (letter == L'/')
            letter = L'\\';
    if (path.size() == driveLength)
        text += L'\\';
    return openFolderAt(std::move(text), Links::followed, folder);
}

RawDisk::Error WindowsDisk::openFolder(RawFolder& in, const std::string& name, Links links,
                                       std::unique_ptr<RawFolder>& folder) {
    return openFolderAt(pathOf(in, name), links, folder);
}

RawDisk::Error WindowsDisk::list(RawFolder& folder, std::vector<RawName>& names) {
    constexpr DWORD hidden = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM;
    names.clear();
    WIN32_FIND_DATAW found{};
    const HANDLE search = FindFirstFileW(pathOf(folder, "*").c_str(), &found);
    if (search == INVALID_HANDLE_VALUE)
        return GetLastError() == ERROR_FILE_NOT_FOUND ? Error() : lastError();
    const std::unique_ptr<void, decltype([](HANDLE h) { FindClose(h); })> closing(search);
    do {
        auto name = narrow(found.cFileName);
        if (name == "." || name == "..")
            continue;
        const bool isHidden = (found.dwFileAttributes & hidden) != 0 || name.starts_with('.');
        names.push_back({std::move(name), kindOf(found), isHidden});
    } while (FindNextFileW(search, &found) != 0);
    return GetLastError() == ERROR_NO_MORE_FILES ? Error() : lastError();
}

RawDisk::Error WindowsDisk::look(RawFolder& in, const std::string& name, Links links,
                                 RawEntry& entry) {
    const auto handle = openEntry(pathOf(in, name), links);
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
    // Not every file system gives a folder out for writing; its names are in its log then.
    const auto handle = openEntry(pathOf(folder), Links::kept, GENERIC_WRITE);
    if (handle)
        FlushFileBuffers(handle.get());
    return {};
}

/// Renames are written through one by one; there is no call for a whole disk without an
/// administrator's rights.
RawDisk::Error WindowsDisk::syncAll(RawFolder& /*folder*/) {
    return {};
}

RawDisk::Error WindowsDisk::makeFolder(RawFolder& in, const std::string& name) {
    return errorOf(CreateDirectoryW(pathOf(in, name).c_str(), nullptr));
}

RawDisk::Error WindowsDisk::removeFolder(RawFolder& in, const std::string& name) {
    RawEntry entry;
    if (const auto error = look(in, name, Links::kept, entry))
        return error;
    if (entry.kind != RawKind::folder)
        return codeOf(ERROR_DIRECTORY);
    return errorOf(RemoveDirectoryW(pathOf(in, name).c_str()));
}

} // namespace platform::windows
