// The checksum by which the program tells files apart.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace formats {

/// CRC-32. With the checksum of what stands before, that of both together.
std::uint32_t checksumOf(std::string_view bytes, std::uint32_t before = 0);

/// Eight hexadecimal digits, and back; nothing for any other text.
std::string checksumText(std::uint32_t checksum);
std::optional<std::uint32_t> readChecksum(std::string_view digits);

} // namespace formats
