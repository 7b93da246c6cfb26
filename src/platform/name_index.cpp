// Names hash and compare by their folded form, without that form being made for plain ASCII.
#include "name_index.h"

#include <algorithm>

#include "platform/text.h"

namespace platform {
std::size_t NameIndex::Hash::operator()(std::string_view name) const {
    return hashIgnoringCase(name);
}

bool NameIndex::Equal::operator()(std::string_view a, std::string_view b) const {
    return equalIgnoringCase(a, b);
}

void NameIndex::assign(const std::vector<RawName>& names) {
    names_.clear();
    names_.reserve(names.size());
    for (const auto& entry : names)
        names_.insert(entry.name);
}

void NameIndex::add(std::string_view name) {
    names_.emplace(name);
}

void NameIndex::remove(std::string_view name) {
    const auto [first, last] = names_.equal_range(name);
    const auto exact = std::find(first, last, name);
    if (exact != last)
        names_.erase(exact);
    else if (first != last && std::next(first) == last)
        names_.erase(first);
}

std::optional<std::string> NameIndex::find(std::string_view name) const {
    const auto [first, last] = names_.equal_range(name);
    if (first == last)
        return std::nullopt;
    return *std::min_element(first, last);
}

} // namespace platform
