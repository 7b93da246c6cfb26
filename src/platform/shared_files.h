// Files of several names whose names are moved to another disk one by one.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <utility>

#include "platform/raw_disk.h"

namespace platform {

class SharedFiles {
  public:
    /// The path of the copy that another name of the same file got, if nobody has changed the file
    /// since.
    std::optional<std::string> copyOf(const RawEntry& file) const {
        const auto found = copies_.find(keyOf(file));
        if (found == copies_.end() || found->second.size != file.size ||
            found->second.modified != file.modified || found->second.namesLeft != file.names)
            return std::nullopt;
        return found->second.path;
    }

    /// One of the names, as it was ahead of its move, lies at `path` now. With the last name the
    /// file's number may be another's.
    void noteMoved(const RawEntry& file, const std::string& path) {
        if (file.kind != RawKind::file || file.names < 2) {
            copies_.erase(keyOf(file));
            return;
        }
        if (copies_.size() >= mostKnown)
            copies_.clear();
        copies_[keyOf(file)] = {path, file.names - 1, file.size, file.modified};
    }

  private:
    struct Copy {
        std::string path;
        std::uint64_t namesLeft = 0;
        std::uint64_t size = 0;
        FileTime modified = 0;
    };
    using Key = std::pair<std::uint64_t, std::uint64_t>;

    static constexpr std::size_t mostKnown = 100'000;

    static Key keyOf(const RawEntry& file) { return {file.identity.device, file.identity.number}; }

    std::map<Key, Copy> copies_;
};

} // namespace platform
