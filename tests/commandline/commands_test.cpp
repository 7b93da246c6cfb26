// Commands as a script or the uninstaller gives them.
#include <future>
#include <sstream>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "commandline/commands.h"
#include "packing/zip_writer.h"
#include "platform/instance_lock.h"
#include "support/game.h"
#include "support/system.h"

namespace commandline {
namespace {

using Json = nlohmann::ordered_json;
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

    Json json() const { return Json::parse(output.str()); }

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

TEST_F(CommandsTest, wrong_use_is_told_in_a_line_and_changes_nothing) {
    struct Row {
        std::vector<std::string> arguments;
        const char* told;
    };
    const Row rows[] = {
        {{"--rest"}, "There is no command and no option \"--rest\"."},
        {{"-l"}, "There is no command and no option \"-l\"."},
        {{"--list", "--WIDCF"}, "There is no command and no option \"--WIDCF\"."},
        {{"reset"}, "There is no command: \"reset\"."},
        {{""}, "There is no command: \"\"."},
        {{"--json"}, "There is no command."},
        {{"--"}, "There is no command."},
        {{"--", "--list"}, "There is no command: \"--list\"."},
        {{"--reset", "now"}, "\"--reset\" does not take \"now\"."},
        {{"--version", "--help"}, "One command at a time: \"--version\" and \"--help\" are two."},
        {{"--list", "--json", "--json"}, "\"--json\" stands there twice."},
        {{"--list", "--json=yes"}, "\"--json\" takes no value."},
        {{"--list", "--yes"}, "\"--list\" does not take \"--yes\"."},
        {{"--apply", "--wait"}, "\"--apply\" does not take \"--wait\"."},
        {{"--apply", "--yes", "--no"}, "\"--yes\" and \"--no\" exclude each other."},
        {{"--plan", "A", "B"}, "\"--plan\" does not take \"B\"."},
        {{"--plan="}, "\"--plan\" does not take an empty [SET]."},
        {{"--launch", "--directory", "--wait"}, "\"--directory DIR\" lacks its value."},
        {{"--launch", "--directory="}, "\"--directory DIR\" lacks its value."},
        {{"--add", "x", "--type", "Map"}, "\"--add\" needs \"--name NAME\"."},
        {{"--add", "--type", "Map", "--name", "x"}, "\"--add\" lacks its PATH."},
        {{"--add", "x", "--type", "Maps", "--name", "x"}, "There is no type \"Maps\"."},
        {{"--add", "x", "--type", "Map", "--name", "a*b"}, "Not all characters of \"a*b\""},
        {{"--add", "x", "--type", "Map", "--name", "MISC"}, "\"MISC\" is the folder of single"},
        {{"--remove", "x"}, "\"--remove\" needs \"--type TYPE\"."},
        {{"--set"}, "\"--set\" lacks its NAME=VALUE...."},
        {{"--set", "modifier"}, "\"modifier\" is no assignment."},
        {{"--set", "=on"}, "\"=on\" is no assignment."},
        {{"--set", "small=on", "modifier=true"}, "\"modifier=true\" can be on or off."},
        {{"--set", "small+=on"}, "\"small+=on\" can be on or off."},
        {{"--set", "maps=x"}, "There is nothing called \"maps\" to be set."},
        {{"--set", "tc+=x"}, "\"tc+=x\": there is always one Total Conversion."},
        {{"--set", "map+="}, "\"map+=\" lacks a name."},
        {{"--check", "--no"}, "\"--check\" does not take \"--no\"."},
        {{"--directory"}, "\"--directory DIR\" lacks its value."},
        {{"--directory="}, "\"--directory DIR\" lacks its value."},
        {{"--directory", "--json"}, "\"--directory DIR\" lacks its value."},
        {{"--directory=x", "y"}, "There is no command: \"y\"."},
        {{"--setup"}, "\"--setup\" needs \"--directory DIR\"."},
        {{"--set", "wrapper+=nice"}, "The game cannot be started by \"wrapper+=nice\"."},
    };
    const auto before = game.content("Vexillum/VXL-Sel/selTrlx.txt");
    for (const auto& row : rows) {
        EXPECT_FALSE(windowsLine(row.arguments));
        EXPECT_EQ(give(row.arguments), wrongUsage) << row.told;
        EXPECT_THAT(errors.str(), testing::StartsWith(row.told));
        EXPECT_EQ(output.str(), "") << row.told;
    }
    EXPECT_EQ(game.content("Vexillum/VXL-Sel/selTrlx.txt"), before);
}

TEST(CommandLine, of_the_windows_names_a_directory_at_most) {
    using Words = std::vector<std::string>;
    struct Row {
        Words arguments;
        const char* directory;
        const char* rest;
    };
    for (const auto& row : {Row{{}, "none", ""}, Row{{"--WIDCF"}, "none", "--WIDCF"},
                            Row{{"--directory", "a b"}, "a b", ""},
                            Row{{"--directory=a=b", "--WIDCF"}, "a=b", "--WIDCF"}}) {
        const auto line = windowsLine(row.arguments);
        ASSERT_TRUE(line) << row.directory;
        EXPECT_EQ(line->directory.value_or("none"), row.directory);
        EXPECT_EQ(line->rest, row.rest);
    }
}

TEST_F(CommandsTest, options_stand_in_any_order_and_in_either_form) {
    game.put("Vexillum/VXL-Sets/--odd.txt",
             "Vexillum Set\n[Releases]\nMap \"Gone\"\n[Menu Modifier]\n[Answers]\n");
    for (const auto& arguments : std::vector<std::vector<std::string>>{
             {"--plan", "--json", "--", "--odd"},
             {"--json", "--plan=--odd"},
             {"--directory=" + game.folder(), "--json", "--plan", "--", "--odd"},
             {"--json", "--directory", game.folder() + "/Vexillum/..", "--plan=--odd"}}) {
        EXPECT_EQ(give(arguments), done) << errors.str();
        EXPECT_EQ(json()["missing"], Json::parse(R"([{"type": "Map", "name": "Gone"}])"));
    }
    EXPECT_EQ(give({"--list", "--directory", game.folder() + "/nowhere"}), failed);
    EXPECT_THAT(errors.str(), HasSubstr("There is no folder"));
    EXPECT_EQ(give({"--help"}), done);
    EXPECT_THAT(output.str(), HasSubstr("--reset"));
    EXPECT_EQ(give({"--version"}), done);
    EXPECT_THAT(output.str(), testing::MatchesRegex("Vexillum .*\n"));
}

TEST_F(CommandsTest, lists_and_plans_are_documents_of_their_own) {
    game.put("a.ufo", "the game's");
    game.put("Vexillum/Map-Two~Rivers/a.ufo", "rivers");
    game.put("Vexillum/Unit-Misc/crane.ufo", "crane");
    game.put("Vexillum/Mod-Exe/mod.exe", "exe");
    ASSERT_EQ(give({"--set", "map=TWO/RIVERS", "unit+=crane.ufo", "mod=Exe", "small=on"}), done);
    EXPECT_EQ(give({"--list", "--json"}), done);
    auto listed = json();
    EXPECT_EQ(listed["state"], "plain");
    EXPECT_EQ(listed["selection"], Json::parse(R"({"TC": ["Cavedog TA"], "AI": ["Cavedog AI"],
        "Race": [], "Mod": ["Exe"], "Map": ["Two/Rivers"], "Unit": ["crane.ufo"]})"));
    EXPECT_EQ(listed["modifier"],
              Json::parse(R"({"enabled": false, "compress": false, "small": true})"));
    EXPECT_EQ(give({"--plan", "--json"}), done);
    const auto plan = json();
    auto conflict = Json::parse(R"({"path": "a.ufo",
        "winner": {"type": "Map", "name": "Two/Rivers"},
        "loser": {"type": "TC", "name": "Cavedog TA"}, "loserFile": "a.ufo", "why": "open"})");
    conflict["waitsAt"] = test::shown("Vexillum/TC-Cavedog TA/a.ufo");
    EXPECT_EQ(plan["conflicts"][0], conflict);
    EXPECT_EQ(plan["conflicts"][1]["path"], "totala.exe");
    EXPECT_EQ(plan["conflicts"].size(), 2U);
    EXPECT_EQ(plan["moves"].size(), 5U);
    EXPECT_EQ(plan["questions"].size(), 2U);
    // Loose releases are still listed where they lie in the game.
    ASSERT_EQ(give({"--apply", "--no"}), done) << errors.str();
    EXPECT_EQ(game.content("crane.ufo"), "crane");
    EXPECT_EQ(give({"--list", "--json"}), done);
    EXPECT_EQ(json()["state"], "applied");
    EXPECT_EQ(json()["releases"], listed["releases"]);
    EXPECT_EQ(json()["missing"].size(), 0U);
}

TEST_F(CommandsTest, text_of_any_bytes_makes_good_documents_and_harms_no_terminal) {
    const auto odd = test::onWindows ? std::string("\xC3\xBC x") : std::string("\xFC\x1B[31m x");
    game.put("Vexillum/Map-" + odd + "/" + odd + ".ufo", "no archive");
    game.put("Vexillum/VXL-Sel/selMaps.txt", odd + "\r\n");
    for (const auto* verb : {"--list", "--plan", "--check"}) {
        give({verb, "--json"});
        EXPECT_TRUE(Json::accept(output.str())) << output.str();
        EXPECT_THAT(output.str(), HasSubstr("\xC3\xBC")) << verb;
        give({verb});
        EXPECT_EQ(output.str().find('\x1B'), std::string::npos) << verb;
    }
}

TEST_F(CommandsTest, two_names_of_one_file_in_an_archive_are_a_question_ahead_of_the_release) {
    const auto pack = game.folder() + "/pack.zip";
    game.put("pack.zip", packing::packZip({{"A.txt", "old"}, {"a.TXT", "new"}, {"b.ufo", "b"}}));
    const auto before = game.files();
    const std::vector<std::string> command = {"--add", pack, "--type", "Map", "--name", "New"};
    EXPECT_EQ(give(command), wrongUsage);
    EXPECT_THAT(errors.str(), HasSubstr("Would you like to replace it?"));
    EXPECT_EQ(test::differences(before, game.files()), "");
    EXPECT_FALSE(game.has("Vexillum/Map-New"));
    auto answered = command;
    answered.push_back("--yes");
    EXPECT_EQ(give(answered), done) << errors.str();
    EXPECT_EQ(game.content("Vexillum/Map-New/A.txt"), "new");
    EXPECT_EQ(game.content("Vexillum/Map-New/b.ufo"), "b");
}

TEST_F(CommandsTest, names_that_lead_out_make_no_release) {
    game.put("evil.zip", packing::packZip({{"good.ufo", "g"}, {"../../evil", "e"}}));
    EXPECT_EQ(give({"--add", game.folder() + "/evil.zip", "--type", "Map", "--name", ".."}),
              failed);
    EXPECT_THAT(errors.str(), HasSubstr(test::onWindows ? "cannot end in a dot" : "leads out"));
    EXPECT_FALSE(game.has("Vexillum/Map-.."));
    EXPECT_FALSE(game.has("evil"));
}

TEST_F(CommandsTest, another_copy_holds_the_directory) {
    const auto held = platform::lockFolder(game.folder(), platform::Holder::isLeftAlone);
    // A thread that holds a lock might get it once more.
    const auto giveElsewhere = [this](const std::vector<std::string>& words) {
        return std::async(std::launch::async, [&] { return give(words); }).get();
    };
    EXPECT_EQ(giveElsewhere({"--list"}), failed);
    EXPECT_EQ(errors.str(), "Vexillum is already running in this directory.\n");
    EXPECT_EQ(giveElsewhere({"--list", "--wait"}), wrongUsage) << "nobody waits for the lock first";
}

TEST_F(CommandsTest, an_output_that_cannot_be_written_is_no_success) {
    output.setstate(std::ios::badbit);
    EXPECT_EQ(give({"--list"}), failed);
    EXPECT_THAT(errors.str(), HasSubstr("could not be written"));
}

} // namespace
} // namespace commandline
