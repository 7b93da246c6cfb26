// The size of a map and how it looks, out of its `.tnt`.
#pragma once

#include <cstdint>
#include <optional>

#include "formats/file_bytes.h"
#include "formats/map_info.h"
#include "formats/picture.h"

namespace formats {

/// The beginning of a `.tnt`. Offsets are in bytes from its start; nothing says yet that they lie
/// in it.
struct MapHeader {
    std::uint32_t width; ///< in units of 16 pixels
    std::uint32_t height;
    std::uint32_t heights; ///< where those of the ground are told, 4 bytes for each unit
    std::uint32_t sea;     ///< how high it stands
    std::uint32_t picture; ///< where the small picture begins

    MapSize size() const { return {static_cast<int>(width / 32), static_cast<int>(height / 32)}; }
};

/// Throws Failure for a file of another game, a size that no map has, and one that the file has no
/// room for.
MapHeader readMapHeader(FileBytes& file);

/// The small picture in the game's colours, without what fills it up beside the map. Where the
/// colours are not known, or the file has no picture, one is drawn from the heights of the ground:
/// shaded, and blue below the sea. Throws Failure where what the header promises lies outside the
/// file. Reads a few places of the file only.
Picture readMapPicture(FileBytes& file, const MapHeader& header,
                       const std::optional<Colours>& colours);

} // namespace formats
