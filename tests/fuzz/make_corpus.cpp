// make_corpus FOLDER: seeds for the fuzz targets, made by the archive writer.
#include <filesystem>
#include <fstream>

#include "support/archive_writer.h"

int main(int argc, char** argv) {
    if (argc != 2)
        return 2;
    const std::filesystem::path folder = argv[1];
    const auto put = [&](const std::string& path, const std::string& bytes) {
        std::filesystem::create_directories((folder / path).parent_path());
        std::ofstream(folder / path, std::ios::binary) << bytes;
    };
    const test::PackedFiles files = {{"guis\\XYZ1.GUI", "name=UNIT1;\r\nheight=64;\r\n"},
                                     {"download\\unit2.tdf", std::string(300, 'x')},
                                     {"a\\b\\c", ""}};
    for (const auto packing : {test::Packing::stored, test::Packing::lz77, test::Packing::zlib})
        for (const bool encrypt : {false, true})
            put("archive/" + std::to_string(static_cast<int>(packing)) + (encrypt ? "e" : "p"),
                test::packArchive(files, {packing, encrypt, encrypt ? 0x7DU : 0U}));
    put("menu/page", "\1name=UNIT1;\r\nheight=64;\r\nname=igpatch;\r\nheight=64;\r\n");
    put("menu/download", "\2[MENUENTRY1]\r\n{\r\n\tUNITMENU=XYZ;\r\n\tMENU=-3.5;\r\n\tBUTTON=7;\r\n"
                         "\tUNITNAME=UNIT2;\r\n}\r\n");
}
