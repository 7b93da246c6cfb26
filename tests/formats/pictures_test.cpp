// Settings files, small pictures of maps, and pictures of units: worked examples byte for byte, and
// beside them files that lie.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "formats/file_bytes.h"
#include "formats/map_info.h"
#include "formats/map_picture.h"
#include "formats/picture.h"
#include "formats/unit_file.h"
#include "packing/archive_writer.h"
#include "packing/map_writer.h"
#include "platform/failure.h"

namespace formats {
namespace {

using testing::ElementsAre;

Bytes asBytes(const std::string& text) {
    return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

std::string fromHex(std::string_view hex) {
    std::string bytes;
    for (std::size_t at = 0; at + 1 < hex.size(); at += hex[at] == ' ' ? 1 : 2)
        if (hex[at] != ' ')
            bytes += static_cast<char>(std::stoi(std::string(hex.substr(at, 2)), nullptr, 16));
    return bytes;
}

/// The reason why it cannot be read, or nothing.
template <typename Read>
std::string refusalOf(Read&& read) {
    try {
        read();
        return {};
    } catch (const platform::Failure& failure) {
        return failure.reason();
    }
}

Picture mapPicture(const std::string& bytes, const std::optional<Colours>& colours) {
    BytesInMemory file(asBytes(bytes));
    return readMapPicture(file, readMapHeader(file), colours);
}

constexpr auto mapText = R"([GlobalHeader]
    {
    missionname=Great Divide; // no comment
    MissionDescription=Two plateaus; planet=Green; numplayers=2, 4;
    size=36 x 16;
    tidalstrength=20; solarstrength=-5; minwindspeed=.5;
    maxwindspeed=fast; gravity=112;
    lavaworld=0; waterdoesdamage=1;
    [Schema 0]
        {
        Type=Network 1;
        planet=not this one;
        [units] { gravity=1; }
        }
    planet=nor this one;
    }
[Other] { gravity=7; memory=64 mb; })";

TEST(MapInfo, the_facts_are_those_of_the_header_whatever_nests_below_it) {
    const auto info = readMapInfo(mapText).value();
    EXPECT_EQ(info.name, "Great Divide");
    EXPECT_EQ(info.description, "Two plateaus");
    EXPECT_EQ(info.planet, "Green");
    EXPECT_THAT(info.players, ElementsAre(2, 4));
    EXPECT_EQ(playersText(info), "2 to 4 players");
    EXPECT_EQ(shownSize(info.size), "36 x 16");
    EXPECT_EQ(info.memory, "");
    EXPECT_EQ(info.tide, 20);
    EXPECT_EQ(info.sun, -5);
    EXPECT_EQ(info.leastWind, 0);
    EXPECT_FALSE(info.mostWind);
    EXPECT_EQ(info.gravity, 112);
    EXPECT_TRUE(!info.isLavaWorld && info.waterDoesDamage && info.isForNetwork);
}

TEST(MapInfo, what_people_write_is_made_the_best_of) {
    const struct {
        const char* text;
        std::vector<int> players;
        MapSize size;
    } rows[] = {
        {"numplayers=2-4; size=8x10", {2, 3, 4}, {8, 10}},
        {"NUMPLAYERS = 10 , 2,2", {2, 10}, {}},
        {"numplayers=2 to 3 players;SIZE=16", {2, 3}, {}},
        {"numplayers=0, 99999999999999999999, 5;size=60000 x 60000", {5}, {}},
        {"numplayers=1-99999999;size=0 x 4;", {1}, {}},
        {"size=-3 x 4", {}, {3, 4}},
        {"numplayers=2/*", {2}, {}},
        {"[a]{[b]{}}numplayers=3}}}}size=1 x 1", {3}, {}},
        {"=;;==;[;]", {}, {}},
    };
    for (const auto& row : rows) {
        const auto info = readMapInfo("[GLOBALHEADER]{" + std::string(row.text));
        ASSERT_TRUE(info) << row.text;
        EXPECT_EQ(info->players, row.players) << row.text;
        EXPECT_EQ(info->size, row.size) << row.text;
    }
    for (const auto* none : {"", "missionname=x;", "[GlobalHeader]", "{missionname=x}",
                             "[x]{[GlobalHeader]{missionname=x;}}"})
        EXPECT_FALSE(readMapInfo(none)) << none;
    EXPECT_TRUE(readMapInfo("[GlobalHeader]{" + std::string(1 << 20, '{')));
}

TEST(MapInfo, texts_are_cut_between_letters_and_hold_no_control_characters) {
    const auto letters = [](int count) {
        std::string text;
        for (int i = 0; i < count; ++i)
            text += "\xC3\xA4";
        return text;
    };
    const auto info = readMapInfo("[GlobalHeader]{missionname=x" + letters(200) +
                                  ";planet=a\x01"
                                  "b\x7F;}")
                          .value();
    EXPECT_EQ(info.name, "x" + letters(127));
    EXPECT_EQ(info.planet, "a b");
}

TEST(UnitInfo, facts_come_from_the_unit_s_own_section) {
    const auto info = readUnitInfo("[UNITINFO]\r\n{\r\n\tUnitName=ARMCOM;\r\n\tname=Commander;\r\n"
                                   "\tDescription=Leads /* them */ all;\r\n\tSide=ARM;\r\n"
                                   "\tBuildCostEnergy=2500.6;\r\n\tbuildcostmetal=-;\r\n"
                                   "\tMaxDamage=3000; BuildTime=+75;\r\n"
                                   "\t[sub]\r\n\t{ Category=no; }\r\n}\r\n")
                          .value();
    EXPECT_EQ(info.unitName, "ARMCOM");
    EXPECT_EQ(info.name, "Commander");
    EXPECT_EQ(info.description, "Leads  all");
    EXPECT_EQ(info.side, "ARM");
    EXPECT_EQ(info.category, "");
    EXPECT_EQ(info.energy, 2501);
    EXPECT_FALSE(info.metal);
    EXPECT_EQ(info.maxDamage, 3000);
    EXPECT_EQ(info.buildTime, 75);
    EXPECT_FALSE(readUnitInfo("unitname=x;[UNITINFO"));
}

/// 4 x 2 units of 16 pixels; the indices of tiles at 0x40, the heights at 0x44, the picture at
/// 0x64: 4 x 4, of which the lower half is filled up.
constexpr auto mapExample = "00 20 00 00 04 00 00 00 02 00 00 00 40 00 00 00"
                            "44 00 00 00 64 00 00 00 00 00 00 00 00 00 00 00"
                            "00 00 00 00 32 00 00 00 64 00 00 00 01 00 00 00"
                            "00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00"
                            "00 00 00 00"
                            "00 ff ff ff 31 ff ff ff 32 ff ff ff ff ff ff ff"
                            "32 ff ff ff 33 ff ff ff 31 ff ff ff 00 ff ff ff"
                            "04 00 00 00 04 00 00 00"
                            "01 02 03 04 05 06 07 64 64 64 64 64 64 64 64 64";

Colours greys() {
    Colours colours;
    for (std::size_t i = 0; i < colours.size(); ++i)
        colours[i].red = colours[i].green = colours[i].blue = static_cast<std::uint8_t>(i);
    return colours;
}

TEST(MapPicture, the_worked_example_is_read_byte_for_byte) {
    const auto bytes = fromHex(mapExample);
    ASSERT_EQ(bytes.size(), 0x7CU);
    const auto picture = mapPicture(bytes, greys());
    EXPECT_EQ(picture.width, 4);
    EXPECT_EQ(picture.height, 2);
    EXPECT_THAT(picture.pixels, ElementsAre(1, 2, 3, 4, 5, 6, 7, 0x64));
    EXPECT_EQ(picture.at(2, 1), (Colour{7, 7, 7}));
    // On its side: the filler is to the right of the map.
    auto upright = bytes;
    std::swap(upright[4], upright[8]);
    EXPECT_THAT(mapPicture(upright, greys()).pixels.size(), 16U) << "what is no filler stays";
    upright.replace(0x6C, 16, fromHex("01 02 64 64 03 04 64 64 05 06 64 64 64 08 64 64"));
    EXPECT_THAT(mapPicture(upright, greys()).pixels, ElementsAre(1, 2, 3, 4, 5, 6, 0x64, 8));
}

TEST(MapPicture, without_colours_or_picture_it_is_drawn_from_the_heights) {
    const auto bytes = fromHex(mapExample);
    auto bare = bytes;
    bare.replace(0x28, 4, 4, '\0');
    const auto drawn = mapPicture(bytes, std::nullopt);
    EXPECT_EQ(drawn, mapPicture(bare, greys()));
    ASSERT_EQ(drawn.width, 4);
    ASSERT_EQ(drawn.height, 2);
    // Below the sea's height, 0x32, it is blue; the deeper, the darker.
    for (const auto& [x, y, isSea] :
         {std::tuple(0, 0, true), {1, 0, true}, {2, 0, false}, {0, 1, false}, {2, 1, true}})
        EXPECT_EQ(drawn.at(x, y).blue > drawn.at(x, y).red, isSea) << x << " " << y;
    EXPECT_LT(drawn.at(0, 0).blue, drawn.at(1, 0).blue);
    const auto large =
        mapPicture(packing::mapFile(packing::drawMap(1, 640, 320, 70)), std::nullopt);
    EXPECT_EQ(large.width, 252);
    EXPECT_EQ(large.height, 126);
}

TEST(MapPicture, a_map_that_lies_has_none) {
    struct Row {
        const char* lie;
        std::size_t at;
        const char* bytes;
        const char* reason;
    };
    const Row rows[] = {
        {"another game", 1, "10", "it is a map of another game"},
        {"no width", 4, "00000000", "its size is said to be 0 x 0"},
        {"60,000 x 60,000", 4, "004c1d00 004c1d00", "its size is said to be 60000 x 60000"},
        {"the widest", 4, "ffffffff", "its size is said to be 134217727 x 0"},
        {"larger than the file", 4, "00200000 00200000", "it has no room for a size of 256 x 256"},
        {"heights behind the end", 0x10, "ffffffff", "it has no room for a size of 0 x 0"},
        {"heights over the end", 0x10, "5d000000", "it has no room for a size of 0 x 0"},
        {"picture behind the end", 0x28, "7c000000", "it ends too early"},
        {"picture far behind the end", 0x28, "ffffffff", "it ends too early"},
        {"picture over the end", 0x28, "65000000", "its small picture is said to be"},
        {"picture too wide", 0x64, "01020000", "its small picture is said to be 513 x 4"},
        {"picture without rows", 0x68, "00000000", "its small picture is said to be 4 x 0"},
        {"picture with too many rows", 0x68, "05000000", "its small picture lies outside"},
        {"picture of 2^32 pixels", 0x64, "00000100 00000100", "its small picture is said to be"},
    };
    for (const auto& row : rows) {
        auto bytes = fromHex(mapExample);
        const auto lie = fromHex(row.bytes);
        bytes.replace(row.at, lie.size(), lie);
        EXPECT_THAT(refusalOf([&] { mapPicture(bytes, greys()); }), testing::HasSubstr(row.reason))
            << row.lie;
    }
    const auto whole = fromHex(mapExample);
    for (std::size_t size = 0; size < whole.size(); ++size)
        EXPECT_NE(refusalOf([&] { mapPicture(whole.substr(0, size), greys()); }), "") << size;
}

TEST(MapPicture, only_the_pieces_that_hold_it_are_unpacked) {
    auto map = packing::drawMap(3, 64, 32, 80);
    map.tiles = 2000;
    const auto file = packing::mapFile(map);
    for (const auto packing :
         {packing::Packing::stored, packing::Packing::lz77, packing::Packing::zlib}) {
        const auto bytes = packing::packArchive({{"maps\\a.tnt", file}}, {packing, true, 0x7D});
        const auto archive = Archive::open(asBytes(bytes));
        BytesInArchive inArchive(*archive, 1, bytes.size());
        const auto header = readMapHeader(inArchive);
        EXPECT_EQ(header.size(), (MapSize{2, 1}));
        const auto picture = readMapPicture(inArchive, header, greys());
        EXPECT_EQ(picture, mapPicture(file, greys()));
        EXPECT_EQ(picture.height, 126);
        EXPECT_LT(inArchive.spent(), bytes.size() / 5);
        // Backwards too, and with an end to what may be read.
        EXPECT_EQ(readMapPicture(inArchive, header, std::nullopt), mapPicture(file, std::nullopt));
        BytesInArchive bounded(*archive, 1, 10);
        readMapHeader(bounded);
        EXPECT_EQ(refusalOf([&] { readMapPicture(bounded, header, greys()); }),
                  "it lies over other files");
    }
}

/// 3 x 2 pixels in rows of 4: a run, a pixel, one that looks like a run; then a run over both ends.
std::string pcxExample(const std::string& rows = fromHex("c2 05 07 00 c1 c9 c3 02")) {
    auto bytes = fromHex("0a 05 01 08 00 00 00 00 02 00 01 00 48 00 48 00");
    bytes.resize(65);
    bytes += fromHex("01 04 00 01 00");
    bytes.resize(128);
    bytes += rows + '\x0C';
    for (int i = 0; i < 256; ++i)
        bytes += {static_cast<char>(i), static_cast<char>(255 - i), '\x10'};
    return bytes;
}

TEST(Pcx, the_worked_example_is_read_byte_for_byte) {
    const auto picture = readPcx(asBytes(pcxExample()));
    EXPECT_EQ(picture.width, 3);
    EXPECT_EQ(picture.height, 2);
    EXPECT_THAT(picture.pixels, ElementsAre(5, 5, 7, 0xC9, 2, 2));
    EXPECT_EQ(picture.at(2, 0), (Colour{7, 248, 0x10}));
    const auto drawn = packing::drawUnit(5);
    EXPECT_EQ(readPcx(asBytes(packing::pcxFile(96, 96, drawn))).pixels, drawn);
}

TEST(Pcx, one_that_lies_or_runs_over_is_none) {
    struct Row {
        const char* lie;
        std::size_t at;
        const char* bytes;
        const char* reason;
    };
    const Row rows[] = {
        {"another marker", 0, "0b", "it is no PCX file"},
        {"another version", 1, "03", "it is not of the kind"},
        {"24 bits", 65, "03", "it is not of the kind"},
        {"right of its left", 4, "0300", "its sizes are wrong"},
        {"65,536 wide", 8, "ffff", "it is too large: 65536 x 2"},
        {"rows shorter than the picture", 66, "0200", "its rows are too short"},
        {"rows of 64 KB", 66, "ffff", "its rows are too short or too long"},
        {"a run over the end", 134, "c4", "its last row runs over"},
        {"too few rows", 134, "0203", "its rows end too early"},
        {"no colours", 136, "0d", "its colours are missing"},
    };
    for (const auto& row : rows) {
        auto bytes = pcxExample();
        const auto lie = fromHex(row.bytes);
        bytes.replace(row.at, lie.size(), lie);
        EXPECT_THAT(refusalOf([&] { readPcx(asBytes(bytes)); }), testing::StartsWith(row.reason))
            << row.lie;
    }
    EXPECT_EQ(refusalOf([] { readPcx(asBytes(pcxExample(fromHex("c7 05 c3")))); }),
              "its rows end too early")
        << "a run's pixel is not the colours' mark";
    for (std::size_t size = 0; size < 896; size += 5)
        EXPECT_NE(refusalOf([&] { readPcx(asBytes(pcxExample().substr(0, size))); }), "") << size;
    EXPECT_FALSE(readPalette(asBytes(std::string(1023, 'x'))));
    EXPECT_EQ(readPalette(asBytes(packing::paletteFile())).value()[255], (Colour{248, 248, 248}));
}

} // namespace
} // namespace formats
