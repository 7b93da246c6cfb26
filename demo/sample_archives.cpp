// sample-archives GAMEDIR: the archives of the sample game directory, with build menus and weapons.
#include <filesystem>
#include <fstream>

#include "packing/archive_writer.h"

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

} // namespace

int main(int argc, char** argv) {
    if (argc != 2)
        return 2;
    const std::filesystem::path game = argv[1];
    const auto put = [&](const std::string& path, const packing::PackedFiles& files,
                         const packing::PackOptions& options) {
        std::filesystem::create_directories((game / path).parent_path());
        std::ofstream(game / path, std::ios::binary) << packing::packArchive(files, options);
    };
    put("totala1.hpi",
        {{"guis\\SHIPYRD1.GUI", button("SKIFF") + button("CUTTER") + button("IGPATCH")},
         {"guis\\SHIPYRD2.GUI", button("FRIGATE")},
         {"guis\\KBOTLAB1.GUI", button("PEEWIT") + button("ROCKER")},
         {"weapons\\naval.tdf", weapon("DECK_GUN", 20) + weapon("TORPEDO", 21)},
         {"weapons\\land.tdf", weapon("POPGUN", 30)}},
        {packing::Packing::zlib, false, 0x7D});
    put("Vexillum/Mod-Warpgate/warpgate.ufo",
        {{"download\\gate.tdf", menuEntry("KBOTLAB", 4, 2, "GATE")},
         {"weapons\\gate.tdf", weapon("GATE_BEAM", 21) + weapon("GATE_PULSE", 30)}},
        {packing::Packing::lz77, true, 0});
    put("Vexillum/Unit-Hover Crane/crane.ufo",
        {{"download\\crane.tdf", menuEntry("SHIPYRD", 2, 0, "CRANE")}},
        {packing::Packing::stored, false, 0});
}
