// A friend's list: what it says of the releases here, what it finds there, and what is no list.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "cycle/release_list.h"
#include "platform/text.h"
#include "support/core.h"

namespace cycle {
namespace {

using releases::ReleaseType;
using testing::HasSubstr;

const std::string plainList = "Vexillum Release List\r\nMap \"A\"\r\n    1 0000abCD maps/a.ota\r\n"
                              "End\r\n";

class ReleaseListTest : public testing::Test {
  protected:
    ReleaseListTest() {
        game.put("Vexillum/Map-Two~Rivers/maps/a.ota", "123456789");
        game.put("Vexillum/Map-Two~Rivers/maps/sub/deep.ota", "too deep");
        game.put("Vexillum/Map-Two~Rivers/Info.txt", "mine");
        game.put("Vexillum/Map-Two~Rivers/b.ufo", "");
        game.put("Vexillum/Unit-Misc/Crane.ufo", std::string(3 << 20, 'c'));
        game.put("Vexillum/TC-Other/maps/c.txt", "rules");
        directory.open(game.folder());
        store.read();
        selection.choose(ReleaseType::tc, "Other");
        for (const auto* name : {"Two/Rivers", "Gone", "Two/Rivers"})
            selection.add(ReleaseType::map, name);
        selection.add(ReleaseType::unit, "Crane.ufo");
    }

    std::string compared(const std::string& text) {
        ReleaseList list;
        EXPECT_EQ(readReleaseList(text, list), "");
        return platform::replaceAll(compare(list, directory, store).text(), "\r\n", "|");
    }

    test::Game game;
    std::unique_ptr<platform::Disk> disk = platform::makeDisk();
    test::RecordedLog log;
    test::ScriptedAnswers user;
    releases::GameDirectory directory{*disk, log, user};
    releases::Store store{directory};
    Selection selection;
};

TEST_F(ReleaseListTest, a_list_tells_what_a_launch_lays_into_the_game) {
    const auto list = listReleases(directory, store, selection);
    const auto text = textOf(list);
    EXPECT_THAT(text, HasSubstr("\r\nMap \"Two/Rivers\"\r\n    0 00000000 b.ufo\r\n"
                                "    9 cbf43926 maps/a.ota\r\nUnit \"Crane.ufo\"\r\n"
                                "    3145728 "));
    EXPECT_THAT(text, HasSubstr(" Crane.ufo\r\nTotal Conversion \"Other\"\r\n    5 "));
    EXPECT_TRUE(text.ends_with(" maps/c.txt\r\nEnd\r\n")) << text;
    ReleaseList again;
    EXPECT_EQ(readReleaseList("\xEF\xBB\xBF" + platform::replaceAll(text, "\r\n", "\n"), again),
              "");
    EXPECT_EQ(again, list);
    EXPECT_EQ(compared(text), "3 releases are here as in the list, and nothing is missing.|");
}

TEST_F(ReleaseListTest, what_is_missing_or_another_version_is_told_in_order) {
    auto text = textOf(listReleases(directory, store, selection));
    text = platform::replaceAll(text, "End\r\n", "Race \"B\"\r\nMap \"A\"\r\nEnd\r\n");
    text = platform::replaceAll(text, "\"Two/Rivers\"", "\"TWO/Rivers\"");
    text = platform::replaceAll(text, "maps/a.ota", "MAPS/a.ota");
    game.put("Vexillum/Map-Two~Rivers/maps/a.ota", "123456780");
    game.put("Vexillum/Map-Two~Rivers/new.ufo", "");
    game.remove("Vexillum/Map-Two~Rivers/b.ufo");
    game.put("Vexillum/TC-Other/maps/c.txt", "longer rules");
    game.put("Vexillum/TC-Other/readme.txt", "mine");
    const auto shown = [](const char* path) { return platform::shownPath(path); };
    EXPECT_EQ(compared(text),
              "These releases are missing here:||    Race \"B\"|    Map \"A\"||"
              "These releases are here in another version:||Map \"TWO/Rivers\"|"
              "    b.ufo is missing here|    " +
                  shown("MAPS\\a.ota") +
                  " is another file here|    new.ufo is not in the list||Total Conversion "
                  "\"Other\"|    " +
                  shown("maps\\c.txt") +
                  " is another file here||1 release is here as in the list.|");
}

TEST_F(ReleaseListTest, a_text_that_is_no_list_is_refused_with_the_reason) {
    struct Row {
        const char* what;
        std::string by;
        const char* reason;
    };
    const Row rows[] = {
        {"Vexillum Release List", "Vexillum Set", "no list of releases"},
        {"Vexillum", std::string("\0\xff", 2), "no list of releases"},
        {"End", std::string((32U << 20) + 1, 'x'), "too large"},
        {"End\r\n", "", "breaks off"},
        {"Map", "Maps", "Line 2 names no release"},
        {"\"A\"", "\"..\\..\\A\"", "Line 2 has a name that no release can have"},
        {"\"A\"", "\"..\"", "Line 2 has a name"},
        {"maps/a.ota", "../a.ota", "Line 3 names a file that no release can have"},
        {"maps/a.ota", "maps\\..\\..\\a.ota", "Line 3 names a file that"},
        {"maps/a.ota", "/etc/passwd", "Line 3 names a file that"},
        {"maps/a.ota", "C:\\a", "Line 3 names a file that"},
        {"maps/a.ota", "a\tb", "Line 3 names a file that"},
        {"maps/a.ota", "", "Line 3 names a file that"},
        {"maps/a.ota", std::string(2000, 'a'), "Line 3 names a file that"},
        {"0000abCD", "abCD", "Line 3 has no size and checksum"},
        {" 1 ", " -1 ", "Line 3 has no size and checksum"},
        {" 1 ", " 99999999999999999999 ", "Line 3 has no size and checksum"},
        {"Map \"A\"\r\n", "", "Line 2 names a file of no release"},
        {"End", "Map \"a\"\r\nEnd", "Line 4 names a release once more"},
        {"End", "    1 0000abcd MAPS/./a.ota\r\nEnd", "Line 4 names a file once more"},
    };
    ReleaseList list;
    EXPECT_EQ(readReleaseList(plainList, list), "");
    const auto before = list;
    ASSERT_EQ(list, (ReleaseList{{{ReleaseType::map, "A"}, {{"maps\\a.ota", 1, 0xabcd}}}}));
    for (const auto& row : rows) {
        const auto text = platform::replaceAll(plainList, row.what, row.by);
        EXPECT_THAT(readReleaseList(text, list), HasSubstr(row.reason)) << row.what;
        EXPECT_EQ(list, before);
    }
}

} // namespace
} // namespace cycle
