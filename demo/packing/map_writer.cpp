// Landscapes are sums of smooth waves of chance; colours go by height, and light from the left.
#include "packing/map_writer.h"

#include <algorithm>
#include <cmath>

namespace packing {
namespace {

constexpr std::uint8_t filler = 0x64;
constexpr int pictureSide = 252;
/// Where the colours of the sea, the land and the rocks begin, each with its shades from dark to
/// light; the last ones are greys.
constexpr int seaColours = 16;
constexpr int landColours = 112;
constexpr int rockColours = 176;
constexpr int greyColours = 224;

void addWord(std::string& bytes, std::uint32_t value) {
    for (unsigned i = 0; i < 4; ++i)
        bytes += static_cast<char>(value >> (8 * i));
}

void addShort(std::string& bytes, int value) {
    bytes += static_cast<char>(value);
    bytes += static_cast<char>(value >> 8);
}

/// A number from 0 to 1 for a point of a grid.
double chance(unsigned seed, int x, int y) {
    auto bits = seed * 0x9E3779B1U + static_cast<unsigned>(x) * 0x85EBCA77U +
                static_cast<unsigned>(y) * 0xC2B2AE3DU;
    bits = (bits ^ (bits >> 15U)) * 0x2C1B3C6DU;
    bits = (bits ^ (bits >> 12U)) * 0x297A2D39U;
    return (bits ^ (bits >> 15U)) / 4294967296.0;
}

double smooth(unsigned seed, double x, double y) {
    const int left = static_cast<int>(std::floor(x));
    const int top = static_cast<int>(std::floor(y));
    const auto ease = [](double part) { return part * part * (3 - 2 * part); };
    const double across = ease(x - left);
    const double down = ease(y - top);
    const auto row = [&](int at) {
        return chance(seed, left, at) * (1 - across) + chance(seed, left + 1, at) * across;
    };
    return row(top) * (1 - down) + row(top + 1) * down;
}

int heightAt(unsigned seed, double x, double y) {
    double sum = 0;
    double weight = 0.55;
    for (const double wave : {24.0, 11.0, 5.0, 2.5}) {
        sum += weight * smooth(seed + static_cast<unsigned>(wave), x / wave, y / wave);
        weight *= 0.5;
    }
    return std::clamp(static_cast<int>(sum * 255), 0, 255);
}

std::uint8_t shadeOf(int first, int count, int shade) {
    return static_cast<std::uint8_t>(first + std::clamp(shade, 0, count - 1));
}

std::uint8_t colourOf(int height, int slope, int sea) {
    if (height < sea)
        return shadeOf(seaColours, landColours - seaColours, 90 - (sea - height) * 2);
    if (height > 170)
        return shadeOf(rockColours, greyColours - rockColours, height - 165 + slope * 2);
    return shadeOf(landColours, rockColours - landColours, (height - sea) / 3 + 10 + slope * 3);
}

/// The byte of a colour between two, for shade `at` of `count`.
std::uint8_t between(int dark, int light, int at, int count) {
    return static_cast<std::uint8_t>(dark + (light - dark) * at / std::max(1, count - 1));
}

} // namespace

std::array<std::uint8_t, 768> sampleColours() {
    struct Shades {
        int first, end;
        std::array<int, 3> dark, light;
    };
    constexpr Shades all[] = {{0, seaColours, {0, 0, 0}, {120, 16, 16}},
                              {seaColours, landColours, {6, 20, 56}, {96, 168, 208}},
                              {landColours, rockColours, {40, 64, 24}, {184, 184, 104}},
                              {rockColours, greyColours, {72, 60, 48}, {208, 196, 180}},
                              {greyColours, 256, {24, 26, 28}, {248, 248, 248}}};
    std::array<std::uint8_t, 768> colours{};
    for (const auto& shades : all)
        for (int at = shades.first; at < shades.end; ++at)
            for (std::size_t part = 0; part < 3; ++part)
                colours[static_cast<std::size_t>(at) * 3 + part] =
                    between(shades.dark[part], shades.light[part], at - shades.first,
                            shades.end - shades.first);
    return colours;
}

std::string paletteFile() {
    std::string bytes;
    const auto colours = sampleColours();
    for (std::size_t at = 0; at < colours.size(); at += 3) {
        for (std::size_t part = 0; part < 3; ++part)
            bytes += static_cast<char>(colours[at + part]);
        bytes += '\0';
    }
    return bytes;
}

SampleMap drawMap(unsigned seed, int width, int height, int sea) {
    SampleMap map{width, height, sea, {}, pictureSide, pictureSide, {}, 1};
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            map.heights.push_back(static_cast<std::uint8_t>(heightAt(seed, x, y)));
    const int longest = std::max(width, height);
    const int across = pictureSide * width / longest;
    const int down = pictureSide * height / longest;
    const double step = static_cast<double>(longest) / pictureSide;
    for (int y = 0; y < pictureSide; ++y)
        for (int x = 0; x < pictureSide; ++x) {
            const int here = heightAt(seed, x * step, y * step);
            const int leftOfIt = heightAt(seed, (x - 1) * step, y * step);
            map.picture.push_back(x < across && y < down ? colourOf(here, here - leftOfIt, sea)
                                                         : filler);
        }
    return map;
}

std::string mapFile(const SampleMap& map) {
    constexpr std::uint32_t headerSize = 64;
    constexpr std::uint32_t tileSize = 1024;
    const auto units =
        static_cast<std::uint32_t>(map.width) * static_cast<std::uint32_t>(map.height);
    const auto indices = headerSize;
    const auto heights = indices + units / 4 * 2;
    const auto tiles = heights + units * 4;
    const auto picture = tiles + static_cast<std::uint32_t>(map.tiles) * tileSize;
    std::string bytes;
    for (const std::uint32_t word :
         {0x2000U, static_cast<std::uint32_t>(map.width), static_cast<std::uint32_t>(map.height),
          indices, heights, tiles, static_cast<std::uint32_t>(map.tiles), 0U, 0U,
          static_cast<std::uint32_t>(map.sea), map.picture.empty() ? 0U : picture, 1U, 0U, 0U, 0U,
          0U})
        addWord(bytes, word);
    bytes.resize(heights);
    for (const auto height : map.heights) {
        bytes += static_cast<char>(height);
        bytes.append(3, '\xFF');
    }
    for (int tile = 0; tile < map.tiles; ++tile)
        for (std::uint32_t at = 0; at < tileSize; ++at)
            bytes += static_cast<char>(
                chance(static_cast<unsigned>(tile), static_cast<int>(at), 0) * 96);
    if (map.picture.empty())
        return bytes;
    addWord(bytes, static_cast<std::uint32_t>(map.pictureWidth));
    addWord(bytes, static_cast<std::uint32_t>(map.pictureHeight));
    return bytes.append(map.picture.begin(), map.picture.end());
}

PixelRows drawUnit(unsigned seed) {
    PixelRows pixels;
    const int bodyWidth = 16 + static_cast<int>(chance(seed, 1, 0) * 12);
    const int bodyLength = 26 + static_cast<int>(chance(seed, 2, 0) * 12);
    const int turret = 8 + static_cast<int>(chance(seed, 3, 0) * 7);
    const int paint = chance(seed, 4, 0) < 0.5 ? landColours : rockColours;
    for (int y = 0; y < unitSide; ++y)
        for (int x = 0; x < unitSide; ++x) {
            const int across = x - unitSide / 2;
            const int down = y - unitSide / 2;
            const int light = 24 - across / 2 - down / 4;
            if (across * across + down * down < turret * turret)
                pixels.push_back(shadeOf(paint, 48, light + 14));
            else if (std::abs(across) < 3 && down < 0 && down > -bodyLength - 6)
                pixels.push_back(shadeOf(greyColours, 32, 20 - across * 3));
            else if (std::abs(across) < bodyWidth && std::abs(down) < bodyLength)
                pixels.push_back(shadeOf(paint, 48, light));
            else if (std::abs(across) < bodyWidth + 7 && std::abs(down) < bodyLength + 3)
                pixels.push_back(
                    shadeOf(greyColours, 32, 4 + (y / 3 + static_cast<int>(seed)) % 2 * 5));
            else
                pixels.push_back(shadeOf(seaColours, 96, 20 + y / 4));
        }
    return pixels;
}

std::string pcxFile(int width, int height, const PixelRows& pixels) {
    const int rowLength = width + width % 2;
    const std::ptrdiff_t shown = width;
    std::string bytes = "\x0A\x05\x01\x08";
    for (const int each : {0, 0, width - 1, height - 1, 72, 72})
        addShort(bytes, each);
    bytes.resize(65);
    bytes += '\1';
    addShort(bytes, rowLength);
    addShort(bytes, 1);
    bytes.resize(128);
    for (int y = 0; y < height; ++y) {
        auto row = PixelRows(pixels.begin() + y * shown, pixels.begin() + (y + 1) * shown);
        row.resize(static_cast<std::size_t>(rowLength));
        for (auto at = row.begin(); at != row.end();) {
            const auto same = std::find_if(at, row.end(), [&](auto pixel) { return pixel != *at; });
            const auto length = std::min<std::ptrdiff_t>(same - at, 63);
            if (length > 1 || *at >= 0xC0)
                bytes += static_cast<char>(0xC0 + length);
            bytes += static_cast<char>(*at);
            at += length;
        }
    }
    bytes += '\x0C';
    const auto colours = sampleColours();
    return bytes.append(colours.begin(), colours.end());
}

} // namespace packing
