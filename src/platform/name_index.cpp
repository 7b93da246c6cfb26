// Names are kept once, as they are: only those whose folded forms hash alike are compared.
#include "name_index.h"

#include "platform/text.h"

namespace platform {

template <typename Take>
void NameIndex::eachAlike(std::string_view name, Take&& take) const {
    byName_.each(hashIgnoringCase(name), [&](Slot slot) {
        if (equalIgnoringCase(names_[slot], name))
            take(slot);
    });
}

void NameIndex::assign(const std::vector<RawName>& names) {
    names_.clear();
    freeSlots_.clear();
    byName_.clear();
    names_.reserve(names.size());
    byName_.reserve(names.size());
    for (const auto& entry : names)
        add(entry.name);
}

void NameIndex::add(std::string_view name) {
    auto slot = static_cast<Slot>(names_.size());
    if (freeSlots_.empty()) {
        names_.emplace_back(name);
    } else {
        slot = freeSlots_.back();
        freeSlots_.pop_back();
        names_[slot] = name;
    }
    byName_.add(slot, hashIgnoringCase(name));
}

void NameIndex::remove(std::string_view name) {
    auto exact = HashChains::none;
    auto other = HashChains::none;
    int others = 0;
    eachAlike(name, [&](Slot slot) {
        if (names_[slot] == name) {
            exact = slot;
        } else {
            other = slot;
            ++others;
        }
    });
    const auto gone = exact != HashChains::none ? exact : others == 1 ? other : HashChains::none;
    if (gone == HashChains::none)
        return;
    byName_.remove(gone);
    freeSlots_.push_back(gone);
}

std::optional<std::string> NameIndex::find(std::string_view name) const {
    const std::string* first = nullptr;
    eachAlike(name, [&](Slot slot) {
        if (first == nullptr || names_[slot] < *first)
            first = &names_[slot];
    });
    if (first == nullptr)
        return std::nullopt;
    return *first;
}

} // namespace platform
