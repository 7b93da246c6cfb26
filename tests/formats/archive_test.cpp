// The archive reader: the worked example, every kind of packing, and archives that lie.
#include <algorithm>
#include <random>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "formats/archive.h"
#include "packing/archive_writer.h"
#include "platform/failure.h"

namespace formats {
namespace {

using packing::packArchive;
using packing::PackedFiles;
using packing::Packing;

Bytes asBytes(const std::string& text) {
    return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

std::string fromHex(std::string_view hex) {
    std::string bytes;
    std::string digits;
    for (const char c : hex)
        if (std::isxdigit(static_cast<unsigned char>(c)) != 0 && !(digits += c).empty() &&
            digits.size() == 2) {
            bytes += static_cast<char>(std::stoi(digits, nullptr, 16));
            digits.clear();
        }
    return bytes;
}

std::string contentOf(const Archive& archive, std::size_t entry) {
    std::string content;
    archive.extract(entry, [&](std::string_view piece) { content += piece; });
    return content;
}

/// All files that can be unpacked, by path.
std::map<std::string, std::string> unpack(const std::string& bytes) {
    std::map<std::string, std::string> files;
    const auto archive = Archive::open(asBytes(bytes));
    for (std::size_t i = 0; archive && i < archive->entries().size(); ++i)
        if (!archive->entries()[i].isFolder)
            platform::attempt([&] { files[archive->pathOf(i)] = contentOf(*archive, i); });
    return files;
}

constexpr auto example = "48 41 50 49 00 00 01 00 4a 00 00 00 7d 00 00 00"
                         "14 00 00 00 e0 e0 e3 e2 f1 ec ef ee cc e8 eb ea"
                         "ff d4 d7 d6 d0 b7 a6 bb ae dc de de d9 d8 e9 da"
                         "c5 c4 fc c6 c1 c0 82 c2 cd cc cf 8f e7 8f 9e 83"
                         "b5 fe b7 b6 b1 b9 b3 b2 bd bd a4 be b9 b8 e8 eb"
                         "f6 ec a5 a7 a0 a8 a3 a2 ad a5 af ae a9 54 ab aa"
                         "95 80 d6 d4 8b 98 ba 9e 93";

TEST(Archive, the_worked_example_is_read_byte_for_byte) {
    const auto bytes = fromHex(example);
    ASSERT_EQ(bytes.size(), 0x69U);
    const auto archive = Archive::open(asBytes(bytes));
    ASSERT_TRUE(archive);
    ASSERT_EQ(archive->entries().size(), 2U);
    EXPECT_TRUE(archive->entries()[0].isFolder);
    EXPECT_EQ(archive->pathOf(0), "guis");
    EXPECT_EQ(archive->pathOf(1), "guis\\A.GUI");
    EXPECT_EQ(contentOf(*archive, 1), "ABABABAB!");
    // The same file packed the other way: zlib, no encryption of the chunk.
    auto other = packArchive({{"guis\\A.GUI", "ABABABAB!"}}, {Packing::stored});
    other.resize(other.size() - 9);
    other[other.size() - 1] = 2;
    other += fromHex("20 00 00 00 53 51 53 48 02 02 00 0d 00 00 00 09 00 00 00 dc 03 00 00"
                     "78 da 73 74 72 04 43 45 00 0b 6a 02 2e");
    EXPECT_EQ(unpack(other).at("guis\\A.GUI"), "ABABABAB!");
}

TEST(Archive, every_kind_of_packing_comes_back_whole) {
    std::mt19937 random(3);
    std::string noise;
    std::string text;
    for (int i = 0; i < 70'000; ++i)
        noise += static_cast<char>(random());
    for (int i = 0; i < 30'000; ++i)
        text += "unit" + std::to_string(i % 700) + ";\r\n";
    const PackedFiles files = {{"a.txt", "short"},
                               {"empty", ""},
                               {"deep\\er\\still\\noise.bin", noise},
                               {"deep\\text.tdf", text},
                               {"deep\\zeros", std::string(200'000, '\0')},
                               {"deep\\exact", std::string(65'536, 'x')},
                               {"\xDC.ufo", "named in another code page"}};
    for (const auto packing : {Packing::stored, Packing::lz77, Packing::zlib})
        for (const bool encrypt : {false, true})
            for (const std::uint32_t key : {0U, 1U, 0x7DU, 255U, 0x12345678U}) {
                SCOPED_TRACE(std::to_string(static_cast<int>(packing)) + " " + std::to_string(key));
                const auto unpacked = unpack(packArchive(files, {packing, encrypt, key}));
                ASSERT_EQ(unpacked.size(), files.size());
                for (const auto& [path, content] : files)
                    EXPECT_TRUE(unpacked.at(path) == content) << path;
            }
}

TEST(Archive, other_files_are_no_archives) {
    const auto good = packArchive({{"a", "b"}});
    auto saved = good;
    saved.replace(4, 4, "BANK");
    auto rootless = good;
    rootless[16] = rootless[17] = '\xFF';
    for (const auto& bytes : {std::string(), std::string("HAPI"), std::string(40, 'x'), saved,
                              rootless, good.substr(0, 24)})
        EXPECT_EQ(Archive::open(asBytes(bytes)), nullptr);
}

TEST(Archive, names_that_lead_away_or_are_no_names_are_passed_over) {
    const PackedFiles files = {{"..\\up", "x"},
                               {"C:\\drive", "x"},
                               {"a/b", "x"},
                               {"guis\\..\\up", "x"},
                               {".", "x"},
                               {"a:b", "x"},
                               {std::string(300, 'n'), "x"},
                               {std::string(200, 'd') + "\\" + std::string(60, 'n'), "x"},
                               {"guis\\good.gui", "good"}};
    EXPECT_THAT(unpack(packArchive(files)),
                testing::ElementsAre(testing::Pair("guis\\good.gui", "good")));
}

TEST(Archive, directories_that_loop_or_share_are_listed_once) {
    const auto bytes = packArchive({{"loop\\inner\\x", "x"}, {"good", "good"}}, {Packing::stored});
    const auto archive = Archive::open(asBytes(bytes));
    ASSERT_EQ(archive->entries().size(), 4U);
    // The first entry of the root's list, a folder, is pointed back at the root.
    auto looped = bytes;
    looped.replace(32, 4, std::string("\x14\0\0\0", 4));
    EXPECT_THAT(unpack(looped), testing::ElementsAre(testing::Pair("good", "good")));
}

TEST(Archive, a_count_that_lies_costs_no_more_than_the_file_has_room_for) {
    auto bytes = packArchive({{"good", "good"}}, {Packing::stored});
    for (std::size_t i = 20; i < 24; ++i)
        bytes[i] = '\xFF';
    bytes += std::string(9'000, '\0');
    const auto archive = Archive::open(asBytes(bytes));
    ASSERT_TRUE(archive);
    EXPECT_LE(archive->entries().size(), bytes.size() / 9);
    EXPECT_EQ(unpack(bytes).at("good"), "good");
}

TEST(Archive, a_deep_nest_ends_with_the_longest_path) {
    std::string path;
    for (int i = 0; i < 300; ++i)
        path += "d\\";
    const auto packed = packArchive({{path + "x", "x"}});
    const auto opened = Archive::open(asBytes(packed));
    ASSERT_TRUE(opened);
    for (std::size_t i = 0; i < opened->entries().size(); ++i)
        EXPECT_LE(opened->pathOf(i).size(), Archive::longestPath);
    // To the letter: a path of the longest length is listed, one that is longer by one is not.
    const auto folder = std::string(200, 'd') + "\\";
    for (const auto& [letters, isListed] : {std::pair(std::size_t{0}, true), {1, false}}) {
        const std::string leaf(Archive::longestPath - folder.size() + letters, 'x');
        const auto bytes = packArchive({{folder + leaf, "x"}});
        const auto exact = Archive::open(asBytes(bytes));
        ASSERT_TRUE(exact);
        EXPECT_EQ(exact->entries().size(), isListed ? 2U : 1U) << letters << " over";
    }
}

/// An archive of one file, and where the fields of its chunk lie.
struct OneFile {
    explicit OneFile(Packing packing)
        : bytes(packArchive({{"bad", std::string(100'000, 'b')}, {"good", "good"}}, {packing})),
          table(bytes.find("SQSH") - 8) {}
    std::string bytes;
    std::size_t table;
    std::size_t chunk() const { return table + 8; }
};

TEST(Archive, an_entry_with_a_lie_in_it_is_passed_over_and_the_one_beside_it_is_not) {
    struct Row {
        const char* lie;
        std::ptrdiff_t at; ///< from the first chunk
        const char* bytes;
        std::size_t count;
    };
    const Row rows[] = {
        {"table: a chunk of 0 bytes", -8, "\0\0\0\0", 4},
        {"table: a chunk of 4 GB", -8, "\xFF\xFF\xFF\xFF", 4},
        {"another marker", 0, "SQSX", 4},
        {"another compression", 5, "\3", 1},
        {"a flag of encryption on plain data", 6, "\1", 1},
        {"a packed size past the chunk", 7, "\xFF\xFF\0\0", 4},
        {"a packed size too small", 7, "\1\0\0\0", 4},
        {"an unpacked size too small", 11, "\1\0\0\0", 4},
        {"an unpacked size of 4 GB", 11, "\xFF\xFF\xFF\xFF", 4},
        {"a wrong checksum", 15, "\xFF\xFF\xFF\xFF", 4},
    };
    for (const auto packing : {Packing::lz77, Packing::zlib})
        for (const auto& row : rows) {
            OneFile file(packing);
            const auto at =
                static_cast<std::size_t>(static_cast<std::ptrdiff_t>(file.chunk()) + row.at);
            file.bytes.replace(at, row.count, std::string(row.bytes, row.count));
            EXPECT_THAT(unpack(file.bytes), testing::ElementsAre(testing::Pair("good", "good")))
                << row.lie;
        }
}

TEST(Archive, cut_anywhere_it_gives_whole_entries_or_none) {
    for (const auto packing : {Packing::stored, Packing::lz77, Packing::zlib}) {
        const auto whole =
            packArchive({{"a\\b", "content of b"}, {"c", "content of c"}}, {packing, true, 0x7D});
        for (std::size_t size = 0; size < whole.size(); ++size) {
            const auto bytes = whole.substr(0, size);
            const auto unpacked = unpack(bytes);
            for (const auto& [path, content] : unpacked)
                EXPECT_EQ(content, path == "c" ? "content of c" : "content of b");
            const auto archive = Archive::open(asBytes(bytes));
            if (!archive)
                continue;
            const auto files =
                std::ranges::count(archive->entries(), false, &Archive::Entry::isFolder);
            EXPECT_EQ(static_cast<std::size_t>(files), unpacked.size() + archive->cutFiles().size())
                << size;
            EXPECT_EQ(archive->isWhole(), files == 2) << size;
        }
    }
}

TEST(Archive, any_byte_may_be_wrong) {
    std::mt19937 random(11);
    const auto whole = packArchive({{"a\\b", std::string(3000, 'x') + "end"}, {"c", "d"}},
                                   {Packing::lz77, false, 0});
    for (int i = 0; i < 20'000; ++i) {
        auto bytes = whole;
        for (int changes = 0; changes < 3; ++changes)
            bytes[random() % bytes.size()] = static_cast<char>(random());
        unpack(bytes);
    }
}

} // namespace
} // namespace formats
