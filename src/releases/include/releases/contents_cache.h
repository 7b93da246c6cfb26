// What was found in releases, kept in the data tree, so that it is read once.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "platform/disk.h"
#include "releases/contents.h"

namespace releases {

/// One file for each release, in a folder of the data tree that may be removed at any time.
/// Bounded: what was written first goes first. Nothing of it is ever told: what cannot be read or
/// is damaged is dropped, and what cannot be written is not kept. It belongs to one thread, with
/// its disk.
class ContentsCache {
  public:
    static constexpr std::string_view folderName = "VXL-Cache";
    static constexpr std::uint64_t mostBytes = std::uint64_t{64} << 20U;

    /// By the folder's absolute path, in the game directory; it is made when it is needed.
    ContentsCache(platform::Disk& disk, std::string folder, std::uint64_t most = mostBytes)
        : disk_(disk), folder_(std::move(folder)), most_(most) {}

    /// A key tells a release by the names, sizes and times of its files.
    std::optional<Contents> find(std::uint64_t key);
    /// Written whole or not at all.
    void keep(std::uint64_t key, const Contents& contents);

  private:
    struct Kept {
        std::uint64_t size;
        std::int64_t modified;
    };

    std::string pathOf(const std::string& name) const { return folder_ + "\\" + name; }
    void look();
    void drop(const std::string& name);
    void makeRoom();

    platform::Disk& disk_;
    std::string folder_;
    std::uint64_t most_;
    std::optional<std::map<std::string, Kept>>
        kept_; ///< by file name; nothing before the first look
    std::uint64_t all_ = 0;
};

/// The bytes of such a file, and back. Nothing where they are damaged, or of another key.
std::string cachedBytes(std::uint64_t key, const Contents& contents);
std::optional<Contents> readCached(std::uint64_t key, std::string_view bytes);

} // namespace releases
