// What is where: the game directory, names, kinds and listings.
#include "platform/disk.h"

#include <algorithm>

#include "check.h"
#include "folder_cache.h"
#include "platform/paths.h"
#include "platform/raw_disk.h"
#include "platform/text.h"
#include "shared_files.h"
#include "system_path.h"

namespace platform {
namespace {

bool isExpressible(std::string_view name) {
    return std::none_of(name.begin(), name.end(),
                        [](char c) { return c == '\\' || c == '\r' || c == '\n'; });
}

EntryFacts factsOfEntry(const RawEntry& entry) {
    if (entry.kind == RawKind::folder)
        return {EntryKind::folder, 0, entry.changed, entry.modified};
    return {EntryKind::file, entry.size, entry.changed, entry.modified};
}

} // namespace

Disk::Disk(std::shared_ptr<RawDisk> raw)
    : raw_(std::move(raw)), folders_(std::make_unique<FolderCache>(*raw_)),
      sharedFiles_(std::make_unique<SharedFiles>()) {}

Disk::~Disk() = default;

void Disk::aboutToChange(const std::string& /*path*/) {}

void Disk::setGameDirectory(const std::string& folder) {
    folders_->setGameDirectory(folder);
}

const std::string& Disk::gameDirectory() const {
    return folders_->gameDirectory();
}

bool Disk::isInside(std::string_view path) const {
    return isPlainPathBelow(path, gameDirectory());
}

std::string Disk::systemPath(const std::string& path) {
    folders_->beginCall();
    const auto place = folders_->placeOf(path);
    std::string result = place.base;
    auto folder = folders_->tryOpen(place, 0);
    for (std::size_t i = 0; i < place.parts.size(); ++i) {
        const auto known = folder ? folder->spelling(place.parts[i]) : std::nullopt;
        if (!result.ends_with(systemSeparator))
            result += systemSeparator;
        result += known.value_or(place.parts[i]);
        folder = folder ? folders_->tryOpen(place, i + 1) : nullptr;
    }
    return result;
}

EntryKind Disk::kindOf(const std::string& path) {
    return factsOf(path).kind;
}

EntryFacts Disk::factsOf(const std::string& path) {
    folders_->beginCall();
    try {
        if (path.ends_with('\\') || path == gameDirectory()) {
            const auto place = folders_->placeOf(path);
            folders_->open(place, place.parts.size());
            return {EntryKind::folder, 0, 0};
        }
        const auto spot = folders_->spotOf(path, "find");
        if (const auto entry = spot.folder->look(spot.leaf, spot.links))
            return factsOfEntry(*entry);
        const auto other = spot.folder->otherSpelling(spot.leaf);
        const auto entry = other ? spot.folder->look(*other, spot.links) : std::nullopt;
        return entry ? factsOfEntry(*entry) : EntryFacts();
    } catch (const Failure&) {
        return {};
    }
}

std::vector<std::string> Disk::folderNames(const std::string& path) {
    return list(path).folders;
}

std::vector<std::string> Disk::fileNames(const std::string& path) {
    return list(path).files;
}

FolderNames Disk::list(const std::string& path) {
    folders_->beginCall();
    const auto place = folders_->placeOf(path);
    const auto folder = folders_->open(place, place.parts.size());
    std::vector<RawName> entries;
    check(raw_->list(folder->raw(), entries), "list", path);
    FolderNames names;
    for (auto& entry : entries) {
        if (!isExpressible(entry.name))
            continue;
        if (entry.kind == RawKind::folder)
            names.folders.push_back(std::move(entry.name));
        else if (!entry.isHidden && (entry.kind == RawKind::file || entry.kind == RawKind::link))
            names.files.push_back(std::move(entry.name));
    }
    for (auto* each : {&names.folders, &names.files})
        std::sort(each->begin(), each->end(), lessIgnoringCase);
    return names;
}

bool Disk::leadsThroughLink(const std::string& folder, const std::string& relative) {
    folders_->beginCall();
    auto path = folder;
    for (const auto& part : splitPath(relative)) {
        path += "\\" + part;
        const auto place = folders_->placeOf(path);
        // The game directory stands by itself, whatever lies above it.
        if (place.parts.empty())
            continue;
        const auto parent = folders_->tryOpen(place, place.parts.size() - 1);
        const auto name = parent ? parent->spelling(place.parts.back()) : std::nullopt;
        const auto entry = name ? parent->look(*name, Links::kept) : std::nullopt;
        if (entry && entry->kind == RawKind::link)
            return true;
    }
    return false;
}

void Disk::flush() {
    std::unique_ptr<RawFolder> top;
    check(raw_->openRoot(gameDirectory(), top), "flush", gameDirectory());
    check(raw_->syncAll(*top), "flush", gameDirectory());
}

std::unique_ptr<Disk> makeDisk() {
    return std::make_unique<Disk>(makeRawDisk());
}

} // namespace platform
