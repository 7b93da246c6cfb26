// sample-archives GAMEDIR: what is made by a program in the sample game directory: archives with
// build menus and weapons, maps and units with their pictures, and the colours of these.
#include <algorithm>
#include <filesystem>
#include <fstream>

#include "packing/archive_writer.h"
#include "packing/map_writer.h"
#include "sample_maps.h"

namespace {

std::string button(const std::string& unit) {
    return "[GADGET1]\r\n\t{\r\n\t[COMMON]\r\n\t\t{\r\n\t\tid=1;\r\n\t\tname=" + unit +
           ";\r\n\t\twidth=64;\r\n\t\theight=64;\r\n\t\t}\r\n\t}\r\n";
}

std::string menuEntry(const std::string& builder, int menu, int place, const std::string& unit) {
    return "[MENUENTRY1]\r\n\t{\r\n\tUNITMENU=" + builder + ";\r\n\tMENU=" + std::to_string(menu) +
           ";\r\n\tBUTTON=" + std::to_string(place) + ";\r\n\tUNITNAME=" + unit + ";\r\n\t}\r\n";
}

std::string weapon(const std::string& name, int id) {
    return "[" + name + "]\r\n\t{\r\n\tID=" + std::to_string(id) + ";\r\n\t}\r\n";
}

class Game {
  public:
    explicit Game(std::filesystem::path folder) : folder_(std::move(folder)) {}

    void put(const std::string& path, const std::string& content) const {
        std::filesystem::create_directories((folder_ / path).parent_path());
        std::ofstream(folder_ / path, std::ios::binary) << content;
    }
    void pack(const std::string& path, const packing::PackedFiles& files,
              const packing::PackOptions& options = {}) const {
        put(path, packing::packArchive(files, options));
    }
    /// Each file by itself, in a release's folder.
    void putLoose(const std::string& release, const packing::PackedFiles& files) const {
        for (const auto& [path, content] : files) {
            auto below = path;
            std::ranges::replace(below, '\\', '/');
            put("Vexillum/" + release + "/" + below, content);
        }
    }

  private:
    std::filesystem::path folder_;
};

packing::PackedFiles operator+(packing::PackedFiles files, const packing::PackedFiles& more) {
    files.insert(files.end(), more.begin(), more.end());
    return files;
}

void packMenus(const Game& game) {
    game.pack("totala1.hpi",
              {{"guis\\SHIPYRD1.GUI", button("SKIFF") + button("CUTTER") + button("IGPATCH")},
               {"guis\\SHIPYRD2.GUI", button("FRIGATE")},
               {"guis\\KBOTLAB1.GUI", button("PEEWIT") + button("ROCKER")},
               {"palettes\\PALETTE.PAL", packing::paletteFile()},
               {"weapons\\naval.tdf", weapon("DECK_GUN", 20) + weapon("TORPEDO", 21)},
               {"weapons\\land.tdf", weapon("POPGUN", 30)}},
              {packing::Packing::zlib, false, 0x7D});
    game.pack("Vexillum/Mod-Warpgate/warpgate.ufo",
              packing::PackedFiles{
                  {"download\\gate.tdf", menuEntry("KBOTLAB", 4, 2, "GATE")},
                  {"weapons\\gate.tdf", weapon("GATE_BEAM", 21) + weapon("GATE_PULSE", 30)}} +
                  sample::unitFiles(
                      {"GATE", "Warpgate", "Brings units from elsewhere", "ARM", 9400, 1260}, 7),
              {packing::Packing::lz77, true, 0});
}

void putMaps(const Game& game) {
    game.putLoose("Map-Great Divide",
                  sample::mapFiles("divide",
                                   {"Great Divide", "Two plateaus and one bridge between them.",
                                    "Green", "2, 4", "12 x 12", 12, 500, 3000, 112},
                                   12, 12, 11, 84));
    game.putLoose(
        "Map-Great Divide",
        {{"maps\\coast.ota", sample::mapText({"Coast", "A new version of the game's own map.",
                                              "Sand", "2", "8 x 8", 24, 0, 1000, 100})}});
    game.putLoose(
        "Map-Twin Lakes",
        {{"Maps\\lakes.ota", sample::mapText({"Twin Lakes", "Fresh water on both sides.", "Green",
                                              "2, 3, 4, 6", "16 x 8", 8, 200, 1800, 112})},
         {"Maps\\lakes.tnt", sample::mapFiles("lakes", {}, 16, 8, 23, 112).back().second},
         {"Maps\\Divide.ota", sample::mapText({"Divide by Water", "The same name, another map.",
                                               "Archipelago", "4", "10 x 10", 30, 0, 800, 90})}});
    game.pack("Vexillum/Map-Misc/lonely.ufo",
              sample::mapFiles("lonely",
                               {"Lonely Island", "One beach, one hill, nobody else.", "Sea", "2",
                                "6 x 9", 18, 1000, 4000, 95},
                               6, 9, 42, 132));
}

void putUnits(const Game& game) {
    game.pack("Vexillum/Unit-Hover Crane/crane.ufo",
              {{"download\\crane.tdf", menuEntry("SHIPYRD", 2, 0, "CRANE")}},
              {packing::Packing::stored, false, 0});
    game.putLoose(
        "Unit-Hover Crane",
        sample::unitFiles({"crane", "Hover Crane", "Lifts what cannot swim", "ARM", 2150, 180}, 1));
    game.pack(
        "Vexillum/Unit-Old Tank/oldtank.ufo",
        sample::unitFiles({"OLDTANK", "Old Tank", "Slow and loud", "CORE", 1430, 210}, 2) +
            sample::unitFiles({"OLDER", "Older Tank", "Slower and louder", "CORE", 1890, 260}, 3));
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2)
        return 2;
    const Game game(argv[1]);
    packMenus(game);
    putMaps(game);
    putUnits(game);
}
