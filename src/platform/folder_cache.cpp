// A path is walked once; the calls that follow find its folder by the text ahead of the last name.
#include "folder_cache.h"

#include <algorithm>

#include "check.h"
#include "platform/paths.h"
#include "platform/relative_path.h"
#include "platform/text.h"
#include "system_path.h"

namespace platform {
namespace {

using namespace std::chrono_literals;

constexpr auto pathsLast = 250ms;
/// A process may mostly have 1,024 files open.
constexpr std::size_t mostFolders = 800;

std::vector<std::string> partsOf(std::string_view path) {
    return splitPath(replaceAll(path, "/", "\\"));
}

} // namespace

void NewFolders::undo(RawDisk& disk) {
    for (; !made_.empty(); made_.pop_back()) {
        auto& [folder, name] = made_.back();
        if (!disk.removeFolder(folder->raw(), name))
            folder->noteRemoved(name);
    }
}

void FolderCache::setGameDirectory(const std::string& folder) {
    gameDirectory_ = folder;
    forgetPaths();
    folders_.clear();
}

void FolderCache::beginCall() {
    const auto now = std::chrono::steady_clock::now();
    if (now - lastCall_ > pathsLast || paths_.size() > mostFolders || folders_.size() > mostFolders)
        letGo();
    lastCall_ = now;
}

void FolderCache::letGo() {
    forgetPaths();
    // What lies outside goes, so that a disk of it can be taken off the machine. Of too many
    // folders those stay that it would take longest to learn again.
    const bool areTooMany = folders_.size() > mostFolders;
    std::erase_if(folders_, [areTooMany](const auto& each) {
        const auto& known = each.second;
        return !known.isInside || (areTooMany && !known.folder->isListed());
    });
    if (folders_.size() > mostFolders / 2)
        folders_.clear();
}

Place FolderCache::placeOf(std::string_view path) const {
    if (path.find('\0') != std::string_view::npos)
        fail("find", path, std::errc::invalid_argument);
    if (isBelow(path, gameDirectory_)) {
        auto rest = path.substr(gameDirectory_.size());
        rest.remove_prefix(std::min(rest.find_first_not_of('\\'), rest.size()));
        if (!rest.empty() && !RelativePath::accepts(rest, PathRules::own()))
            fail("find", path, std::errc::permission_denied);
        return {gameDirectory_, splitPath(rest), true};
    }
    const auto root = rootOf(path);
    if (root.empty())
        fail("find", path, std::errc::no_such_file_or_directory);
    return {std::string(root), partsOf(path.substr(root.size())), false};
}

FolderPtr FolderCache::open(const Place& place, std::size_t depth, NewFolders* made) {
    std::string key = place.base;
    for (std::size_t i = 0; i < depth; ++i)
        key += "\\" + place.parts[i];
    if (const auto known = paths_.find(key); known != paths_.end())
        return known->second;
    std::unique_ptr<RawFolder> raw;
    FolderPtr folder;
    if (depth == 0) {
        check(disk_.openRoot(place.base, raw), "open folder", place.base);
        folder = objectOf(std::move(raw), place.base, place.isInside);
    } else {
        const auto parent = open(place, depth - 1, made);
        auto name = place.parts[depth - 1];
        auto error = disk_.openFolder(parent->raw(), name, place.links(), raw);
        if (error == std::errc::no_such_file_or_directory) {
            name = nameIn(parent, name, made);
            error = disk_.openFolder(parent->raw(), name, place.links(), raw);
        }
        check(error, "open folder", name);
        folder = objectOf(std::move(raw), name, place.isInside);
        parent->noteOpened(name);
    }
    // A folder that may yet be undone must not be found again by its path.
    if (made == nullptr || made->empty())
        paths_.emplace(std::move(key), folder);
    return folder;
}

FolderPtr FolderCache::tryOpen(const Place& place, std::size_t depth) {
    try {
        return open(place, depth);
    } catch (const Failure&) {
        return nullptr;
    }
}

FolderPtr FolderCache::objectOf(std::unique_ptr<RawFolder> raw, std::string_view name,
                                bool isInside) {
    RawEntry self;
    check(disk_.lookAt(*raw, self), "open folder", name);
    auto& known = folders_[self.identity];
    known.isInside = known.isInside || isInside;
    if (known.folder)
        known.folder->takeHandle(std::move(raw));
    else
        known.folder = std::make_shared<Folder>(disk_, std::move(raw));
    return known.folder;
}

std::string FolderCache::nameIn(const FolderPtr& parent, const std::string& part,
                                NewFolders* made) {
    if (const auto known = parent->otherSpelling(part))
        return *known;
    if (made != nullptr) {
        const auto error = disk_.makeFolder(parent->raw(), part);
        // Somebody else may just have made it.
        if (error == std::errc::file_exists)
            return part;
        check(error, "make folder", part);
        parent->noteAdded(part);
        made->add(parent, part);
    }
    return part;
}

std::error_code FolderCache::syncWayTo(std::string_view path) {
    const auto place = placeOf(path);
    for (std::size_t depth = place.parts.size(); depth > 0; --depth)
        if (const auto error = disk_.sync(open(place, depth - 1)->raw()))
            return error;
    return {};
}

bool FolderCache::spotInKnownFolder(const std::string& path, Spot& spot) {
    const auto cut = path.rfind('\\');
    if (cut == std::string::npos || cut + 1 == path.size() || !isBelow(path, gameDirectory_))
        return false;
    const auto folder = std::string_view(path).substr(0, cut);
    const auto leaf = std::string_view(path).substr(cut + 1);
    if (leadsAway(leaf))
        return false;
    // Moves one after another mostly go between the same two folders.
    auto recent = std::find_if(recent_.begin(), recent_.end(), [&](const auto* known) {
        return known != nullptr && known->first == folder;
    });
    if (recent == recent_.end()) {
        const auto known = paths_.find(folder);
        if (known == paths_.end())
            return false;
        std::swap(recent_.front(), recent_.back());
        recent = recent_.begin();
        *recent = &*known;
    }
    spot.folder = (*recent)->second;
    spot.leaf = leaf;
    return true;
}

Spot FolderCache::spotOf(const std::string& path, std::string_view call, NewFolders* made) {
    Spot spot;
    if (spotInKnownFolder(path, spot))
        return spot;
    auto place = placeOf(path);
    if (place.parts.empty())
        fail(call, path, std::errc::is_a_directory);
    auto folder = open(place, place.parts.size() - 1, made);
    return {std::move(folder), std::move(place.parts.back()), place.links()};
}

Spot FolderCache::spotToChange(const std::string& path, std::string_view call, NewFolders* made) {
    if (!isBelow(path, gameDirectory_) || path.size() <= gameDirectory_.size() + 1)
        fail(call, path, std::errc::permission_denied);
    return spotOf(path, call, made);
}

} // namespace platform
