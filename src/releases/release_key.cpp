// Every part has a length of its own, so that no two lists of parts are the same bytes.
#include "release_key.h"

namespace releases {

void ReleaseKey::add(std::string_view path, const platform::EntryFacts& facts) {
    addNumber(path.size());
    for (const char c : path)
        addByte(static_cast<std::uint8_t>(c));
    addNumber(facts.size);
    addNumber(static_cast<std::uint64_t>(facts.modified));
}

void ReleaseKey::add(const std::optional<formats::Colours>& colours) {
    addByte(colours ? 1 : 0);
    if (colours)
        for (const auto& colour : *colours)
            for (const auto part : {colour.red, colour.green, colour.blue})
                addByte(part);
}

void ReleaseKey::addByte(std::uint8_t byte) {
    value_ = (value_ ^ byte) * 0x100000001B3;
}

void ReleaseKey::addNumber(std::uint64_t number) {
    for (unsigned shift = 0; shift < 64; shift += 8)
        addByte(static_cast<std::uint8_t>(number >> shift));
}

} // namespace releases
