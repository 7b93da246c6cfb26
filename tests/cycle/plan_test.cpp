// Who gets a place that two entries want.
#include <map>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "cycle/plan.h"
#include "support/system.h"

namespace cycle {
namespace {

using releases::ReleaseType;

struct Asked {
    std::vector<std::string> questions;
    bool yes = true;

    Answers answers() {
        return {[this](const ClashQuestion& question) { return note(question.text()); },
                [this](const ExeQuestion& question) { return note(question.text()); }};
    }

  private:
    bool note(const std::string& question) {
        questions.push_back(question);
        return yes;
    }
};

void settle(MoveList& moves, int idxA, int idxB, Asked& asked) {
    std::vector<Clash> clashes;
    resolveClash(moves, idxA, idxB, asked.answers(), clashes);
}

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
        settle(moves, 2, findDest(moves, "x"), asked);
        ASSERT_EQ(asked.questions.size(), 1U) << row.asked;
        EXPECT_EQ(asked.questions[0].substr(0, std::string(row.asked).size()), row.asked);
    }
}

TEST(Plan, the_whole_question_reads_as_it_should) {
    MoveList moves;
    addMove(moves, "u\\x", "u\\x", ReleaseType::tc, "Cavedog TA");
    addMove(moves, "Vexillum\\Map-M\\u\\X", "u\\X", ReleaseType::map, "M");
    Asked asked;
    settle(moves, 2, 1, asked);
    EXPECT_EQ(asked.questions[0],
              "Both the \"M\" Map and the \"Cavedog TA\" Total Conversion include a file destined "
              "for \"" +
                  test::shown("u/X") +
                  "\".\r\n\r\nDo you want to use the \"M\" one instead of the \"Cavedog TA\" "
                  "one?\r\n(Choose Yes if you're not sure)");
    EXPECT_EQ(moves[1].toPath, "Vexillum\\TC-Cavedog TA\\u\\x");
    EXPECT_EQ(moves[1].relName, "Cavedog TA");
    EXPECT_EQ(findDest(moves, "U\\x"), 2);
}

TEST(Plan, the_loser_is_cleared_unless_it_is_the_games) {
    MoveList moves;
    addMove(moves, "x", "x", ReleaseType::tc, "Cavedog TA");
    addMove(moves, "Vexillum\\Map-M\\x", "x", ReleaseType::map, "M");
    Asked asked;
    asked.yes = false;
    settle(moves, 2, 1, asked);
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
    settle(moves, 2, 2, asked);
    settle(moves, 2, -1, asked);
    settle(moves, -1, 2, asked);
    settle(moves, 2, 1, asked);
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

/// Listings of a few folders by their path, as a disk would give them.
class Tree {
  public:
    Tree& folder(const std::string& path, std::vector<std::string> folders,
                 std::vector<std::string> files) {
        names_[path] = {std::move(folders), std::move(files)};
        return *this;
    }
    Listings listings() const {
        return [this](const std::string& path) {
            const auto found = names_.find(path);
            return found == names_.end() ? std::nullopt : std::optional(found->second);
        };
    }

  private:
    std::map<std::string, platform::FolderNames> names_;
};

Selection modsSelected(std::initializer_list<const char*> names) {
    Selection selection;
    for (const auto* name : names)
        selection.add(ReleaseType::mod, name);
    return selection;
}

TEST(Plan, keeps_every_clash_with_its_winner_and_why) {
    Tree tree;
    tree.folder("", {"units"}, {"TOTALA.EXE"})
        .folder("units", {}, {"a"})
        .folder("Vexillum\\Mod-One", {"UNITS"}, {"race.exe"})
        .folder("Vexillum\\Mod-One\\UNITS", {}, {"A"})
        .folder("Vexillum\\Mod-Two", {"units"}, {})
        .folder("Vexillum\\Mod-Two\\units", {}, {"a"});
    Asked asked;
    const auto plan = Plan::make(modsSelected({"One", "Two"}), tree.listings(), asked.answers());
    ASSERT_EQ(plan.clashes().size(), 3U);
    const auto& byGame = plan.clashes()[0];
    EXPECT_EQ(byGame.place, "UNITS\\A");
    EXPECT_EQ(byGame.winner.relName, "One");
    EXPECT_TRUE(byGame.loser.isGames());
    EXPECT_EQ(byGame.why, Why::answered);
    EXPECT_EQ(byGame.waitsAt, "Vexillum\\TC-Cavedog TA\\units\\a");
    const auto& byRelease = plan.clashes()[1];
    EXPECT_EQ(byRelease.winner.relName, "Two");
    EXPECT_EQ(byRelease.loser.fromPath, "Vexillum\\Mod-One\\UNITS\\A");
    EXPECT_EQ(byRelease.waitsAt, "");
    const auto& byExe = plan.clashes()[2];
    EXPECT_EQ(byExe.why, Why::chosenAsGame);
    EXPECT_EQ(byExe.winner.fromPath, "Vexillum\\Mod-One\\race.exe");
    EXPECT_EQ(byExe.loser.fromPath, "TOTALA.EXE") << "the game's program, whatever its case";
    EXPECT_EQ(byExe.waitsAt, "Vexillum\\TC-Cavedog TA\\TOTALA.EXE");
    const auto journal = plan.journal();
    ASSERT_EQ(journal.moves.size(), 4U);
    EXPECT_EQ(journal.moves[0].destination, byExe.waitsAt);
    EXPECT_EQ(journal.moves[2].destination, "totala.exe");
    EXPECT_THAT(journal.folders, testing::ElementsAre("UNITS")) << "each folder once";
}

TEST(Plan, the_games_file_that_wins_keeps_its_place) {
    Tree tree;
    tree.folder("", {}, {"a"}).folder("Vexillum\\Mod-One", {}, {"a", "b.exe", "c.exe"});
    Asked asked;
    asked.yes = false;
    const auto plan = Plan::make(modsSelected({"One"}), tree.listings(), asked.answers());
    EXPECT_EQ(asked.questions.size(), 3U) << "a clash, and each EXE until one is taken";
    ASSERT_EQ(plan.clashes().size(), 1U);
    EXPECT_TRUE(plan.clashes()[0].winner.isGames());
    EXPECT_EQ(plan.clashes()[0].waitsAt, "");
    EXPECT_EQ(plan.journal().moves.size(), 2U);
}

} // namespace
} // namespace cycle
