// The journal's two texts, and reading back the one that counts.
#include <map>

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

TEST(Journal, both_texts_list_what_changes_and_nothing_else) {
    const std::map<std::string, platform::FolderNames> tree = {
        {"", {{"units"}, {"readme.TXT", "totala.exe"}}},
        {"units", {{}, {"a.fbi", "note.txt"}}},
        {"Vexillum\\Map-Foo", {{"MOVES", "units"}, {"info.txt"}}},
        {"Vexillum\\Map-Foo\\MOVES", {{}, {"m.ufo"}}},
        {"Vexillum\\Map-Foo\\units", {{}, {"A.FBI"}}}};
    const auto listings = [&](const std::string& path) {
        const auto found = tree.find(path);
        return found == tree.end() ? std::nullopt : std::optional(found->second);
    };
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
