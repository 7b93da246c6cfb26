// PCX: rows of runs. A byte from 0xC0 on is the length of a run, and the one behind it the pixel.
#include "formats/picture.h"

#include <algorithm>
#include <string>

#include "platform/failure.h"

namespace formats {
namespace {

constexpr std::size_t headerSize = 128;
constexpr std::size_t coloursSize = 769; ///< a mark, and 256 times red, green, blue
constexpr std::uint8_t coloursMark = 0x0C;
constexpr std::uint8_t runMark = 0xC0;
constexpr std::uint8_t runLength = 0x3F;
constexpr std::size_t palSize = 1024; ///< 256 times red, green, blue and a byte without use

[[noreturn]] void refuse(const std::string& reason) {
    throw platform::Failure("read", "a picture", reason);
}

unsigned shortAt(Bytes bytes, std::size_t at) {
    return bytes[at] | static_cast<unsigned>(bytes[at + 1]) << 8U;
}

Colours coloursIn(Bytes bytes, std::size_t apart) {
    Colours colours;
    for (std::size_t i = 0; i < colours.size(); ++i)
        colours[i] = {bytes[i * apart], bytes[i * apart + 1], bytes[i * apart + 2]};
    return colours;
}

struct PcxHeader {
    std::size_t width;
    std::size_t height;
    std::size_t rowLength; ///< bytes of a row that are stored, some of them beyond its end
};

PcxHeader readHeader(Bytes bytes) {
    if (bytes.size() < headerSize + coloursSize || bytes[0] != 10)
        refuse("it is no PCX file, or its end is missing");
    const bool isOurKind = bytes[1] == 5 && bytes[2] == 1 && bytes[3] == 8 && bytes[65] == 1;
    if (!isOurKind)
        refuse("it is not of the kind that the game reads");
    const auto left = shortAt(bytes, 4);
    const auto top = shortAt(bytes, 6);
    const auto right = shortAt(bytes, 8);
    const auto bottom = shortAt(bytes, 10);
    if (right < left || bottom < top)
        refuse("its sizes are wrong");
    const PcxHeader header{right - left + 1, bottom - top + 1, shortAt(bytes, 66)};
    if (header.width > Picture::longestSide || header.height > Picture::longestSide)
        refuse("it is too large: " + std::to_string(header.width) + " x " +
               std::to_string(header.height));
    // Rows may be filled up to an even length.
    if (header.rowLength < header.width || header.rowLength > std::size_t{2} * Picture::longestSide)
        refuse("its rows are too short or too long");
    return header;
}

/// All rows one after the other: a run may go on into the next.
std::vector<std::uint8_t> unpackRuns(Bytes packed, std::size_t size) {
    std::vector<std::uint8_t> pixels;
    pixels.reserve(size);
    for (std::size_t at = 0; pixels.size() < size;) {
        if (at >= packed.size())
            refuse("its rows end too early");
        std::size_t length = 1;
        auto pixel = packed[at++];
        if (pixel >= runMark) {
            if (at >= packed.size())
                refuse("its rows end too early");
            length = pixel & runLength;
            pixel = packed[at++];
        }
        if (length > size - pixels.size())
            refuse("its last row runs over");
        pixels.insert(pixels.end(), length, pixel);
    }
    return pixels;
}

} // namespace

std::optional<Colours> readPalette(Bytes bytes) {
    return bytes.size() < palSize ? std::nullopt : std::optional(coloursIn(bytes, 4));
}

Picture readPcx(Bytes bytes) {
    const auto header = readHeader(bytes);
    const auto colours = bytes.last(coloursSize);
    if (colours[0] != coloursMark)
        refuse("its colours are missing");
    const auto rows = unpackRuns(bytes.first(bytes.size() - coloursSize).subspan(headerSize),
                                 header.rowLength * header.height);
    Picture picture{static_cast<int>(header.width),
                    static_cast<int>(header.height),
                    {},
                    coloursIn(colours.subspan(1), 3)};
    for (std::size_t y = 0; y < header.height; ++y) {
        const auto row = rows.begin() + static_cast<std::ptrdiff_t>(y * header.rowLength);
        picture.pixels.insert(picture.pixels.end(), row,
                              row + static_cast<std::ptrdiff_t>(header.width));
    }
    return picture;
}

} // namespace formats
