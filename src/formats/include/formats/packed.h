// The program's own way to keep bytes small.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace formats {

/// As a zlib stream.
std::string packed(std::string_view bytes);

/// The bytes again, of which the length must be known; nothing for a stream that is damaged or
/// holds another number of bytes.
std::optional<std::string> unpacked(std::string_view stream, std::size_t length);

} // namespace formats
