// Numbers as the game's text files have them.
#pragma once

#include <cstdint>
#include <string_view>

namespace formats {

/// A number of any length. One value is near it, the other exact.
struct Number {
    /// The number itself, or 10^12 from 0 on its side where it is farther away.
    std::int64_t value = 0;
    /// What is left of it by 42, from 0 to 41, exact for a number of any length.
    int modulo42 = 0;
};

/// The number at the start of a text: blanks and tabs, a sign, digits, an optional decimal part.
/// Rounded to a whole number, halves to the even neighbour. 0 where there is none; what follows it
/// is not looked at.
Number numberAtStart(std::string_view text);

} // namespace formats
