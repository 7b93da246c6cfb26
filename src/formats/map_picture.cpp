// What is read is bounded by the sizes of pictures, whatever size a map claims to have.
#include "formats/map_picture.h"

#include <algorithm>
#include <string>

#include "platform/failure.h"

namespace formats {
namespace {

constexpr std::uint32_t ourGame = 0x2000;
constexpr std::uint64_t headerSize = 64;
constexpr std::uint64_t bytesAHeight = 4;
/// Four times what the game plays.
constexpr std::uint32_t longestSide = 8192;
/// Of a picture that is drawn from the heights, in pixels.
constexpr std::uint32_t drawnSide = 252;
/// Numbers of colours in such a picture: half of them under water.
constexpr int shades = 128;

[[noreturn]] void refuse(const std::string& reason) {
    throw platform::Failure("read", "a map", reason);
}

std::string sides(std::uint32_t width, std::uint32_t height) {
    return std::to_string(width) + " x " + std::to_string(height);
}

/// Takes away the rows at the end that hold nothing but `filler`, down to `least`.
void cutRows(Picture& picture, int least, std::uint8_t filler) {
    const auto width = static_cast<std::ptrdiff_t>(picture.width);
    auto& pixels = picture.pixels;
    while (picture.height > least &&
           std::all_of(pixels.end() - width, pixels.end(),
                       [filler](std::uint8_t pixel) { return pixel == filler; })) {
        pixels.resize(pixels.size() - static_cast<std::size_t>(width));
        --picture.height;
    }
}

void cutColumns(Picture& picture, int least, std::uint8_t filler) {
    const auto width = static_cast<std::size_t>(picture.width);
    auto& pixels = picture.pixels;
    const auto isFiller = [&](std::size_t x) {
        for (std::size_t at = x; at < pixels.size(); at += width)
            if (pixels[at] != filler)
                return false;
        return true;
    };
    auto left = width;
    while (left > static_cast<std::size_t>(least) && isFiller(left - 1))
        --left;
    std::vector<std::uint8_t> kept;
    kept.reserve(left * static_cast<std::size_t>(picture.height));
    for (auto row = pixels.begin(); row != pixels.end(); row += static_cast<std::ptrdiff_t>(width))
        kept.insert(kept.end(), row, row + static_cast<std::ptrdiff_t>(left));
    picture.width = static_cast<int>(left);
    pixels = std::move(kept);
}

/// How much of a side the map takes that has the other one's proportion to it.
int shareOf(int side, std::uint32_t part, std::uint32_t whole) {
    const auto share = (static_cast<std::uint64_t>(side) * part + whole / 2) / whole;
    return std::max(1, static_cast<int>(std::min(share, static_cast<std::uint64_t>(side))));
}

/// The map lies in the upper left.
void cutFiller(Picture& picture, const MapHeader& header) {
    const auto filler = picture.pixels.back();
    if (header.height < header.width)
        cutRows(picture, shareOf(picture.height, header.height, header.width), filler);
    else if (header.width < header.height)
        cutColumns(picture, shareOf(picture.width, header.width, header.height), filler);
}

Picture smallPicture(FileBytes& file, const MapHeader& header, const Colours& colours) {
    const auto width = file.wordAt(header.picture);
    const auto height = file.wordAt(header.picture + std::uint64_t{4});
    if (width == 0 || height == 0 || width > Picture::longestSide || height > Picture::longestSide)
        refuse("its small picture is said to be " + sides(width, height));
    Picture picture{static_cast<int>(width), static_cast<int>(height), {}, colours};
    const auto start = header.picture + std::uint64_t{8};
    if (start + std::uint64_t{width} * height > file.size())
        refuse("its small picture lies outside the file");
    picture.pixels.resize(std::size_t{width} * height);
    file.read(start, picture.pixels);
    cutFiller(picture, header);
    return picture;
}

Colour mixed(Colour low, Colour high, int part) {
    const auto mix = [part](std::uint8_t from, std::uint8_t to) {
        return static_cast<std::uint8_t>(from + (to - from) * part / (shades - 1));
    };
    return {mix(low.red, high.red), mix(low.green, high.green), mix(low.blue, high.blue)};
}

Colours coloursOfHeights() {
    Colours colours;
    for (int i = 0; i < shades; ++i) {
        const auto at = static_cast<std::size_t>(i);
        colours[at] = mixed({8, 24, 72}, {72, 136, 200}, i);
        colours[shades + at] = mixed({32, 40, 24}, {216, 208, 168}, i);
    }
    return colours;
}

/// Light comes from the left.
std::uint8_t shadeOf(int height, int leftOfIt, int sea) {
    if (height < sea)
        return static_cast<std::uint8_t>(std::clamp(shades - 1 - (sea - height), 0, shades - 1));
    constexpr int steepness = 4;
    const int shade = 24 + height / 3 + (height - leftOfIt) * steepness;
    return static_cast<std::uint8_t>(shades + std::clamp(shade, 0, shades - 1));
}

Picture drawHeights(FileBytes& file, const MapHeader& header) {
    const auto longest = std::max(header.width, header.height);
    const auto side = [&](std::uint32_t units) {
        return longest <= drawnSide ? units : std::max(1U, units * drawnSide / longest);
    };
    const auto width = side(header.width);
    const auto height = side(header.height);
    const auto sea = static_cast<int>(std::min(header.sea, 256U));
    Picture picture{static_cast<int>(width), static_cast<int>(height), {}, coloursOfHeights()};
    std::vector<std::uint8_t> row(header.width * bytesAHeight);
    for (std::uint32_t y = 0; y < height; ++y) {
        const std::uint64_t from = std::uint64_t{y} * header.height / height;
        file.read(header.heights + from * row.size(), row);
        const auto at = [&](std::uint32_t x) {
            return static_cast<int>(row[std::uint64_t{x} * header.width / width * bytesAHeight]);
        };
        for (std::uint32_t x = 0; x < width; ++x)
            picture.pixels.push_back(shadeOf(at(x), at(x > 0 ? x - 1 : 0), sea));
    }
    return picture;
}

} // namespace

MapHeader readMapHeader(FileBytes& file) {
    if (file.size() < headerSize)
        refuse("it ends too early");
    if (file.wordAt(0) != ourGame)
        refuse("it is a map of another game");
    const MapHeader header{file.wordAt(0x04), file.wordAt(0x08), file.wordAt(0x10),
                           file.wordAt(0x24), file.wordAt(0x28)};
    const auto isSide = [](std::uint32_t side) { return side > 0 && side <= longestSide; };
    if (!isSide(header.width) || !isSide(header.height))
        refuse("its size is said to be " + sides(header.width / 32, header.height / 32));
    const auto heights = std::uint64_t{header.width} * header.height * bytesAHeight;
    if (header.heights > file.size() || heights > file.size() - header.heights)
        refuse("it has no room for a size of " + sides(header.width / 32, header.height / 32));
    return header;
}

Picture readMapPicture(FileBytes& file, const MapHeader& header,
                       const std::optional<Colours>& colours) {
    return colours && header.picture != 0 ? smallPicture(file, header, *colours)
                                          : drawHeights(file, header);
}

} // namespace formats
