// Writing: all files but those of writeFile are made beside and renamed into place.
#include "check.h"
#include "folder_cache.h"
#include "part_file.h"
#include "platform/disk.h"
#include "platform/raw_disk.h"
#include "platform/write_batch.h"
#include "tree.h"

namespace platform {
namespace {

constexpr std::uint32_t newFileMode = 0666;
/// To run in the name of another: no copy gets that.
constexpr std::uint32_t privileges = 07000;

} // namespace

/// Where a file is to be written, and what is there.
struct Disk::Target {
    FolderPtr folder;
    std::string leaf; ///< in the spelling of the disk if it has one
    std::optional<RawEntry> old;

    void noteWritten() const {
        if (!old)
            folder->noteAdded(leaf);
    }
};

Disk::Target Disk::targetOf(const Spot& spot, const std::string& path) {
    Target target{spot.folder, spot.leaf, std::nullopt};
    if (const auto known = spot.folder->spelling(spot.leaf)) {
        target.leaf = *known;
        target.old = spot.folder->look(*known, Links::kept);
    }
    if (target.old && target.old->kind == RawKind::folder)
        fail("write", path, std::errc::is_a_directory);
    return target;
}

void Disk::writePieces(const std::string& path,
                       const std::function<void(const PieceSink&)>& produce) {
    aboutToChange(path);
    folders_->beginCall();
    const auto target = targetOf(folders_->spotToChange(path, "write"), path);
    auto part = std::make_unique<PartFile>(*raw_, *target.folder, path, newFileMode);
    orUndo([&] { produce([&](std::string_view piece) { part->write(piece); }); },
           [&] { part->discard(); });
    finish(std::move(part), target);
}

void Disk::finish(std::unique_ptr<PartFile> part, const Target& target) {
    if (batch_ != nullptr)
        return batch_->add({std::move(part), target.folder, target.leaf, !target.old});
    orUndo(
        [&] {
            if (target.old)
                part->sync();
            part->replace(target.leaf);
        },
        [&] { part->discard(); });
    target.noteWritten();
}

void Disk::checkWritable(const std::string& folder) {
    aboutToChange(folder);
    folders_->beginCall();
    const auto place = folders_->placeOf(folder);
    if (!place.isInside)
        fail("write", folder, std::errc::permission_denied);
    const auto open = folders_->open(place, place.parts.size());
    PartFile(*raw_, *open, folder, newFileMode).discard();
}

void Disk::writeFile(const std::string& path, std::string_view bytes) {
    aboutToChange(path);
    folders_->beginCall();
    const auto target = targetOf(folders_->spotToChange(path, "write"), path);
    if (target.old)
        return overwrite(target, path, bytes);
    std::unique_ptr<RawFile> file;
    auto& folder = *target.folder;
    check(raw_->createFile(folder.raw(), target.leaf, newFileMode, file), "write", path);
    orUndo([&] { check(raw_->write(*file, bytes), "write", path); },
           [&] {
               file.reset();
               raw_->unlink(folder.raw(), target.leaf);
               folder.noteChanged();
           });
    target.noteWritten();
}

void Disk::overwrite(const Target& target, const std::string& path, std::string_view bytes) {
    std::unique_ptr<RawFile> file;
    check(raw_->emptyFile(target.folder->raw(), target.leaf, file), "write", path);
    check(raw_->write(*file, bytes), "write", path);
}

void Disk::replaceFile(const std::string& path, std::string_view bytes) {
    aboutToChange(path);
    folders_->beginCall();
    const auto target = targetOf(folders_->spotToChange(path, "write"), path);
    const bool replacesFile = target.old && target.old->kind == RawKind::file;
    const auto mode = replacesFile ? target.old->mode & ~privileges : newFileMode;
    PartFile part(*raw_, *target.folder, path, mode);
    orUndo(
        [&] {
            part.write(bytes);
            part.sync();
            part.replace(target.leaf);
        },
        [&] { part.discard(); });
    target.noteWritten();
    check(folders_->syncWayTo(path), "write", path);
}

void Disk::copyFile(const std::string& from, const std::string& to,
                    const CopyProgress& onProgress) {
    aboutToChange(to);
    RawEntry entry;
    auto source = openToRead(from, "copy", entry);
    NewFolders made;
    orUndo(
        [&] {
            const auto target = targetOf(folders_->spotToChange(to, "copy", &made), to);
            auto part =
                std::make_unique<PartFile>(*raw_, *target.folder, to, entry.mode & ~privileges);
            orUndo(
                [&] {
                    check(copyBytes(*raw_, *source, part->raw(), entry.size, onProgress), "copy",
                          from);
                    part->takeTimes(entry);
                },
                [&] { part->discard(); });
            // It may be the very file whose place is taken.
            source.reset();
            finish(std::move(part), target);
        },
        [&] { made.undo(*raw_); });
}

} // namespace platform
