// The journal's two texts, and reading back the one that counts.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "cycle/plan.h"
#include "formats/journal.h"

namespace cycle {
namespace {

using formats::humanText;
using formats::journalText;
using formats::readJournal;
using releases::ReleaseType;
using releases::StringArray;

/// Listings of a few folders by their path.
Listings listingsOf(std::map<std::string, StringArray> folders,
                    std::map<std::string, StringArray> files) {
    const auto lookUp = [](auto tree) {
        return [tree](StringArray& names, const std::string& path) {
            const auto found = tree.find(path);
            if (found != tree.end())
                names = found->second;
            return found != tree.end();
        };
    };
    return {lookUp(std::move(folders)), lookUp(std::move(files))};
}

TEST(Journal, both_texts_list_what_changes_and_nothing_else) {
    const auto listings = listingsOf({{"", {"units"}}, {"Vexillum\\Map-Foo", {"MOVES", "units"}}},
                                     {{"", {"totala.exe", "readme.TXT"}},
                                      {"\\units\\", {"a.fbi", "note.txt"}},
                                      {"Vexillum\\Map-Foo", {"info.txt"}},
                                      {"Vexillum\\Map-Foo\\MOVES\\", {"m.ufo"}},
                                      {"Vexillum\\Map-Foo\\units\\", {"A.FBI"}}});
    Plan plan;
    plan.gatherGame(listings);
    plan.gatherRelease(ReleaseType::map, "Foo", listings,
                       {[](const auto&) { return true; }, [](const auto&) { return true; }});
    EXPECT_EQ(journalText(plan.journal()), "MKDIRS\r\nMoves\r\nunits\r\nMOVES\r\n"
                                           "units\\a.fbi\r\n"
                                           "Vexillum\\TC-Cavedog TA\\units\\a.fbi\r\n"
                                           "Vexillum\\Map-Foo\\MOVES\\m.ufo\r\nMOVES\\m.ufo\r\n"
                                           "Vexillum\\Map-Foo\\units\\A.FBI\r\nunits\\A.FBI\r\n");
    EXPECT_EQ(humanText(plan.journal()),
              " Folder Made If Not Existing:\r\nMOVES\r\n"
              " Folder Made If Not Existing:\r\nunits\r\n"
              " Move for Cavedog TA 3:\r\n"
              "units\\a.fbi\t --> \tVexillum\\TC-Cavedog TA\\units\\a.fbi\r\n"
              " Move for Foo 1:\r\nVexillum\\Map-Foo\\MOVES\\m.ufo\t --> \tMOVES\\m.ufo\r\n"
              " Move for Foo 1:\r\nVexillum\\Map-Foo\\units\\A.FBI\t --> \tunits\\A.FBI\r\n");
    const auto journal = readJournal(journalText(plan.journal()));
    ASSERT_TRUE(journal);
    EXPECT_EQ(journal->moves.size(), 3U);
    EXPECT_THAT(journal->folders, testing::ElementsAre("Moves", "units"));
}

TEST(Journal, a_plan_without_changes_is_two_words) {
    EXPECT_EQ(journalText(Plan().journal()), "MKDIRS\r\nMOVES\r\n");
    EXPECT_EQ(humanText(Plan().journal()), "");
}

TEST(Journal, damaged_texts_read_as_far_as_they_can_be_trusted) {
    struct Row {
        std::string_view text;
        int folders; ///< -1 for no journal
        int moves;
    };
    const Row rows[] = {
        {"", -1, 0},
        {"MKDIRS\r\n", -1, 0},
        {"MOVES\r\na\r\nb\r\n", -1, 0},
        {"mkdirs\r\nMOVES\r\n", -1, 0},
        {"MKDIRS \r\nMOVES\r\n", -1, 0},
        {"MKDIRS\r\nMOVES", 0, 0},
        {"x\r\ny\r\nMKDIRS\r\na\r\na\r\nMOVES\r\ns\r\nd", 2, 1},
        {"MKDIRS\r\nMKDIRS\r\nMOVES\r\nMOVES\r\nMOVES\r\n", 1, 1},
        {"MKDIRS\r\nMOVES\r\ns\r\nd\r\nunpaired\r\n", 0, 1},
        {"MKDIRS\nMOVES\ns\nd\n", 0, 1},
        {"MOVES\r\nx\r\nMKDIRS\r\na\r\nMOVES\r\ns\r\nd\r\n", 1, 1},
    };
    for (const auto& row : rows) {
        const auto journal = readJournal(row.text);
        EXPECT_EQ(journal ? static_cast<int>(journal->folders.size()) : -1, row.folders)
            << row.text;
        EXPECT_EQ(journal ? static_cast<int>(journal->moves.size()) : 0, row.moves) << row.text;
    }
}

} // namespace
} // namespace cycle
