// From paths to open folders.
#pragma once

#include <array>
#include <chrono>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "folder.h"

namespace platform {

using FolderPtr = std::shared_ptr<Folder>;

/// A folder and a name in it. Below the game directory links are kept, elsewhere followed.
struct Spot {
    FolderPtr folder;
    std::string leaf;
    Links links = Links::kept;
};

/// Where a path leads: the folder to start from and the parts below it.
struct Place {
    std::string base;
    std::vector<std::string> parts;
    bool isInside = false;
    Links links() const { return isInside ? Links::kept : Links::followed; }
};

/// Folders made on the way to a destination.
class NewFolders {
  public:
    void add(FolderPtr folder, std::string name) {
        made_.emplace_back(std::move(folder), std::move(name));
    }
    bool empty() const { return made_.empty(); }
    /// Takes them away again, as far as they are empty.
    void undo(RawDisk& disk);

  private:
    std::vector<std::pair<FolderPtr, std::string>> made_;
};

/// Keeps one object for each real folder, and the paths that led to it while one call follows
/// another: a path outlives no rename of its folder.
class FolderCache {
  public:
    explicit FolderCache(RawDisk& disk) : disk_(disk) {}

    void setGameDirectory(const std::string& folder);
    const std::string& gameDirectory() const { return gameDirectory_; }

    /// Opens each public call of the disk.
    void beginCall();

    Place placeOf(std::string_view path) const;

    /// Opens the folder `depth` parts below the base, making missing ones if `made` is given.
    FolderPtr open(const Place& place, std::size_t depth, NewFolders* made = nullptr);
    /// Null instead of a failure.
    FolderPtr tryOpen(const Place& place, std::size_t depth);

    /// The parent of an entry and the entry's name, whether it is there or not. The path must name
    /// more than a base.
    Spot spotOf(const std::string& path, std::string_view call, NewFolders* made = nullptr);
    /// The same for an entry that is to be changed.
    Spot spotToChange(const std::string& path, std::string_view call, NewFolders* made = nullptr);

    /// An entry would still be found by its path behind a power cut. Folders on the way that have
    /// long been there cost next to nothing.
    std::error_code syncWayTo(std::string_view path);

    /// Paths may lead elsewhere now.
    void forgetPaths() {
        paths_.clear();
        recent_ = {};
    }

  private:
    /// Lets a map of strings be searched without making one.
    struct TextHash {
        using is_transparent = void;
        std::size_t operator()(std::string_view text) const {
            return std::hash<std::string_view>()(text);
        }
    };
    struct IdentityHash {
        std::size_t operator()(const Identity& identity) const {
            return std::hash<std::uint64_t>()(identity.number ^ (identity.device << 32U));
        }
    };

    struct Known {
        FolderPtr folder;
        bool isInside = false;
    };

    void letGo();
    /// The spot of a path right below a folder that a call before this one led to.
    bool spotInKnownFolder(const std::string& path, Spot& spot);
    FolderPtr objectOf(std::unique_ptr<RawFolder> raw, std::string_view name, bool isInside);
    std::string nameIn(const FolderPtr& parent, const std::string& part, NewFolders* made);

    RawDisk& disk_;
    std::string gameDirectory_;
    using Paths = std::unordered_map<std::string, FolderPtr, TextHash, std::equal_to<>>;

    Paths paths_;
    /// The two that were last looked up.
    std::array<const Paths::value_type*, 2> recent_{};
    std::unordered_map<Identity, Known, IdentityHash> folders_;
    std::chrono::steady_clock::time_point lastCall_;
};

} // namespace platform
