// The LZ77 compression of the game's archives.
#pragma once

#include <cstdint>
#include <span>

namespace formats {

/// Fills `to`, which has the length that is to come, from a chunk's data. Nothing outside the two
/// is touched, whatever the data say. False if the data ends early, gives another length than `to`
/// has, or does not end where it should.
bool unpackLz77(std::span<const std::uint8_t> from, std::span<std::uint8_t> to);

} // namespace formats
