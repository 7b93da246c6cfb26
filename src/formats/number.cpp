// The digits are taken one by one, so a number may be longer than any type.
#include "formats/number.h"

#include <algorithm>

namespace formats {
namespace {

constexpr std::int64_t largest = 1'000'000'000'000;
constexpr int modulus = 42; // divided by 2, 6 and 7

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

/// How the part behind the decimal point rounds the whole part.
bool roundsUp(std::string_view decimals, bool wholeIsOdd) {
    decimals =
        decimals.substr(0, std::min(decimals.find_first_not_of("0123456789"), decimals.size()));
    if (decimals.empty() || decimals[0] != '5')
        return !decimals.empty() && decimals[0] > '5';
    return wholeIsOdd || decimals.find_first_not_of('0', 1) != std::string_view::npos;
}

} // namespace

Number numberAtStart(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
    const bool negative = text.starts_with('-');
    if (negative || text.starts_with('+'))
        text.remove_prefix(1);
    Number number;
    while (!text.empty() && isDigit(text[0])) {
        const int digit = text[0] - '0';
        number.value = std::min(number.value * 10 + digit, largest);
        number.modulo42 = (number.modulo42 * 10 + digit) % modulus;
        text.remove_prefix(1);
    }
    if (text.starts_with('.') && roundsUp(text.substr(1), number.modulo42 % 2 == 1)) {
        number.value = std::min(number.value + 1, largest);
        number.modulo42 = (number.modulo42 + 1) % modulus;
    }
    if (negative) {
        number.value = -number.value;
        number.modulo42 = (modulus - number.modulo42) % modulus;
    }
    return number;
}

} // namespace formats
