// Commands as a script or the uninstaller gives them.
#include <sstream>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "commandline/commands.h"
#include "support/game.h"

namespace commandline {
namespace {

using testing::HasSubstr;

class NoPrograms final : public platform::Programs {
  public:
    void start(const platform::Command& /*command*/) override { ADD_FAILURE(); }
    std::unique_ptr<platform::RunningProgram>
    startWatched(const platform::Command& command) override {
        start(command);
        return nullptr;
    }
    bool isRunning(const std::string& /*program*/) override { return runs; }
    bool runs = false;
};

class CommandsTest : public testing::Test {
  protected:
    ExitCode give(const std::vector<std::string>& arguments) {
        output.str({});
        errors.str({});
        const auto disk = platform::makeDisk();
        return run({*disk, programs, game.folder(), output, errors}, arguments);
    }

    /// A launch as it is on the disk: one map lies in the game, in the place of the game's own
    /// file.
    void apply() const {
        game.put("Vexillum/VXL-Changes/Internal.txt",
                 "MKDIRS\r\nMOVES\r\na.ufo\r\nVexillum\\TC-Cavedog TA\\a.ufo\r\n"
                 "Vexillum\\Map-One\\a.ufo\r\na.ufo\r\n");
        game.put("Vexillum/VXL-Sel/selMaps.txt", "One\r\n");
        game.makeFolder("Vexillum/Map-One");
        game.put("a.ufo", "the map's");
        game.put("Vexillum/TC-Cavedog TA/a.ufo", "the game's");
    }

    test::Game game;
    NoPrograms programs;
    std::ostringstream output;
    std::ostringstream errors;
};

TEST_F(CommandsTest, a_reset_makes_the_directory_plain_and_keeps_the_selection) {
    apply();
    EXPECT_EQ(give({"--reset"}), done) << errors.str();
    EXPECT_EQ(game.content("a.ufo"), "the game's");
    EXPECT_EQ(game.content("Vexillum/Map-One/a.ufo"), "the map's");
    EXPECT_EQ(game.content("Vexillum/VXL-Sel/selMaps.txt"), "One\r\n");
    EXPECT_THAT(output.str(), HasSubstr("Done"));
    const auto plain = game.files();
    EXPECT_EQ(give({"--reset"}), done) << "once more";
    EXPECT_EQ(test::differences(plain, game.files()), "");
}

TEST_F(CommandsTest, a_reset_that_cannot_move_all_says_which_and_fails) {
    apply();
    game.put("Vexillum/Map-One/a.ufo", "somebody else's");
    EXPECT_EQ(give({"--reset"}), failed);
    EXPECT_THAT(errors.str(), HasSubstr("a.ufo"));
    EXPECT_EQ(game.content("Vexillum/Map-One/a.ufo"), "somebody else's");
}

TEST_F(CommandsTest, nothing_is_reset_under_a_running_game_or_without_a_data_tree) {
    apply();
    const auto applied = game.files();
    programs.runs = true;
    EXPECT_EQ(give({"--reset"}), failed);
    EXPECT_THAT(errors.str(), HasSubstr("still running"));
    EXPECT_EQ(test::differences(applied, game.files()), "");
    programs.runs = false;
    game.remove("Vexillum");
    EXPECT_EQ(give({"--reset"}), failed);
    EXPECT_THAT(errors.str(), HasSubstr("There is no folder"));
}

TEST_F(CommandsTest, folders_of_the_trellis_names_are_the_users_once_a_launch_is_undone) {
    apply();
    game.put("Vexillum/VXL-Sel/selTrlx.txt", "True\r\nFalse\r\nFalse\r\n");
    give({"--reset"});
    game.put("guis/mine.gui", "mine");
    EXPECT_EQ(give({"--reset"}), done) << errors.str();
    EXPECT_EQ(game.content("guis/mine.gui"), "mine");
}

TEST_F(CommandsTest, what_is_no_command_is_refused_with_the_usage) {
    for (const auto& arguments : std::vector<std::vector<std::string>>{
             {"--rest"}, {"--reset", "now"}, {"--version", "--help"}, {"reset"}, {""}}) {
        EXPECT_TRUE(isCommand(arguments));
        EXPECT_EQ(give(arguments), wrongUsage);
        EXPECT_THAT(errors.str(), HasSubstr("Usage:"));
        EXPECT_EQ(output.str(), "");
    }
    EXPECT_EQ(give({"--help"}), done);
    EXPECT_THAT(output.str(), HasSubstr("--reset"));
    EXPECT_EQ(give({"--version"}), done);
    EXPECT_THAT(output.str(), testing::MatchesRegex("Vexillum .*\n"));
    EXPECT_FALSE(isCommand({}));
    EXPECT_FALSE(isCommand({"--WIDCF"})) << "it needs the window";
}

} // namespace
} // namespace commandline
