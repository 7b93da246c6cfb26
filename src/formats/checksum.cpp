// Digits are written in lower case and read in either.
#include "formats/checksum.h"

#include <charconv>

#include <libdeflate.h>

namespace formats {
namespace {

constexpr int hexadecimal = 16;
constexpr std::size_t digitCount = 8;

} // namespace

std::uint32_t checksumOf(std::string_view bytes, std::uint32_t before) {
    // Without bytes it would begin anew.
    return bytes.empty() ? before : libdeflate_crc32(before, bytes.data(), bytes.size());
}

std::string checksumText(std::uint32_t checksum) {
    std::string digits(digitCount, '0');
    for (auto digit = digits.rbegin(); digit != digits.rend(); ++digit, checksum /= hexadecimal)
        *digit = "0123456789abcdef"[checksum % hexadecimal];
    return digits;
}

std::optional<std::uint32_t> readChecksum(std::string_view digits) {
    std::uint32_t checksum = 0;
    const auto* end = digits.data() + digits.size();
    const auto result = std::from_chars(digits.data(), end, checksum, hexadecimal);
    if (digits.size() != digitCount || result.ec != std::errc() || result.ptr != end)
        return std::nullopt;
    return checksum;
}

} // namespace formats
