// The names in one folder, found in any case.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/hash_chains.h"
#include "platform/raw_disk.h"

namespace platform {

class NameIndex {
  public:
    void assign(const std::vector<RawName>& names);
    /// A name that is not there yet.
    void add(std::string_view name);
    /// Forgets that spelling, or the only other one.
    void remove(std::string_view name);

    bool isEmpty() const { return names_.size() == freeSlots_.size(); }

    /// Of several spellings the first by bytes, so that it does not depend on the disk's order.
    std::optional<std::string> find(std::string_view name) const;

  private:
    using Slot = HashChains::Slot;

    /// The slots whose names are equal whatever their case.
    template <typename Take>
    void eachAlike(std::string_view name, Take&& take) const;

    std::vector<std::string> names_;
    std::vector<Slot> freeSlots_;
    HashChains byName_;
};

} // namespace platform
