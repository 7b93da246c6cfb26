// The reports over archives that lie beside each other: conflicts, and archives that are damaged or
// lie.
#include <random>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "conflict/archive_reports.h"
#include "cycle/preview.h"
#include "packing/archive_writer.h"
#include "platform/text.h"
#include "support/core.h"

namespace conflict {
namespace {

using packing::packArchive;
using packing::PackedFiles;
using packing::Packing;

std::string unit(const std::string& name) {
    return "[UNITINFO]\r\n\t{\r\n\tUnitName=" + name + ";\r\n\tName=No name;\r\n\t}\r\n";
}

std::string button(const std::string& name) {
    return "name=" + name + ";\r\nheight=64;\r\n";
}

std::string entry(const std::string& builder, int menu, int place, const std::string& name) {
    return "UNITMENU=" + builder + ";\r\nMENU=" + std::to_string(menu) +
           ";\r\nBUTTON=" + std::to_string(place) + ";\r\nUNITNAME=" + name + ";\r\n";
}

std::string cut(std::string bytes, std::size_t count) {
    bytes.resize(bytes.size() - count);
    return bytes;
}

std::string spoilt(std::string bytes, std::size_t fromEnd = 1) {
    auto& byte = bytes[bytes.size() - fromEnd];
    byte = static_cast<char>(byte ^ 1);
    return bytes;
}

/// An archive's name, whose it is, and its bytes.
struct Given {
    std::string name;
    std::string owner;
    std::string bytes;
};

class ArchiveReportsTest : public testing::Test {
  protected:
    ArchiveReportsTest() { disk->setGameDirectory(game.folder()); }

    ArchiveReports reportsOf(const std::vector<Given>& given, const ReportSettings& settings = {}) {
        std::vector<ChosenArchive> chosen;
        for (const auto& each : given) {
            const auto path = "Vexillum/" + each.owner + "/" + each.name;
            game.put(path, each.bytes);
            chosen.push_back({each.name, game.at(path).string(), each.owner});
        }
        return reportOnArchives(*disk, chosen, log, settings);
    }
    std::string textOf(const std::vector<Given>& given, const ReportSettings& settings = {}) {
        return platform::replaceAll(reportsOf(given, settings).text(), "\r\n", "\n");
    }

