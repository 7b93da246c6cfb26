// The game's settings files: keys with values in sections that nest.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace formats {

/// Where a value stands: the section that it lies in, as it is written, and in how many sections
/// that one lies, from 0. A value outside of all sections has the depth -1.
struct TdfPlace {
    std::string_view section;
    int depth = -1;
};

/// What is told of a settings file, in its order. The texts live for the call alone.
struct TdfVisitor {
    std::function<void(const TdfPlace& section)> onSection = {};
    std::function<void(const TdfPlace& place, std::string_view key, std::string_view value)>
        onValue = {};
};

/// Goes through a settings file. Comments are passed over, and blanks around names, keys and values
/// are taken off. A statement ends at a semicolon, a brace or the line's end: people write several
/// in one line. What is neither a section nor a value is passed over: nothing fails.
void readTdf(std::string_view text, const TdfVisitor& visitor);

/// A value for people: control characters become blanks, and what is longer than any honest text is
/// cut off, between two letters.
std::string shownValue(std::string_view value, std::size_t mostBytes);

/// The number at the start of a value; nothing where there is none.
std::optional<std::int64_t> numberIn(std::string_view value);

} // namespace formats
