// What dropped files are taken for, and how much there is of a release.
#include <gtest/gtest.h>

#include "packing/archive_writer.h"
#include "packing/zip_writer.h"
#include "platform/text.h"
#include "releases/guess.h"
#include "releases/tally.h"
#include "support/game.h"
#include "support/system.h"

namespace releases {
namespace {

class GuessTest : public testing::Test {
  protected:
    std::string path(const std::string& name) const { return game.folder() + "/" + name; }

    test::Game game;
    std::unique_ptr<platform::Disk> disk = platform::makeDisk();
};

TEST_F(GuessTest, a_type_is_told_by_what_lies_inside) {
    const struct {
        const char* file;
        ReleaseType type;
    } cases[] = {
        {"maps/a.ota", ReleaseType::map},    {"UNITS/A.FBI", ReleaseType::unit},
        {"ai/default.txt", ReleaseType::ai}, {"gamedata/sidedata.tdf", ReleaseType::race},
        {"totala1.hpi", ReleaseType::tc},    {"weapons/w.tdf", ReleaseType::mod},
        {"readme.txt", ReleaseType::none},   {"mapsalike/a.ota", ReleaseType::none},
    };
    int number = 0;
    for (const auto& each : cases) {
        const auto folder = "drop" + std::to_string(++number);
        game.put(folder + "/in/" + each.file, "x");
        EXPECT_EQ(guessRelease(*disk, {path(folder)}).type, each.type) << each.file;
    }
}

TEST_F(GuessTest, archives_are_looked_into_also_inside_a_zip) {
    const auto ufo = packing::packArchive({{"maps\\divide.ota", "[GlobalHeader]"}});
    game.put("Great Divide v1.2.ufo", ufo);
    game.put("pack.zip", packing::packZip({{"x/divide.ufo", ufo}}));
    game.put("cut.ufo", ufo.substr(0, ufo.size() / 2));
    game.put("no.zip", "PK\x03\x04 and no more");
    const auto map = guessRelease(*disk, {path("Great Divide v1.2.ufo")});
    EXPECT_EQ(map.type, ReleaseType::map);
    EXPECT_EQ(map.name, "Great Divide v1.2");
    EXPECT_EQ(guessRelease(*disk, {path("pack.zip")}).type, ReleaseType::map);
    EXPECT_EQ(guessRelease(*disk, {path("no.zip")}).type, ReleaseType::none);
    guessRelease(*disk, {path("cut.ufo")});
    EXPECT_EQ(guessRelease(*disk, {path("not there")}).type, ReleaseType::none);
}

TEST_F(GuessTest, a_name_has_only_what_names_may_have) {
    const std::pair<const char*, const char*> cases[] = {{"a+b!.zip", "ab"},
                                                         {"..hidden..", "hidden"},
                                                         {"+++.ufo", ""},
                                                         {"My Map.v2.ufo", "My Map.v2"}};
    for (const auto& [file, name] : cases) {
        game.put(file, "x");
        EXPECT_EQ(guessRelease(*disk, {path(file)}).name, name) << file;
    }
}

TEST_F(GuessTest, the_only_map_or_unit_tells_name_and_text) {
    const std::string ota = "[GlobalHeader]{missionname=Great: Divide;missiondescription=One "
                            "bridge;size=4 x 6;numplayers=2;planet=Green;}";
    const std::string fbi = "[UNITINFO]{UnitName=CRANE;Description=Lifts;Side=ARM;"
                            "BuildCostMetal=1200;}";
    const auto ufo = [](const packing::PackedFiles& files) { return packing::packArchive(files); };
    game.put("map.ufo", ufo({{"maps\\d.ota", ota}, {"units\\c.fbi", fbi}}));
    game.put("unit.ufo", ufo({{"units\\c.fbi", fbi}}));
    game.put("two.ufo", ufo({{"maps\\d.ota", ota}, {"maps\\e.ota", ota}}));
    game.put("in.zip", packing::packZip({{"x/in.ufo", ufo({{"maps\\d.ota", ota}})}}));
    game.put("loose/maps/d.ota", ota);
    game.put("nothing.ufo", ufo({{"maps\\d.ota", "missionname=x;"}}));
    game.put("spare.ufo", ufo({{"maps\\d.ota", "[GlobalHeader]{missionname=+++;}"}}));
    const std::string mapText = "One bridge\r\n4 x 6, 2 players, Green\r\n";
    const struct {
        const char* file;
        const char* name;
        std::string about;
    } rows[] = {{"map.ufo", "Great Divide", mapText},
                {"unit.ufo", "CRANE", "Lifts\r\nARM, 1,200 metal\r\n"},
                {"two.ufo", "two", ""},
                {"in.zip", "Great Divide", mapText},
                {"loose", "Great Divide", mapText},
                {"nothing.ufo", "nothing", ""},
                {"spare.ufo", "spare", ""}};
    for (const auto& row : rows) {
        const auto guess = guessRelease(*disk, {path(row.file)});
        EXPECT_EQ(guess.name, row.name) << row.file;
        EXPECT_EQ(guess.about, row.about) << row.file;
    }
}

TEST_F(GuessTest, a_tally_counts_bit_by_bit) {
    for (int number = 0; number < 1200; ++number)
        game.put("r/deep/" + std::to_string(number), "12");
    Tally tally(*disk, {path("r")});
    EXPECT_TRUE(tally.step(5));
    EXPECT_LT(tally.files(), 6U);
    while (tally.step(100)) {
    }
    EXPECT_TRUE(tally.text().starts_with("1,200 files, 2.3 KB, 20")) << tally.text();
    Tally none(*disk, {path("gone")});
    EXPECT_FALSE(none.step(10));
    EXPECT_EQ(none.text(), "No files");
}

} // namespace
} // namespace releases
