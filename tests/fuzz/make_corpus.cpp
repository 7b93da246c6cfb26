// make_corpus FOLDER: seeds for the fuzz targets, made by the archive writer.
#include <filesystem>
#include <fstream>

#include "packing/map_writer.h"
#include "packing/zip_writer.h"

int main(int argc, char** argv) {
    if (argc != 2)
        return 2;
    const std::filesystem::path folder = argv[1];
    const auto put = [&](const std::string& path, const std::string& bytes) {
        std::filesystem::create_directories((folder / path).parent_path());
        std::ofstream(folder / path, std::ios::binary) << bytes;
    };
    const packing::PackedFiles files = {{"guis\\XYZ1.GUI", "name=UNIT1;\r\nheight=64;\r\n"},
                                        {"download\\unit2.tdf", std::string(300, 'x')},
                                        {"a\\b\\c", ""}};
    for (const auto packing :
         {packing::Packing::stored, packing::Packing::lz77, packing::Packing::zlib})
        for (const bool encrypt : {false, true})
            put("archive/" + std::to_string(static_cast<int>(packing)) + (encrypt ? "e" : "p"),
                packing::packArchive(files, {packing, encrypt, encrypt ? 0x7DU : 0U}));
    put("tam/tc", std::string("\0\0", 2) + "Name\r\nText##more\r\nA B\r\nfrom sub\\to\r\n");
    put("tam/ai", "\1\1Name\r\nText\r\nA\r\nai\\default.txt\r\n");
    put("tam/soft", "\2\3N&me\r\nText\r\nA\r\n2\r\n");
    put("tam/ufo", "\3\4");
    put("tam/pack", "\4\5Name\r\nText\r\nunit\r\n");
    const packing::PackedFiles members = {
        {"Top/", ""}, {"Top/a.ufo", std::string(300, 'a')}, {"Top/sub/b", "b"}};
    put("zip/packed", packing::packZip(members));
    put("zip/stored", packing::packZip(members, "zip:compression=store"));
    put("zip/hostile", packing::packZip({{"../a", "a"}, {"C:\\b", "b"}, {"/c", "c"}}));
    const std::string moves = "a.ufo\r\nVexillum\\TC-C\\b.ufo\r\n"
                              "Vexillum\\Map-A\\a.ufo\r\na.ufo\r\n";
    const auto journal = "MKDIRS\r\nmaps\r\nMOVES\r\n" + moves;
    const std::string human = " Folder Made If Not Existing:\r\nmaps\r\n Move for C 3:\r\n"
                              "a.ufo\t --> \tVexillum\\TC-C\\b.ufo\r\n Move for A 1:\r\n"
                              "Vexillum\\Map-A\\a.ufo\t --> \ta.ufo\r\n";
    const std::string state =
        "SIZE 77\r\nCHECKSUM 0123abcd\r\napplied\r\nCARRIED OUT\r\nFAILED 2\r\nEND\r\n";
    put("changes/journal", journal);
    put("changes/human", human);
    put("changes/pending", journal + "END\r\n");
    put("changes/state", state);
    put("changes/notes", "guis\\A1.gui\r\ndownload\\b.tdf\r\nMADE\r\nEND\r\n");
    for (const char flags : {'\0', '\4', '\14', '\17'})
        put("reset/" + std::to_string(flags), flags + journal + '\f' + human + '\f' +
                                                  (flags == 0 ? state + '\f' : "") + journal +
                                                  "END\r\n");
    put("selection/names", "Cavedog TA\r\n\r\nMisc-a.ufo\r\nA Map\r\n");
    put("selection/modifier", "True\r\nFalse\r\nTrue\r\n");
    put("selection/codes", "*\r\nany\r\nTA\r\n\r\n");
    put("menu/page", "\1name=UNIT1;\r\nheight=64;\r\nname=igpatch;\r\nheight=64;\r\n");
    put("menu/download", "\2[MENUENTRY1]\r\n{\r\n\tUNITMENU=XYZ;\r\n\tMENU=-3.5;\r\n\tBUTTON=7;\r\n"
                         "\tUNITNAME=UNIT2;\r\n}\r\n");
    auto map = packing::drawMap(1, 16, 8, 70);
    map.pictureWidth = map.pictureHeight = 4;
    map.picture.resize(16);
    put("tnt/picture", packing::mapFile(map));
    map.picture.clear();
    put("tnt/heights", packing::mapFile(map));
    put("pcx/unit", packing::pcxFile(96, 96, packing::drawUnit(1)));
    put("pcx/odd", packing::pcxFile(3, 2, {1, 1, 0xC9, 2, 3, 4}));
    put("ota/map",
        "[GlobalHeader]\r\n{\r\nmissionname=A; // b\r\nnumplayers=2, 4-6;\r\n"
        "size=36 x 16;\r\ngravity=-1.5;\r\n[Schema 0]\r\n{\r\nType=Network 1;\r\n}\r\n}");
    put("ota/unit", "[UNITINFO]{UnitName=A;Name=B;/* c */BuildCostEnergy=1;Side=D;}");
}
