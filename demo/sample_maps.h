// The maps and units of the sample game directory.
#pragma once

#include <string>

#include "packing/archive_writer.h"

namespace sample {

/// A `.ota`. The size is in screens, and players as the file has them.
struct MapText {
    std::string name;
    std::string description;
    std::string planet;
    std::string players;
    std::string size;
    int tide = 0;
    int leastWind = 0;
    int mostWind = 0;
    int gravity = 112;
};
std::string mapText(const MapText& text);

/// A `.fbi`.
struct UnitText {
    std::string unitName;
    std::string name;
    std::string description;
    std::string side;
    int energy = 0;
    int metal = 0;
};
std::string unitText(const UnitText& text);

/// The files of a map of so many screens, `maps\STEM.ota` and `maps\STEM.tnt`, drawn by chance.
packing::PackedFiles mapFiles(const std::string& stem, const MapText& text, int width, int height,
                              unsigned seed, int sea);
/// The files of a unit, `units\NAME.fbi` and its picture.
packing::PackedFiles unitFiles(const UnitText& text, unsigned seed);

} // namespace sample
