// Names: renames, links, removal. A rename is in the disk's log and not flushed by itself.
#include "platform/text.h"
#include "read_only.h"
#include "system_error.h"
#include "windows_disk.h"

namespace platform::windows {
namespace {

bool isSpelled(const std::wstring& path) {
    WIN32_FIND_DATAW found{};
    const HANDLE search = FindFirstFileW(path.c_str(), &found);
    if (search == INVALID_HANDLE_VALUE)
        return false;
    FindClose(search);
    return path.ends_with(std::wstring(L"\\") + found.cFileName);
}

/// An entry in the way of its own new spelling is no other one, which only a plain rename knows.
/// Some file systems take a new spelling for the old name, and change nothing. They get it by way
/// of a name that people can see: one that was left there by a stop is nobody's leftover.
std::error_code respell(const std::wstring& oldPath, const std::wstring& path) {
    if (MoveFileExW(oldPath.c_str(), path.c_str(), 0) == 0)
        return lastError();
    if (isSpelled(path))
        return {};
    const auto between = path + L" (renaming)";
    if (MoveFileExW(oldPath.c_str(), between.c_str(), 0) == 0)
        return lastError();
    if (MoveFileExW(between.c_str(), path.c_str(), 0) != 0)
        return {};
    const auto error = lastError();
    MoveFileExW(between.c_str(), oldPath.c_str(), 0);
    return error;
}

bool isSameEntry(const RawFolder& from, const std::string& name, const RawFolder& to,
                 const std::string& newName) {
    return pathOf(from) == pathOf(to) && equalIgnoringCase(name, newName);
}

struct OldAndNew {
    std::wstring oldPath;
    std::wstring path;
};

std::error_code findPaths(const RawFolder& from, const std::string& name, const RawFolder& to,
                          const std::string& newName, OldAndNew& paths) {
    const auto error = findPath(from, name, paths.oldPath);
    return error ? error : newPath(to, newName, paths.path);
}

} // namespace

/// Without MOVEFILE_REPLACE_EXISTING the system never replaces.
RawDisk::Error WindowsDisk::renameNew(RawFolder& from, const std::string& name, RawFolder& to,
                                      const std::string& newName) {
    OldAndNew paths;
    if (const auto error = findPaths(from, name, to, newName, paths))
        return error;
    return patience_.with(
        [&] { return errorOf(MoveFileExW(paths.oldPath.c_str(), paths.path.c_str(), 0)); });
}

RawDisk::Error WindowsDisk::renameOver(RawFolder& from, const std::string& name, RawFolder& to,
                                       const std::string& newName) {
    OldAndNew paths;
    if (const auto error = findPaths(from, name, to, newName, paths))
        return error;
    if (isSameEntry(from, name, to, newName))
        return patience_.with([&] { return respell(paths.oldPath, paths.path); });
    return patience_.with([&] {
        return despiteReadOnly(paths.path, [&] {
            return errorOf(
                MoveFileExW(paths.oldPath.c_str(), paths.path.c_str(), MOVEFILE_REPLACE_EXISTING));
        });
    });
}

RawDisk::Error WindowsDisk::hardLink(RawFolder& from, const std::string& name, RawFolder& to,
                                     const std::string& newName) {
    OldAndNew paths;
    if (const auto error = findPaths(from, name, to, newName, paths))
        return error;
    return errorOf(CreateHardLinkW(paths.path.c_str(), paths.oldPath.c_str(), nullptr));
}

/// Making links needs rights that players seldom have, so none is moved between disks.
RawDisk::Error WindowsDisk::readLink(RawFolder& /*in*/, const std::string& /*name*/,
                                     std::string& /*target*/) {
    return codeOf(ERROR_NOT_SUPPORTED);
}

RawDisk::Error WindowsDisk::makeLink(RawFolder& /*in*/, const std::string& /*name*/,
                                     const std::string& /*target*/) {
    return codeOf(ERROR_NOT_SUPPORTED);
}

RawDisk::Error WindowsDisk::unlink(RawFolder& in, const std::string& name) {
    RawEntry entry;
    std::wstring path;
    if (const auto error = look(in, name, Links::kept, entry))
        return error;
    if (entry.kind == RawKind::folder)
        return codeOf(errorIsFolder);
    if (const auto error = findPath(in, name, path))
        return error;
    // A link to a folder is removed as folders are, and what it leads to stays.
    const auto attributes = GetFileAttributesW(path.c_str());
    const bool isFoldersLink = entry.kind == RawKind::link &&
                               attributes != INVALID_FILE_ATTRIBUTES &&
                               (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
    const auto remove = isFoldersLink ? RemoveDirectoryW : DeleteFileW;
    return patience_.with(
        [&] { return despiteReadOnly(path, [&] { return errorOf(remove(path.c_str())); }); });
}

} // namespace platform::windows

namespace platform {

std::shared_ptr<RawDisk> makeRawDisk() {
    return std::make_shared<windows::WindowsDisk>();
}

} // namespace platform