    test::Game game;
    test::RecordedLog log;
    std::unique_ptr<platform::Disk> disk = platform::makeDisk();
};

TEST_F(ArchiveReportsTest, files_with_different_bytes_are_told_with_the_one_that_the_game_takes) {
    const std::string large(200'000, 'x');
    struct Row {
        const char* what;
        std::vector<Given> given;
        const char* text;
    };
    const Row rows[] = {
        {"equal bytes, packed in another way",
         {{"a.ufo", "A", packArchive({{"x", large}, {"e", ""}}, {Packing::stored})},
          {"b.ufo", "B", packArchive({{"x", large}, {"e", ""}}, {Packing::lz77, true, 0x7D})}},
         "No conflicts\n"},
        {"one byte, behind the first piece",
         {{"b.ufo", "B", packArchive({{"maps\\x", large}})},
          {"a.ufo", "A", spoilt(packArchive({{"maps\\x", large}}, {Packing::stored}), 50'000)}},
         "1 doubled file\n\nDoubled files: 1\n"
         "maps\\x\n    b.ufo (B) is taken\n    a.ufo (A) is not taken\n"},
        {"a name in two cases, and another length",
         {{"a.ufo", "A", packArchive({{"Maps\\\xC3\x84.ota", "1"}})},
          {"B.UFO", "B", packArchive({{"maps\\\xC3\xA4.OTA", "12"}})}},
         "1 doubled file\n\nDoubled files: 1\n"
         "maps\\\xC3\xA4.OTA\n    B.UFO (B) is taken\n    a.ufo (A) is not taken\n"},
        {"archives in the game's order, some of them alike",
         {{"a.gp3", "G", packArchive({{"x", "1"}})},
          {"b.ccx", "C", packArchive({{"x", "2"}})},
          {"d.hpi", "H", packArchive({{"x", "1"}})},
          {"c.ufo", "U", packArchive({{"x", "3"}})}},
         "1 doubled file\n\nDoubled files: 1\nx\n    a.gp3 (G) is taken\n"
         "    b.ccx (C) is not taken\n    c.ufo (U) is not taken\n    d.hpi (H) has the same\n"},
        {"what one release makes so comes last",
         {{"a.ufo", "A", packArchive({{"a", "1"}, {"z", "1"}})},
          {"b.ufo", "A", packArchive({{"a", "2"}})},
          {"c.ufo", "C", packArchive({{"z", "2"}})}},
         "2 doubled files\n\nDoubled files: 1\n"
         "z\n    c.ufo (C) is taken\n    a.ufo (A) is not taken\n\n"
         "Doubled files, in one release: 1\n"
         "a\n    b.ufo (A) is taken\n    a.ufo (A) is not taken\n"},
        {"twice in one archive, and what the game does not open",
         {{"a.ufo", "A", packArchive({{"x", "1"}, {"X", "2"}})},
          {"b.ufo.old", "B", packArchive({{"x", "3"}})}},
         "No conflicts\n"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(textOf(row.given), row.text) << row.what;
}

TEST_F(ArchiveReportsTest, units_of_one_name_are_told_wherever_they_are_defined) {
    struct Row {
        const char* what;
        std::vector<Given> given;
        const char* text;
    };
    const Row rows[] = {
        {"two files, whatever the case",
         {{"a.ufo", "A", packArchive({{"units\\one.fbi", unit("Crane")}})},
          {"b.ufo", "B", packArchive({{"Units\\two.FBI", unit("CRANE")}})}},
         "1 doubled unit\n\nDoubled units: 1\nCrane\n"
         "    units\\one.fbi in a.ufo (A)\n    Units\\two.FBI in b.ufo (B)\n"},
        {"two files of one archive",
         {{"a.ufo", "A", packArchive({{"units\\1.fbi", unit("C")}, {"units\\2.fbi", unit("C")}})}},
         "1 doubled unit\n\nDoubled units, in one release: 1\nC\n"
         "    units\\1.fbi in a.ufo (A)\n    units\\2.fbi in a.ufo (A)\n"},
        {"one file in two archives",
         {{"a.ufo", "A", packArchive({{"units\\c.fbi", unit("C")}})},
          {"b.ufo", "B", packArchive({{"units\\c.fbi", unit("C") + " "}})}},
         "1 doubled file, 1 doubled unit\n\nDoubled files: 1\n"
         "units\\c.fbi\n    b.ufo (B) is taken\n    a.ufo (A) is not taken\n\n"
         "Doubled units: 1\nC\n"
         "    units\\c.fbi in b.ufo (B)\n    units\\c.fbi in a.ufo (A) is not taken\n"},
        {"copies of one file, other folders, other endings, no name",
         {{"a.ufo", "A",
           packArchive({{"units\\c.fbi", unit("C")}, {"units\\n.fbi", "[UNITINFO]{Name=C;}"}})},
          {"b.ufo", "B",
           packArchive({{"units\\c.fbi", unit("C")},
                        {"units\\old\\c.fbi", unit("C")},
                        {"units\\c.tdf", unit("C")},
                        {"unitsx\\c.fbi", unit("C")}})}},
         "No conflicts\n"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(textOf(row.given), row.text) << row.what;
}

TEST_F(ArchiveReportsTest, menus_overflow_by_two_units_on_a_button_or_by_a_43rd_one) {
    std::string seven;
    std::string many;
    for (int i = 0; i < 42; ++i)
        many += entry("LAB", i / 6 + 2, i % 6, "U" + std::to_string(i));
    for (int i = 0; i < 7; ++i)
        seven += button("P" + std::to_string(i));
    struct Row {
        const char* what;
        std::vector<Given> given;
        bool compress;
        const char* text;
    };
    const Row rows[] = {
        {"download files that agree on all but the unit",
         {{"a.ufo", "A", packArchive({{"download\\a.tdf", entry("Lab", 3, 2, "ONE")}})},
          {"b.ufo", "B", packArchive({{"download\\b.tdf", entry("LAB", 3, 2, "TWO")}})},
          {"c.ufo", "C", packArchive({{"download\\c.tdf", entry("LAB", 3, 2, "one")}})}},
         false,
         "1 overflowing menu\n\nOverflowing menus: 1\nLab\n"
         "    Menu 3, button 2 is wanted by 2\n"
         "        ONE: download\\a.tdf in a.ufo (A)\n        TWO: download\\b.tdf in b.ufo (B)\n"},
        {"a button of the page, but none that holds a placeholder",
         {{"a.hpi", "A", packArchive({{"guis\\LAB2.GUI", button("IGPATCH") + button("ONE")}})},
          {"b.ufo", "B",
           packArchive({{"download\\b.tdf", entry("LAB", 3, 0, "TWO") + entry("LAB", 3, 1, "SIX") +
                                                entry("LAB", 2, 0, "TEN")}})}},
         false,
         "1 overflowing menu\n\nOverflowing menus: 1\nLAB\n"
         "    Menu 3, button 1 is wanted by 2\n"
         "        ONE: guis\\LAB2.GUI in a.hpi (A)\n        SIX: download\\b.tdf in b.ufo (B)\n"},
        {"one more than there are buttons, told once",
         {{"a.ufo", "A", packArchive({{"guis\\LAB9.GUI", button("ONE")}})},
          {"b.ufo", "B", packArchive({{"download\\b.tdf", many + entry("LAB", 8, 5, "U41")}})}},
         false,
         "1 overflowing menu\n\nOverflowing menus: 1\nLAB\n    No room for 1\n"
         "        U41: download\\b.tdf in b.ufo (B)\n"},
        {"a placeholder takes room",
         {{"a.ufo", "A", packArchive({{"guis\\LAB1.GUI", button("igpatch")}})},
          {"b.ufo", "B", packArchive({{"download\\b.tdf", many}})}},
         false,
         "1 overflowing menu\n\nOverflowing menus: 1\nLAB\n    No room for 1\n"
         "        U41: download\\b.tdf in b.ufo (B)\n"},
        {"a placeholder is dropped",
         {{"a.ufo", "A", packArchive({{"guis\\LAB1.GUI", button("igpatch")}})},
          {"b.ufo", "B", packArchive({{"download\\b.tdf", many}})}},
         true,
         "No conflicts\n"},
        {"pages of more buttons than a menu; a file that another archive's replaces",
         {{"a.ufo", "A",
           packArchive({{"guis\\LAB1.GUI", seven}, {"download\\x.tdf", entry("LAB", 2, 0, "X")}})},
          {"b.ufo", "A", packArchive({{"download\\X.TDF", entry("LAB", 3, 0, "X")}})}},
         false,
         "1 doubled file\n\nDoubled files, in one release: 1\n"
         "download\\X.TDF\n    b.ufo (A) is taken\n    a.ufo (A) is not taken\n"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(textOf(row.given, {row.compress, false}), row.text) << row.what;
}

TEST_F(ArchiveReportsTest, damage_is_told_and_the_archives_beside_it_go_on_working) {
    const auto good = packArchive({{"a", "same length"}, {"b", std::string(3000, 'b')}});
    const auto at = good.find("SQSH") + 20;
    const Given beside[] = {{"y.ufo", "Y", packArchive({{"c", "1"}, {"a", "length same"}})},
                            {"z.ufo", "Z", packArchive({{"c", "2"}})}};
    struct Row {
        const char* what;
        std::string bytes;
        bool readEverything;
        const char* damage;
    };
    const Row rows[] = {
        {"empty", "", false, "x.hpi (X): it is no archive, or its beginning is damaged\n"},
        {"a text", std::string(50, 'x'), false,
         "x.hpi (X): it is no archive, or its beginning is damaged\n"},
        {"the last file cut", cut(good, 1), false,
         "x.hpi (X)\n    b: its data lies outside the archive\n"},
        {"both files cut", cut(good, good.size() - 70), false,
         "x.hpi (X)\n    a: its data lies outside the archive\n"
         "    b: its data lies outside the archive\n"},
        {"the directory cut", good.substr(0, 40), false, "x.hpi (X): its directory is damaged\n"},
        {"damage in what is compared", good.substr(0, at) + "?" + good.substr(at + 1), false,
         "x.hpi (X)\n    a: a chunk's checksum is wrong\n"},
        {"damage in what is not", spoilt(good), false, ""},
        {"damage where all is read", spoilt(good), true,
         "x.hpi (X)\n    b: a chunk's checksum is wrong\n"},
    };
    for (const auto& row : rows) {
        const auto reports = reportsOf({beside[0], {"x.hpi", "X", row.bytes}, beside[1]},
                                       {false, row.readEverything});
        const auto text = platform::replaceAll(reports.text(), "\r\n", "\n");
        const std::string damage = row.damage;
        EXPECT_THAT(text,
                    testing::HasSubstr(damage.empty() ? "\n\nDoubled files"
                                                      : "Damaged archives: 1\n" + damage + "\n"))
            << row.what;
        EXPECT_THAT(text, testing::HasSubstr("c\n    z.ufo (Z) is taken\n    y.ufo (Y) is not"))
            << row.what;
    }
    const ChosenArchive missing[] = {{"gone.ufo", game.at("gone.ufo").string(), "A"},
                                     {"readme.txt", game.at("gone.txt").string(), "A"}};
    const auto reports = reportOnArchives(*disk, missing, log);
    ASSERT_EQ(reports.damagedArchives.size(), 1U);
    EXPECT_THAT(reports.damagedArchives[0].reason, testing::StartsWith("it cannot be opened: "));
    EXPECT_EQ(reports.summary(), "1 damaged archive");
}

TEST_F(ArchiveReportsTest, a_version_that_cannot_be_read_leaves_those_of_the_others) {
    const PackedFiles files = {{"a", "1234"}};
    EXPECT_EQ(textOf({{"x.hpi", "X", packArchive(files)},
                      {"y.ufo", "Y", packArchive({{"a", "4321"}})},
                      {"z.gp3", "Z", spoilt(packArchive(files))}}),
              "1 doubled file, 1 damaged archive\n\n"
              "Damaged archives: 1\nz.gp3 (Z)\n    a: a chunk's checksum is wrong\n\n"
              "Doubled files: 1\na\n    y.ufo (Y) is taken\n    x.hpi (X) is not taken\n");
}

TEST_F(ArchiveReportsTest, files_that_lie_over_one_another_come_to_an_end) {
    constexpr std::size_t size = 2'000'000;
    PackedFiles files;
    for (int i = 100; i < 200; ++i)
        files.emplace_back("x" + std::to_string(i), "");
    auto bytes = packArchive(files, {Packing::stored});
    const auto data = bytes.size();
    for (const auto& [name, content] : files)
        for (std::size_t i = 0; i < 4; ++i) {
            const auto record = bytes.find(name + '\0') + name.size() + 1;
            bytes[record + i] = static_cast<char>(data >> (8 * i));
            bytes[record + 4 + i] = static_cast<char>(size >> (8 * i));
        }
    bytes += std::string(size, 'x');
    const auto reports = reportsOf({{"a.ufo", "A", bytes}, {"b.ufo", "B", bytes}});
    ASSERT_EQ(reports.damagedArchives.size(), 1U);
    EXPECT_THAT(reports.damagedArchives[0].files.size(), testing::Gt(80U));
    EXPECT_EQ(reports.damagedArchives[0].files.back().reason, "it lies over other files");
}

TEST_F(ArchiveReportsTest, any_byte_may_be_wrong) {
    std::mt19937 random(7);
    const auto whole = packArchive({{"units\\a.fbi", unit("A")},
                                    {"guis\\LAB1.GUI", button("A") + button("B")},
                                    {"download\\a.tdf", entry("LAB", 2, 1, "C")},
                                    {"large", std::string(70'000, 'x')}},
                                   {Packing::lz77, true, 0});
    for (int i = 0; i < 1000; ++i) {
        auto bytes = whole;
        for (int changes = 0; changes < 3; ++changes)
            bytes[random() % bytes.size()] = static_cast<char>(random());
        const auto text = textOf({{"a.ufo", "A", whole},
                                  {"b.ufo", "B", bytes},
                                  {"c.ufo", "C", packArchive({{"units\\c.fbi", unit("a")}})}},
                                 {false, i % 2 == 0});
        EXPECT_THAT(text, testing::HasSubstr("\n    units\\c.fbi in c.ufo (C)\n"));
        EXPECT_THAT(text, testing::HasSubstr("\n    Menu 2, button 1 is wanted by 2\n"));
    }
}

TEST_F(ArchiveReportsTest, the_archives_of_a_launch_are_read_where_they_lie_and_nothing_changes) {
    game.put("totala1.hpi", packArchive({{"x", "1"}}));
    game.put("Vexillum/Map-Great Divide/a.UFO", packArchive({{"x", "2"}}));
    game.put("Vexillum/Map-Great Divide/maps/loose.ufo", "in no root");
    game.put("Vexillum/Map-Great Divide/readme.txt", "text");
    const auto before = game.files();
    test::ScriptedAnswers answers;
    releases::GameDirectory directory(*disk, log, answers);
    directory.open(game.folder());
    cycle::Selection selection;
    selection.add(releases::ReleaseType::map, "Great Divide");
    const auto archives =
        archivesOf(directory, cycle::makePreview(directory, selection, {}, nullptr, nullptr));
    ASSERT_EQ(archives.size(), 2U);
    EXPECT_EQ(reportOnArchives(*disk, archives, log).text(),
              "1 doubled file\r\n\r\nDoubled files: 1\r\nx\r\n"
              "    a.UFO (Map \"Great Divide\") is taken\r\n"
              "    totala1.hpi (Total Conversion \"Cavedog TA\") is not taken\r\n");
    EXPECT_EQ(test::differences(before, game.files()), "");
    EXPECT_GT(log.breaths, 4);
}

} // namespace
} // namespace conflict
