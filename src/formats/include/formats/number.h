// Numbers as the game's text files have them.
#pragma once

#include <string_view>

namespace formats {

/// The number at the start of a text: blanks and tabs, a sign, digits, an optional decimal part.
/// Rounded to a whole number, halves to the even neighbour. 0 where there is none.
struct Number {
    /// The number itself, or the nearest one that fits, for a number of any length.
    long value = 0;
    /// What is left of it by 42, from 0 to 41, exact for a number of any length.
    int modulo42 = 0;
};

Number numberAtStart(std::string_view text);

} // namespace formats
