// Extraction of many entries against libdeflate over the same chunks in memory and plain writes;
// LZ77 against zlib's inflate of the same content; the whole modifier against writing its output
// plainly; a zip import against unpacking it with bsdtar; a map's picture out of a large archive
// against reading and unpacking just its file.
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <functional>
#include <random>
#include <sstream>

#include <libdeflate.h>
#include <unistd.h>
#include <zlib.h>

#include "bench.h"
#include "formats/lz77.h"
#include "headless/session.h"
#include "menumod/modHPIUtil.h"
#include "packing/archive_writer.h"
#include "packing/map_writer.h"
#include "packing/zip_writer.h"
#include "releases/contents_reader.h"
#include "releases/member_import.h"
#include "windows/frmMain.h"

namespace {

namespace fs = std::filesystem;
using bench::Seconds;

constexpr int rounds = 5;
const fs::path root = fs::current_path() / "archive-bench-game";

void put(const fs::path& path, const std::string& content) {
    fs::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary) << content;
}

/// Text of the kind that the game's files have, about three to one when packed.
std::string gameText(std::size_t size, unsigned seed) {
    std::mt19937 random(seed);
    std::string text;
    while (text.size() < size)
        text += "\tname=UNIT" + std::to_string(random() % 5000) +
                ";\r\n\txpos=" + std::to_string(random() % 640) + ";\r\n";
    text.resize(size);
    return text;
}

