// The window of 4096 bytes is the tail of the output itself: it is written from index 1 on, so the
// byte at output place p stands at window index (p + 1) modulo 4096. What was never written is 0.
#include "formats/lz77.h"

#include <algorithm>
#include <cstring>

namespace formats {
namespace {

constexpr std::size_t windowSize = 4096;

/// Room at its target that a copy in whole words needs; the longest one has 17 bytes.
constexpr std::size_t wordsOfCopy = 24;

/// Copies from the window, byte for byte where the source overlaps what is being written.
void copyFromWindow(std::span<std::uint8_t> to, std::size_t at, std::size_t offset,
                    std::size_t length) {
    const std::size_t distance = (at - offset) % windowSize + 1;
    std::uint8_t* target = to.data() + at;
    if (distance >= 8 && distance <= at && to.size() - at >= wordsOfCopy) {
        // What is written beyond the length is written over by what comes next.
        const std::uint8_t* source = target - distance;
        std::memcpy(target, source, 8);
        if (length > 8) {
            std::memcpy(target + 8, source + 8, 8);
            std::memcpy(target + 16, source + 16, 8);
        }
        return;
    }
    for (; length > 0 && distance > at; ++at, --length)
        *target++ = 0;
    const std::uint8_t* source = target - distance;
    for (std::size_t i = 0; i < length; ++i)
        target[i] = source[i];
}

} // namespace

bool unpackLz77(std::span<const std::uint8_t> from, std::span<std::uint8_t> to) {
    std::size_t in = 0;
    std::size_t out = 0;
    while (in < from.size()) {
        unsigned tag = from[in++];
        if (tag == 0 && from.size() - in >= 8 && to.size() - out >= 8) {
            std::memcpy(to.data() + out, from.data() + in, 8);
            in += 8;
            out += 8;
            continue;
        }
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

} // namespace formats
