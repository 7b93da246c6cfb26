// Who gets a place that two entries want.
#include <gtest/gtest.h>

#include "engine/plan.h"

namespace engine {
namespace {

struct Asked {
    std::vector<std::string> questions;
    bool yes = true;

    AskYesNo asker() {
        return [this](const std::string& question) {
            questions.push_back(question);
            return yes;
        };
    }
};

TEST(Plan, a_relative_path_has_no_leading_and_no_doubled_backslash) {
    EXPECT_EQ(cleanRelPath("\\\\units\\\\a"), "units\\a");
    EXPECT_EQ(cleanRelPath("a\\\\\\\\b"), "a\\\\b");
    EXPECT_EQ(cleanRelPath("a"), "a");
    EXPECT_EQ(cleanRelPath("\\"), "");
}

TEST(Plan, the_question_names_the_higher_type_first_and_the_game_last) {
    struct Row {
        ReleaseType earlier;
        const char* earlierName;
        ReleaseType later;
        const char* laterName;
        const char* asked;
    };
    const Row rows[] = {
        {ReleaseType::tc, "Cavedog TA", ReleaseType::map, "M",
         "Both the \"M\" Map and the \"Cavedog TA\" Total Conversion"},
        {ReleaseType::map, "M", ReleaseType::unit, "U", "Both the \"U\" Unit and the \"M\" Map"},
        {ReleaseType::map, "M", ReleaseType::map, "N", "Both the \"N\" Map and the \"M\" Map"},
        {ReleaseType::tc, "Cavedog TA", ReleaseType::tc, "T",
         "Both the \"T\" Total Conversion and the \"Cavedog TA\" Total Conversion"},
        {ReleaseType::tc, "T", ReleaseType::race, "R",
         "Both the \"R\" Race and the \"T\" Total Conversion"},
        {ReleaseType::mod, "M", ReleaseType::ai, "A",
         "Both the \"A\" AI and the \"M\" Modification"},
        {ReleaseType::race, "Cavedog TA", ReleaseType::mod, "M",
         "Both the \"M\" Modification and the \"Cavedog TA\" Race"},
    };
    for (const auto& row : rows) {
        MoveList moves;
        addMove(moves, "x", "x", row.earlier, row.earlierName);
        addMove(moves, "Vexillum\\y", "X", row.later, row.laterName);
        Asked asked;
        resolveClash(moves, 2, findDest(moves, "x"), asked.asker());
        ASSERT_EQ(asked.questions.size(), 1U) << row.asked;
        EXPECT_EQ(asked.questions[0].substr(0, std::string(row.asked).size()), row.asked);
    }
}

TEST(Plan, the_whole_question_reads_as_it_should) {
    MoveList moves;
    addMove(moves, "u\\x", "u\\x", ReleaseType::tc, "Cavedog TA");
    addMove(moves, "Vexillum\\Map-M\\u\\X", "u\\X", ReleaseType::map, "M");
    Asked asked;
    resolveClash(moves, 2, 1, asked.asker());
    EXPECT_EQ(asked.questions[0],
              "Both the \"M\" Map and the \"Cavedog TA\" Total Conversion include a file destined "
              "for \"u/X\".\r\n\r\nDo you want to use the \"M\" one instead of the \"Cavedog TA\" "
              "one?\r\n(Choose Yes if you're not sure)");
    EXPECT_EQ(moves[1].toPath, "Vexillum\\TC-Cavedog TA\\u\\x");
    EXPECT_EQ(moves[1].relName, "Cavedog TA");
    EXPECT_EQ(findDest(moves, "U\\x"), 2);
}

TEST(Plan, the_loser_is_cleared_unless_it_is_the_games) {
    MoveList moves;
    addMove(moves, "x", "x", ReleaseType::tc, "Cavedog TA");
    addMove(moves, "Vexillum\\Map-M\\x", "x", ReleaseType::map, "M");
    Asked asked{{}, false};
    resolveClash(moves, 2, 1, asked.asker());
    EXPECT_EQ(moves[1].toPath, "x");
    EXPECT_EQ(moves[2].fromPath + moves[2].toPath + moves[2].relName, "");
    EXPECT_EQ(moves[2].relType, ReleaseType::none);
    EXPECT_FALSE(moves[2].moves());
}

TEST(Plan, there_is_no_question_without_a_clash) {
    MoveList moves;
    addMove(moves, "x", "x", ReleaseType::tc, "Cavedog TA");
    addMove(moves, "y", "y", ReleaseType::map, "M");
    Asked asked;
    resolveClash(moves, 2, 2, asked.asker());
    resolveClash(moves, 2, -1, asked.asker());
    resolveClash(moves, -1, 2, asked.asker());
    resolveClash(moves, 2, 1, asked.asker());
    EXPECT_TRUE(asked.questions.empty());
    EXPECT_EQ(findDest(moves, "z"), -1);
}

TEST(Plan, a_destination_is_found_at_its_first_entry_still_there) {
    MoveList moves;
    addMove(moves, "a", "Same", ReleaseType::tc, "Cavedog TA");
    addMove(moves, "b", "same", ReleaseType::tc, "Cavedog TA");
    EXPECT_EQ(findDest(moves, "SAME"), 1);
    moves.setToPath(1, "elsewhere");
    EXPECT_EQ(findDest(moves, "SAME"), 2);
    moves.setToPath(1, "sAmE");
    EXPECT_EQ(findDest(moves, "SAME"), 1);
    moves.clear(1);
    moves.clear(2);
    EXPECT_EQ(findDest(moves, "SAME"), -1);
}

} // namespace
} // namespace engine