std::span<const std::uint8_t> asBytes(const std::string& text) {
    return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

void extraction() {
    constexpr int entries = 5000;
    constexpr std::size_t entrySize = 40'000;
    packing::PackedFiles files;
    std::vector<std::string> chunks;
    for (int i = 0; i < entries; ++i) {
        files.emplace_back("guis\\page" + std::to_string(i) + ".gui",
                           gameText(entrySize, static_cast<unsigned>(i)));
        chunks.push_back(
            packing::packChunk(files.back().second, {packing::Packing::zlib, false, 0}));
    }
    put(root / "big.hpi", packing::packArchive(files));
    std::vector<Seconds> ours, limit;
    for (int round = 0; round < rounds; ++round) {
        fs::remove_all(root / "guis");
        fs::create_directory(root / "guis");
        ours.push_back(bench::timeOf([&] {
            const auto disk = platform::makeDisk();
            disk->setGameDirectory(root.string());
            menumod::modHPIUtil archives(*disk);
            const int handle = archives.HPIOpen(root.string() + "\\big.hpi");
            std::string name;
            int type = 0;
            int size = 0;
            for (int next = 0; (next = archives.HPIGetFiles(handle, next, name, type, size)) != 0;)
                if (type == 0)
                    archives.HPIExtractFile(handle, name, root.string() + "\\" + name);
        }));
        fs::remove_all(root / "guis");
        fs::create_directory(root / "guis");
        limit.push_back(bench::timeOf([&] {
            auto* unpacker = libdeflate_alloc_decompressor();
            std::string piece(entrySize, '\0');
            for (int i = 0; i < entries; ++i) {
                const auto& chunk = chunks[static_cast<std::size_t>(i)];
                libdeflate_zlib_decompress(unpacker, chunk.data() + 19, chunk.size() - 19,
                                           piece.data(), piece.size(), nullptr);
                auto* file = std::fopen(
                    (root / "guis" / ("page" + std::to_string(i) + ".gui")).c_str(), "wb");
                std::fwrite(piece.data(), 1, piece.size(), file);
                std::fclose(file);
            }
            libdeflate_free_decompressor(unpacker);
        }));
    }
    bench::report("extract 5,000 entries, 200 MB", bench::median(ours), bench::median(limit), 1.2);
}

void lz77() {
    const auto content = gameText(65'536, 1);
    const auto chunk = packing::packChunk(content, {packing::Packing::lz77, false, 0}).substr(19);
    std::string packed(compressBound(content.size()), '\0');
    uLongf packedSize = packed.size();
    compress(reinterpret_cast<Bytef*>(packed.data()), &packedSize,
             reinterpret_cast<const Bytef*>(content.data()), content.size());
    std::string out(content.size(), '\0');
    std::vector<Seconds> ours, limit;
    for (int round = 0; round < rounds; ++round) {
        ours.push_back(bench::timeOf([&] {
            for (int i = 0; i < 300; ++i)
                formats::unpackLz77(asBytes(chunk),
                                    {reinterpret_cast<std::uint8_t*>(out.data()), out.size()});
        }));
        limit.push_back(bench::timeOf([&] {
            for (int i = 0; i < 300; ++i) {
                uLongf size = out.size();
                uncompress(reinterpret_cast<Bytef*>(out.data()), &size,
                           reinterpret_cast<const Bytef*>(packed.data()), packedSize);
            }
        }));
    }
    bench::report("LZ77 against zlib's inflate", bench::median(ours), bench::median(limit), 1);
    std::printf("LZ77 %.0f MB/s, inflate %.0f MB/s\n", 300 * 65'536 / bench::median(ours) / 1e6,
                300 * 65'536 / bench::median(limit) / 1e6);
}

/// A game directory whose archives hold `builders` menus with `units` units in all.
void fillMenus(int builders, int units) {
    fs::remove_all(root);
    fs::create_directories(root / "Vexillum");
    fs::copy(VEXILLUM_DATA, root / "Vexillum", fs::copy_options::recursive);
    put(root / "Vexillum/VXL-Sel/selTrlx.txt", "True\r\n");
    packing::PackedFiles files;
    const int perBuilder = units / builders;
    for (int b = 0; b < builders; ++b) {
        std::string page;
        for (int u = 0; u < perBuilder; ++u) {
            const auto unit = "U" + std::to_string(b * perBuilder + u);
            if (u % 2 == 0)
                page += "[GADGET]\r\n\t{\r\n\tname=" + unit + ";\r\n\theight=64;\r\n\t}\r\n";
            else
                files.emplace_back("download\\" + unit + ".tdf",
                                   "[MENUENTRY1]\r\n{\r\n\tUNITMENU=B" + std::to_string(b) +
                                       ";\r\n\tMENU=3;\r\n\tBUTTON=" + std::to_string(u % 6) +
                                       ";\r\n\tUNITNAME=" + unit + ";\r\n}\r\n");
        }
        files.emplace_back("guis\\B" + std::to_string(b) + "1.GUI", page);
    }
    put(root / "game.hpi", packing::packArchive(files));
}

Seconds runModifier() {
    for (const auto* folder : {"guis", "download", "anims"})
        fs::remove_all(root / folder);
    put(root / "Vexillum/VXL-Sel/selTrlx.txt", "True\r\n");
    std::istringstream none;
    headless::Script script(none);
    headless::SessionToolkit toolkit(script, [](const auto&) {});
    const auto disk = platform::makeDisk();
    headless::RecordedPrograms programs(*disk, [](const auto&) {});
    windows::frmMain main({*disk, toolkit, programs, root.string(), "", ""});
    main.Init();
    // What other runs have left to write is not this one's to wait for.
    ::sync();
    return bench::timeOf([&] { main.moveFiles(); });
}

/// The limit: the files that the modifier has left, written plainly.
Seconds writeOutputPlainly() {
    std::vector<std::pair<std::string, std::string>> files;
    for (const auto* folder : {"guis", "download", "anims"})
        for (const auto& entry : fs::directory_iterator(root / folder)) {
            std::ifstream file(entry.path(), std::ios::binary);
            files.emplace_back(entry.path().string(),
                               std::string(std::istreambuf_iterator<char>(file), {}));
        }
    for (const auto* folder : {"guis", "download", "anims"}) {
        fs::remove_all(root / folder);
        fs::create_directory(root / folder);
    }
    ::sync();
    return bench::timeOf([&] {
        for (const auto& [path, content] : files) {
            auto* file = std::fopen(path.c_str(), "wb");
            std::fwrite(content.data(), 1, content.size(), file);
            std::fclose(file);
        }
    });
}

void modifier() {
    for (const auto& [builders, units] : {std::pair(30, 500), {300, 5000}}) {
        fillMenus(builders, units);
        std::vector<Seconds> ours, limit;
        for (int round = 0; round < rounds; ++round) {
            ours.push_back(runModifier());
            limit.push_back(writeOutputPlainly());
        }
        bench::report("modifier, " + std::to_string(units) + " units, against plain writes",
                      bench::median(ours), bench::median(limit), 2);
        std::printf("  %.1f us a unit\n", bench::median(ours) / units * 1e6);
    }
}

class YesToAll final : public platform::Questions {
  public:
    std::size_t ask(const platform::Question& /*question*/,
                    platform::MessageRow* /*row*/) override {
        return 0;
    }
};

/// What is imported is on the disk to stay; the limit leaves that to the system.
void zipImport() {
    if (std::system("bsdtar --version >/dev/null 2>&1") != 0) {
        std::printf("zip import: no bsdtar here (package libarchive-tools), not measured\n");
        return;
    }
    packing::PackedFiles files;
    for (int i = 0; i < 20'000; ++i)
        files.emplace_back("folder" + std::to_string(i / 200) + "/file" + std::to_string(i),
                           gameText(500, static_cast<unsigned>(i)));
    put(root / "import.zip", packing::packZip(files));
    const auto freshFolder = [] {
        fs::remove_all(root / "Vexillum");
        fs::create_directories(root / "Vexillum/Mod-New");
        ::sync();
    };
    const auto unpack = "bsdtar -xf \"" + (root / "import.zip").string() + "\" -C \"" +
                        (root / "Vexillum/Mod-New").string() + "\"";
    std::vector<Seconds> ours, limit;
    for (int round = 0; round < rounds; ++round) {
        freshFolder();
        ours.push_back(bench::timeOf([&] {
            const auto disk = platform::makeDisk();
            platform::NoLog log;
            YesToAll answers;
            releases::GameDirectory game(*disk, log, answers);
            game.open(root.string());
            releases::MemberImport import(game, game.inDataTree("Mod-New"),
                                          [](const auto&) { return true; });
            import.copy({(root / "import.zip").string()});
        }));
        freshFolder();
        limit.push_back(bench::timeOf([&] {
            if (std::system(unpack.c_str()) != 0)
                std::printf("bsdtar failed\n");
        }));
    }
    bench::report("zip of 20,000 small files, against bsdtar", bench::median(ours),
                  bench::median(limit), 1.5);
}

/// The limit knows where the map's chunks lie, and has nothing else to find.
void picture() {
    constexpr std::size_t archiveSize = 50'000'000;
    std::mt19937 random(1);
    auto map = packing::drawMap(1, 256, 256, 70);
    map.tiles = 600;
    const auto tnt = packing::mapFile(map);
    packing::PackedFiles files = {{"maps\\a.tnt", tnt},
                                  {"maps\\a.ota", "[GlobalHeader]{missionname=A;}"}};
    for (std::size_t all = 0; all < archiveSize; all += 40'000) {
        std::string noise(40'000, '\0');
        for (auto& c : noise)
            c = static_cast<char>(random());
        files.emplace_back("sounds\\" + std::to_string(all) + ".wav", noise);
    }
    put(root / "Vexillum/Map-A/a.ufo", packing::packArchive(files));
    std::vector<std::string> chunks;
    for (std::size_t at = 0; at < tnt.size(); at += 65'536)
        chunks.push_back(
            packing::packChunk(tnt.substr(at, 65'536), {packing::Packing::zlib, false, 0}));
    std::string packed;
    for (const auto& chunk : chunks)
        packed += chunk;
    put(root / "just.tnt", packed);
    std::vector<Seconds> ours, limit;
    for (int round = 0; round < rounds; ++round) {
        ours.push_back(bench::timeOf([&] {
            const auto disk = platform::makeDisk();
            disk->setGameDirectory(root.string());
            releases::ContentsReader reader(*disk, root.string() + "\\Vexillum\\Map-A",
                                            formats::Colours());
            while (reader.step()) {
            }
            if (!reader.contents().hasPictures())
                std::printf("no picture\n");
        }));
        limit.push_back(bench::timeOf([&] {
            std::ifstream file(root / "just.tnt", std::ios::binary);
            auto* unpacker = libdeflate_alloc_decompressor();
            std::string piece(65'536, '\0');
            for (auto chunk : chunks) {
                file.read(chunk.data(), static_cast<std::streamsize>(chunk.size()));
                libdeflate_zlib_decompress(unpacker, chunk.data() + 19, chunk.size() - 19,
                                           piece.data(), piece.size(), nullptr);
            }
            libdeflate_free_decompressor(unpacker);
        }));
    }
    bench::report("a map's picture out of 50 MB", bench::median(ours), bench::median(limit), 1.5);
}

} // namespace

/// Runs all five, or the one named.
int main(int argc, char** argv) {
    const std::string only = argc > 1 ? argv[1] : "";
    fs::remove_all(root);
    fs::create_directories(root);
    if (only.empty() || only == "extraction")
        extraction();
    if (only.empty() || only == "lz77")
        lz77();
    if (only.empty() || only == "modifier")
        modifier();
    if (only.empty() || only == "zip")
        zipImport();
    if (only.empty() || only == "picture")
        picture();
    fs::remove_all(root);
}
