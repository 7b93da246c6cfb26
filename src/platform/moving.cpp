// A move never replaces: the system refuses, or a hard link does, or a name that was free is taken
// first.
#include "moving.h"

#include "check.h"
#include "part_file.h"
#include "tree.h"

namespace platform {
namespace {

bool cannotRefuse(std::error_code error) {
    return error == std::errc::function_not_supported || error == std::errc::invalid_argument ||
           error == std::errc::not_supported || error == std::errc::operation_not_supported;
}

bool hasNoLinks(std::error_code error) {
    return cannotRefuse(error) || error == std::errc::operation_not_permitted ||
           error == std::errc::too_many_links;
}

/// A rename may take the place of an empty folder, so that is looked for.
std::error_code renameFolder(RawDisk& disk, RawFolder& from, const std::string& name, RawFolder& to,
                             const std::string& newName) {
    RawEntry taken;
    if (!disk.look(to, newName, Links::kept, taken))
        return std::make_error_code(std::errc::file_exists);
    return disk.renameOver(from, name, to, newName);
}

/// The name is taken by an empty file of our own, which the rename then replaces.
std::error_code renameOntoOwn(RawDisk& disk, RawFolder& from, const std::string& name,
                              RawFolder& to, const std::string& newName) {
    constexpr std::uint32_t ownerOnly = 0600;
    std::unique_ptr<RawFile> own;
    if (const auto error = disk.createFile(to, newName, ownerOnly, own))
        return error;
    own.reset();
    const auto error = disk.renameOver(from, name, to, newName);
    if (error)
        disk.unlink(to, newName);
    return error;
}

std::error_code renameByLink(RawDisk& disk, RawFolder& from, const std::string& name, RawFolder& to,
                             const std::string& newName) {
    if (const auto error = disk.hardLink(from, name, to, newName))
        return hasNoLinks(error) ? renameOntoOwn(disk, from, name, to, newName) : error;
    const auto error = disk.unlink(from, name);
    if (error)
        disk.unlink(to, newName);
    return error;
}

/// A folder is first taken out of the way by one rename: where that is refused, it is whole, and
/// behind it no half of it is left under its name.
std::error_code removeOriginal(RawDisk& disk, Folder& from, const std::string& name) {
    RawEntry entry;
    if (const auto error = disk.look(from.raw(), name, Links::kept, entry))
        return error;
    if (entry.kind != RawKind::folder)
        return disk.unlink(from.raw(), name);
    const auto old = nextPartName();
    if (const auto error = renameWithoutReplacing(disk, from.raw(), name, from.raw(), old))
        return error;
    removeEntry(disk, from.raw(), old, ReadOnly::goes);
    return {};
}

} // namespace

std::error_code renameWithoutReplacing(RawDisk& disk, RawFolder& from, const std::string& name,
                                       RawFolder& to, const std::string& newName) {
    const auto error = disk.renameNew(from, name, to, newName);
    if (!error || !cannotRefuse(error))
        return error;
    RawEntry entry;
    RawEntry target;
    if (const auto missing = disk.look(from, name, Links::kept, entry))
        return missing;
    if (const auto gone = disk.lookAt(to, target))
        return gone;
    if (entry.identity.device != target.identity.device)
        return std::make_error_code(std::errc::cross_device_link);
    return entry.kind == RawKind::folder ? renameFolder(disk, from, name, to, newName)
                                         : renameByLink(disk, from, name, to, newName);
}

bool moveAcross(RawDisk& disk, Folder& from, const std::string& name, Folder& to,
                const std::string& newName, std::string_view path,
                const std::function<std::error_code(const std::string& name)>& copy,
                const std::function<std::error_code()>& syncNewName) {
    auto copyName = nextPartName();
    const auto takeCopyAway = [&] { removeEntry(disk, to.raw(), copyName, ReadOnly::goes); };
    to.noteChanged();
    return orUndo(
        [&] {
            check(copy(copyName), "move", path);
            const auto error = renameWithoutReplacing(disk, to.raw(), copyName, to.raw(), newName);
            if (error == std::errc::file_exists) {
                takeCopyAway();
                return false;
            }
            check(error, "move", path);
            copyName = newName;
            check(syncNewName(), "move", path);
            check(removeOriginal(disk, from, name), "move", path);
            return true;
        },
        takeCopyAway);
}

} // namespace platform
