// The window of 4096 bytes is the tail of the output itself: it is written from index 1 on, so the
// byte at output place p stands at window index (p + 1) modulo 4096. What was never written is 0.
#include "platform/lz77.h"

#include <algorithm>
#include <cstring>

namespace platform {
namespace {

constexpr std::size_t windowSize = 4096;

/// Copies from the window, byte for byte where the source overlaps what is being written.
void copyFromWindow(std::span<std::uint8_t> to, std::size_t at, std::size_t offset,
                    std::size_t length) {
    std::size_t distance = (at + 1 - offset) % windowSize;
    if (distance == 0)
        distance = windowSize;
    std::uint8_t* target = to.data() + at;
    while (length > 0 && distance > at) {
        *target++ = 0;
        ++at;
        --length;
    }
    const std::uint8_t* source = target - distance;
    if (distance >= length) {
        std::memcpy(target, source, length);
        return;
    }
    for (std::size_t i = 0; i < length; ++i)
        target[i] = source[i];
}

} // namespace

bool unpackLz77(std::span<const std::uint8_t> from, std::span<std::uint8_t> to) {
    std::size_t in = 0;
    std::size_t out = 0;
    while (in < from.size()) {
        unsigned tag = from[in++];
        for (int bit = 0; bit < 8; ++bit, tag >>= 1U) {
            if ((tag & 1U) == 0) {
                if (in >= from.size() || out >= to.size())
                    return false;
                to[out++] = from[in++];
                continue;
            }
            if (from.size() - in < 2)
                return false;
            const unsigned word = from[in] | static_cast<unsigned>(from[in + 1]) << 8U;
            in += 2;
            const std::size_t offset = word >> 4U;
            const std::size_t length = (word & 15U) + 2;
            if (offset == 0)
                return out == to.size();
            if (length > to.size() - out)
                return false;
            copyFromWindow(to, out, offset, length);
            out += length;
        }
    }
    return false;
}

} // namespace platform
