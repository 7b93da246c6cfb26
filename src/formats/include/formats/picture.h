// Small pictures as the game has them: a colour's number for each pixel.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

#include "formats/archive.h"

namespace formats {

struct Colour {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;
    bool operator==(const Colour&) const = default;
};

using Colours = std::array<Colour, 256>;

/// The sides are in pixels, and neither is longer than `longestSide`.
struct Picture {
    static constexpr std::uint32_t longestSide = 512;

    int width = 0;
    int height = 0;
    std::vector<std::uint8_t> pixels; ///< width x height, rows from the top
    Colours colours{};

    const Colour& at(int x, int y) const {
        return colours[pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
                              static_cast<std::size_t>(x)]];
    }
    bool operator==(const Picture&) const = default;
};

/// The game's colours, out of `palettes\PALETTE.PAL`; nothing where there are not enough of them.
std::optional<Colours> readPalette(Bytes bytes);

/// A PCX file of the kind that pictures of units are. Throws Failure where it is another kind, too
/// large, or damaged.
Picture readPcx(Bytes bytes);

} // namespace formats
