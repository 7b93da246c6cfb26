// The names in one folder, found in any case.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "platform/raw_disk.h"

namespace platform {

class NameIndex {
  public:
    void assign(const std::vector<RawName>& names);
    /// A name that is not there yet.
    void add(std::string_view name);
    /// Forgets that spelling, or the only other one.
    void remove(std::string_view name);

    bool isEmpty() const { return names_.empty(); }

    /// Of several spellings the first by bytes, so that it does not depend on the disk's order.
    std::optional<std::string> find(std::string_view name) const;

  private:
    /// Names are kept once, as they are: folding again costs less than a second string each.
    struct Hash {
        using is_transparent = void;
        std::size_t operator()(std::string_view name) const;
    };
    struct Equal {
        using is_transparent = void;
        bool operator()(std::string_view a, std::string_view b) const;
    };

    std::unordered_multiset<std::string, Hash, Equal> names_;
};

} // namespace platform
