// Names hash and compare by their folded form, without that form being made for plain ASCII.
#include "name_index.h"

#include <algorithm>
#include <cstdint>

#include "platform/text.h"

namespace platform {
namespace {

/// FNV-1a over lower case.
std::size_t hashOfAscii(std::string_view name) {
    std::uint64_t hash = 0xCBF29CE484222325U;
    for (const char c : name) {
        const auto byte = static_cast<unsigned char>(c >= 'A' && c <= 'Z' ? c + 32 : c);
        hash = (hash ^ byte) * 0x100000001B3U;
    }
    return static_cast<std::size_t>(hash);
}

} // namespace

std::size_t NameIndex::Hash::operator()(std::string_view name) const {
    const bool isAscii = std::all_of(name.begin(), name.end(),
                                     [](char c) { return static_cast<unsigned char>(c) < 0x80; });
    // Some letters fold to plain ASCII, so both ways must hash alike.
    return isAscii ? hashOfAscii(name) : hashOfAscii(foldCase(name));
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
