// Maps and pictures of our own making, in the game's formats: for tests, the sample game and
// benchmarks. What is drawn is the same at every run.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace packing {

using PixelRows = std::vector<std::uint8_t>;

/// 256 times red, green and blue.
std::array<std::uint8_t, 768> sampleColours();
/// The same as the game's archives hold them: `palettes\PALETTE.PAL`.
std::string paletteFile();

struct SampleMap {
    int width = 64; ///< in units of 16 pixels
    int height = 64;
    int sea = 70;
    PixelRows heights; ///< of the ground, width x height
    int pictureWidth = 252;
    int pictureHeight = 252;
    PixelRows picture; ///< empty for none
    int tiles = 1;     ///< pictures of 32 x 32 pixels, which nothing but the game looks at
};

/// A landscape with its small picture: the map in the upper left, 0x64 beside it.
SampleMap drawMap(unsigned seed, int width, int height, int sea);
/// As a `.tnt`.
std::string mapFile(const SampleMap& map);

/// A picture of a unit, 96 x 96.
PixelRows drawUnit(unsigned seed);
constexpr int unitSide = 96;
/// As a PCX file in the sample colours.
std::string pcxFile(int width, int height, const PixelRows& pixels);

} // namespace packing
