// Moves, renames, folders made and things removed.
#include "check.h"
#include "folder_cache.h"
#include "moving.h"
#include "part_file.h"
#include "platform/disk.h"
#include "platform/paths.h"
#include "platform/raw_disk.h"
#include "platform/relative_path.h"
#include "platform/text.h"
#include "shared_files.h"
#include "tree.h"

namespace platform {
namespace {

bool isBelowIgnoringCase(std::string_view path, std::string_view folder) {
    return path.size() > folder.size() && path[folder.size()] == '\\' &&
           equalIgnoringCase(path.substr(0, folder.size()), folder);
}

} // namespace

bool Disk::moveEntry(const std::string& from, const std::string& to) {
    aboutToChange(from);
    if (isBelowIgnoringCase(to, from)) {
        if (kindOf(to) != EntryKind::none || kindOf(from) == EntryKind::none)
            return false;
        fail("move", from, std::errc::invalid_argument);
    }
    folders_->beginCall();
    Spot source;
    if (!attempt([&] { source = folders_->spotToChange(from, "move"); }))
        return false;
    NewFolders made;
    const bool isMoved = orUndo(
        [&] {
            Spot target;
            try {
                target = folders_->spotToChange(to, "move", &made);
            } catch (const Failure&) {
                if (!source.folder->spelling(source.leaf))
                    return false;
                throw;
            }
            const bool isSame =
                source.folder == target.folder && equalIgnoringCase(source.leaf, target.leaf);
            return !isSame && !target.folder->has(target.leaf) && move(source, target, to);
        },
        [&] { made.undo(*raw_); });
    if (!isMoved)
        made.undo(*raw_);
    return isMoved;
}

bool Disk::move(const Spot& source, const Spot& target, const std::string& to) {
    auto& from = *source.folder;
    const auto rename = [&](const std::string& name) {
        return renameWithoutReplacing(*raw_, from.raw(), name, target.folder->raw(), target.leaf);
    };
    auto name = source.leaf;
    auto error = rename(name);
    if (error && error == std::errc::no_such_file_or_directory) {
        const auto other = from.otherSpelling(name);
        if (!other)
            return false;
        name = *other;
        error = rename(name);
    }
    if (error && error == std::errc::file_exists)
        return false;
    if (error && error == std::errc::cross_device_link) {
        if (!moveToOtherDisk(from, name, target, to))
            return false;
    } else {
        check(error, "move", to);
    }
    const bool wasOpened = from.wasOpened(name);
    from.noteRemoved(name);
    target.folder->noteAdded(target.leaf);
    if (wasOpened)
        folders_->forgetPaths();
    return true;
}

bool Disk::moveToOtherDisk(Folder& from, const std::string& name, const Spot& target,
                           const std::string& to) {
    RawEntry entry;
    check(raw_->look(from.raw(), name, Links::kept, entry), "move", to);
    auto& folder = *target.folder;
    // A second name for the copy that another name has got already.
    const auto link = [&](const std::string& newName) {
        const auto known = sharedFiles_->copyOf(entry);
        if (!known)
            return false;
        const auto copy = folders_->spotOf(*known, "move");
        const auto facts = copy.folder->look(copy.leaf, Links::kept);
        return facts && facts->kind == RawKind::file && facts->size == entry.size &&
               facts->modified == entry.modified &&
               !raw_->hardLink(copy.folder->raw(), copy.leaf, folder.raw(), newName);
    };
    const auto copy = [&](const std::string& newName) {
        bool isLinked = false;
        attempt([&] { isLinked = link(newName); });
        return isLinked ? std::error_code()
                        : copyEntry(*raw_, from.raw(), name, folder.raw(), newName);
    };
    if (!moveAcross(*raw_, from, name, folder, target.leaf, to, copy,
                    [&] { return folders_->syncWayTo(to); }))
        return false;
    sharedFiles_->noteMoved(entry, to);
    return true;
}

bool Disk::renameEntry(const std::string& path, const std::string& newName) {
    aboutToChange(path);
    folders_->beginCall();
    const auto spot = folders_->spotToChange(path, "rename");
    if (!isPlainName(newName))
        fail("rename", path, std::errc::invalid_argument);
    auto& folder = *spot.folder;
    const auto name = folder.spelling(spot.leaf);
    const auto taken = folder.spelling(newName);
    if (!name || (taken && *taken != *name))
        return false;
    if (*name == newName)
        return true;
    // Where case is ignored, the new spelling is taken by the entry itself.
    const bool isItself = taken && folder.look(newName, Links::kept);
    const auto error =
        isItself ? raw_->renameOver(folder.raw(), *name, folder.raw(), newName)
                 : renameWithoutReplacing(*raw_, folder.raw(), *name, folder.raw(), newName);
    check(error, "rename", path);
    folder.noteRemoved(*name);
    folder.noteAdded(newName);
    folders_->forgetPaths();
    return true;
}

void Disk::removeFile(const std::string& path) {
    aboutToChange(path);
    remove(path, [&](Folder& folder, const std::string& name) {
        return raw_->unlink(folder.raw(), name);
    });
}

void Disk::makeFolder(const std::string& path) {
    aboutToChange(path);
    folders_->beginCall();
    const auto spot = folders_->spotToChange(path, "make folder");
    if (spot.folder->spelling(spot.leaf))
        fail("make folder", path, std::errc::file_exists);
    check(raw_->makeFolder(spot.folder->raw(), spot.leaf), "make folder", path);
    spot.folder->noteAdded(spot.leaf);
}

void Disk::removeFolder(const std::string& path) {
    aboutToChange(path);
    remove(path, [&](Folder& folder, const std::string& name) {
        folders_->forgetPaths();
        return raw_->removeFolder(folder.raw(), name);
    });
}

void Disk::removeTree(const std::string& path) {
    aboutToChange(path);
    remove(path, [&](Folder& folder, const std::string& name) {
        folders_->forgetPaths();
        const auto entry = folder.look(name, Links::kept);
        if (!entry || entry->kind != RawKind::folder)
            return std::make_error_code(std::errc::not_a_directory);
        return removeEntry(*raw_, folder.raw(), name, ReadOnly::stays);
    });
}

void Disk::removeLeftOvers(const std::string& folder) {
    attempt([&] {
        folders_->beginCall();
        const auto place = folders_->placeOf(folder);
        if (!place.isInside)
            return;
        const auto open = folders_->open(place, place.parts.size());
        std::vector<RawName> names;
        check(raw_->list(open->raw(), names), "list", folder);
        for (const auto& entry : names)
            if (isLeftOver(entry.name)) {
                aboutToChange(folder + "\\" + entry.name);
                removeEntry(*raw_, open->raw(), entry.name, ReadOnly::goes);
                open->noteChanged();
            }
    });
}

void Disk::remove(const std::string& path,
                  const std::function<std::error_code(Folder&, const std::string&)>& step) {
    folders_->beginCall();
    const auto spot = folders_->spotToChange(path, "remove");
    const auto name = spot.folder->spelling(spot.leaf);
    if (!name)
        fail("remove", path, std::errc::no_such_file_or_directory);
    check(step(*spot.folder, *name), "remove", path);
    spot.folder->noteRemoved(*name);
}

} // namespace platform
