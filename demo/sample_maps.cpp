// Texts in the form that the game's own files have.
#include "sample_maps.h"

#include "packing/map_writer.h"

namespace sample {
namespace {

std::string line(const std::string& key, const std::string& value) {
    return "\t" + key + "=" + value + ";\r\n";
}

} // namespace

std::string mapText(const MapText& text) {
    return "[GlobalHeader]\r\n\t{\r\n" + line("missionname", text.name) +
           line("missiondescription", text.description) + line("planet", text.planet) +
           line("numplayers", text.players) + line("size", text.size) + line("memory", "16 mb") +
           line("tidalstrength", std::to_string(text.tide)) + line("solarstrength", "20") +
           line("minwindspeed", std::to_string(text.leastWind)) +
           line("maxwindspeed", std::to_string(text.mostWind)) +
           line("gravity", std::to_string(text.gravity)) + line("lavaworld", "0") +
           "\t[Schema 0]\r\n\t\t{\r\n\t\tType=Network 1;\r\n\t\t}\r\n\t}\r\n";
}

std::string unitText(const UnitText& text) {
    return "[UNITINFO]\r\n\t{\r\n" + line("UnitName", text.unitName) + line("Name", text.name) +
           line("Description", text.description) + line("Side", text.side) +
           line("BuildCostEnergy", std::to_string(text.energy)) +
           line("BuildCostMetal", std::to_string(text.metal)) + "\t}\r\n";
}

packing::PackedFiles mapFiles(const std::string& stem, const MapText& text, int width, int height,
                              unsigned seed, int sea) {
    constexpr int unitsAScreen = 32;
    const auto map = packing::drawMap(seed, width * unitsAScreen, height * unitsAScreen, sea);
    return {{"maps\\" + stem + ".ota", mapText(text)}, {"maps\\" + stem + ".tnt", mapFile(map)}};
}

packing::PackedFiles unitFiles(const UnitText& text, unsigned seed) {
    return {{"units\\" + text.unitName + ".fbi", unitText(text)},
            {"unitpics\\" + text.unitName + ".PCX",
             packing::pcxFile(packing::unitSide, packing::unitSide, packing::drawUnit(seed))}};
}

} // namespace sample
