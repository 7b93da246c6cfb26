// Finds the slots of a table by a hash of what they hold, where a map's node for each slot would
// cost more than the rest of the work.
#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace platform {

/// Slots of one hash hang together in a chain. The table compares what the slots hold: a hash found
/// is no match yet.
class HashChains {
  public:
    using Slot = std::uint32_t;
    static constexpr Slot none = ~Slot{0};

    /// Makes room at once for that many slots.
    void reserve(std::size_t slots) {
        links_.reserve(slots);
        if (slots > heads_.size())
            growHeads(slots);
    }

    /// A slot that hangs in no chain; new slots come one by one.
    void add(Slot slot, std::size_t hash) {
        if (slot >= links_.size())
            links_.resize(std::size_t{slot} + 1);
        if (links_.size() > heads_.size())
            growHeads(links_.size());
        links_[slot] = {hash, std::exchange(headOf(hash), slot), true};
    }

    /// A slot that hangs in a chain.
    void remove(Slot slot) {
        auto* at = &headOf(links_[slot].hash);
        while (*at != slot)
            at = &links_[*at].next;
        *at = links_[slot].next;
        links_[slot].isIn = false;
    }

    void clear() {
        links_.clear();
        heads_.clear();
    }

    /// Gives each slot of that hash to `take`.
    template <typename Take>
    void each(std::size_t hash, Take&& take) const {
        if (heads_.empty())
            return;
        for (auto slot = heads_[hash & (heads_.size() - 1)]; slot != none; slot = links_[slot].next)
            if (links_[slot].hash == hash)
                take(slot);
    }

  private:
    struct Link {
        std::size_t hash = 0;
        Slot next = none;
        bool isIn = false;
    };

    Slot& headOf(std::size_t hash) { return heads_[hash & (heads_.size() - 1)]; }

    /// To a power of two.
    void growHeads(std::size_t slots) {
        std::size_t size = 64;
        while (size < slots)
            size *= 2;
        heads_.assign(size, none);
        for (Slot slot = 0; slot < links_.size(); ++slot)
            if (links_[slot].isIn)
                links_[slot].next = std::exchange(headOf(links_[slot].hash), slot);
    }

    std::vector<Link> links_;
    std::vector<Slot> heads_;
};

} // namespace platform
