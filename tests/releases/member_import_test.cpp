// Files, folders and zip archives on their way into a release's folder.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "packing/zip_writer.h"
#include "platform/failure.h"
#include "platform/text.h"
#include "releases/member_import.h"
#include "support/core.h"
#include "support/system.h"

namespace releases {
namespace {

class MemberImportTest : public testing::Test {
  protected:
    MemberImportTest() {
        directory.open(game.folder());
        game.makeFolder("Vexillum/Map-New");
    }

    int import(const std::vector<std::string>& paths, std::deque<std::string> answers = {}) {
        user.answers = std::move(answers);
        MemberImport members(directory, directory.inDataTree(release), [this](const auto& at) {
            progress.push_back(at.done);
            return progress.size() < stopAt;
        });
        const auto result = members.copy(paths);
        leftOut = result.leftOut;
        return result.copied();
    }
    std::string outside(const std::string& path, const std::string& content) {
        game.put("outside/" + path, content);
        return game.folder() + "/outside/" + path;
    }
    std::optional<std::string> member(const std::string& path) const {
        return game.content("Vexillum/" + release + "/" + path);
    }

    test::Game game;
    std::string release = "Map-New";
    std::unique_ptr<platform::Disk> disk = platform::makeDisk();
    platform::NoLog nobody;
    test::ScriptedAnswers user;
    std::vector<std::string>& told = user.asked;
    GameDirectory directory{*disk, nobody, user};
    std::vector<int> progress;
    int leftOut = 0;
    std::size_t stopAt = 1'000'000;
};

TEST_F(MemberImportTest, files_and_folders_keep_their_shape) {
    outside("pack/maps/a.ota", "a");
    outside("pack/deep/er/b", "b");
    game.makeFolder("outside/pack/empty");
    const auto file = outside("c.ufo", std::string(3'000'000, 'c'));
    EXPECT_EQ(import({game.folder() + "/outside/pack", file}), 3);
    EXPECT_EQ(member("pack/maps/a.ota"), "a");
    EXPECT_EQ(member("pack/deep/er/b"), "b");
    EXPECT_TRUE(game.has("Vexillum/Map-New/pack/empty"));
    EXPECT_EQ(member("c.ufo")->size(), 3'000'000U);
    EXPECT_TRUE(std::is_sorted(progress.begin(), progress.end()));
    EXPECT_EQ(progress.back(), 1000);
    EXPECT_TRUE(told.empty());
}

TEST_F(MemberImportTest, a_single_top_folder_of_an_archive_is_not_made) {
    struct Case {
        packing::PackedFiles files;
        std::vector<std::string> members;
    };
    const Case cases[] = {
        {{{"Top/", ""}, {"Top/a", "a"}, {"Top/sub/b", "b"}}, {"a", "sub/b"}},
        {{{"Top/a", "a"}}, {"a"}},
        {{{"Top/a", "a"}, {"readme.txt", "r"}}, {"Top/a", "readme.txt"}},
        {{{"One/a", "a"}, {"Two/b", "b"}}, {"One/a", "Two/b"}},
        {{{"single", "a"}}, {"single"}},
        // The game looks for its files below folders of its own.
        {{{"Maps/", ""}, {"Maps/a.ota", "a"}}, {"Maps/a.ota"}},
        {{{"units/a.fbi", "a"}, {"units/deep/b", "b"}}, {"units/a.fbi", "units/deep/b"}},
        {{{"maps/a.ufo", "a"}, {"maps/a.txt", "b"}}, {"a.ufo", "a.txt"}},
    };
    for (const auto& c : cases) {
        release += "er";
        game.makeFolder("Vexillum/" + release);
        EXPECT_EQ(import({outside("pack.ZIP", packing::packZip(c.files))}),
                  static_cast<int>(c.members.size()));
        for (const auto& name : c.members)
            EXPECT_TRUE(member(name)) << name;
    }
    EXPECT_TRUE(told.empty());
}

TEST_F(MemberImportTest, names_that_lead_out_are_left_out_and_told_of) {
    const packing::PackedFiles hostile = {
        {"../evil", "e"},     {"a/../../evil", "e"}, {"/evil", "e"},
        {"..\\evil", "e"},    {"C:\\evil", "e"},     {"c:evil", "e"},
        {"line\nbreak", "e"}, {"./good", "g"},       {"dir\\windows", "w"}};
    EXPECT_EQ(import({outside("pack.zip", packing::packZip(hostile))}), 2);
    EXPECT_EQ(member("good"), "g");
    EXPECT_EQ(member("dir/windows"), "w");
    EXPECT_EQ(told.size(), 7U);
    EXPECT_EQ(leftOut, 7);
    for (const auto& [path, content] : game.files())
        EXPECT_EQ(path.find("evil"), std::string::npos) << path;
}

TEST_F(MemberImportTest, nothing_is_replaced_without_a_question) {
    game.put("Vexillum/Map-New/A.txt", "mine");
    game.put("Vexillum/Map-New/b.txt", "mine");
    game.makeFolder("Vexillum/Map-New/c.txt");
    const auto pack =
        packing::packZip({{"a.txt", "new"}, {"b.txt", "new"}, {"c.txt", "new"}, {"d", "new"}});
    EXPECT_EQ(import({outside("pack.zip", pack)}, {"Yes", "No"}), 2);
    EXPECT_EQ(member("A.txt"), "new");
    EXPECT_EQ(member("b.txt"), "mine");
    EXPECT_EQ(member("d"), "new");
    EXPECT_THAT(told, testing::ElementsAre(
                          testing::StartsWith("\"a.txt\" is in the release's directory already."),
                          testing::StartsWith("\"b.txt\" is in the release's directory already."),
                          testing::StartsWith("\"c.txt\" could not be copied.")));
}

TEST_F(MemberImportTest, names_of_one_archive_that_differ_in_case_are_one_file) {
    const auto pack =
        packing::packZip({{"Units/a.txt", "a"}, {"units/b.txt", "old"}, {"Units/B.txt", "new"}});
    EXPECT_EQ(import({outside("pack.zip", pack)}, {"No"}), 2);
    EXPECT_EQ(member("Units/b.txt"), "old");
    EXPECT_FALSE(game.has("Vexillum/Map-New/Units/B.txt"));
    EXPECT_THAT(told, testing::ElementsAre(testing::StartsWith('"' + test::shown("Units/B.txt") +
                                                               "\" is in the release's")));
    release = "Map-Newer";
    game.makeFolder("Vexillum/Map-Newer");
    EXPECT_EQ(import({outside("pack.zip", pack)}, {"Yes"}), 2);
    EXPECT_EQ(member("Units/b.txt"), "new");
    EXPECT_EQ(disk->fileNames(game.folder() + "\\Vexillum\\Map-Newer\\Units").size(), 2U);
}

TEST_F(MemberImportTest, a_damaged_archive_gives_what_is_healthy_in_it) {
    const auto healthy =
        packing::packZip({{"a", std::string(1000, 'a')}, {"b", std::string(1000, 'b')}, {"c", "c"}},
                         "zip:compression=store");
    auto damaged = healthy;
    damaged[damaged.find("bbbb") + 10] = 'x';
    EXPECT_EQ(import({outside("damaged.zip", damaged), outside("text.zip", "no archive"),
                      outside("none.zip", ""), outside("cut.zip", healthy.substr(0, 600))}),
              2);
    EXPECT_TRUE(member("a"));
    EXPECT_FALSE(member("b"));
    EXPECT_TRUE(member("c"));
    EXPECT_EQ(told.size(), 4U);
    EXPECT_EQ(disk->fileNames(game.folder() + "\\Vexillum\\Map-New").size(), 2U);
}

TEST_F(MemberImportTest, the_user_may_stop_in_the_middle_of_a_file) {
    const auto first = outside("first", "1");
    const auto large = outside("large", std::string(5'000'000, 'x'));
    stopAt = 5;
    EXPECT_EQ(import({first, large}), 1);
    EXPECT_TRUE(member("first"));
    EXPECT_FALSE(member("large"));
}

TEST_F(MemberImportTest, names_in_any_language_come_through) {
    const std::string german = "gr\xC3\xBCn/read.txt";
    const auto pack = packing::packZip({{german, "g"}, {"a/b", "b"}}, "zip:hdrcharset=UTF-8");
    // Neither of the two says how its name is written.
    const auto old = platform::replaceAll(packing::packZip({{"_lt.txt", "o"}}), "_lt", "\x81lt");
    const auto unsaid = platform::replaceAll(packing::packZip({{"__ber.txt", "u"}}), "__ber",
                                             "\xC3\xBC"
                                             "ber");
    EXPECT_EQ(
        import({outside("pack.zip", pack), outside("old.zip", old), outside("unsaid.zip", unsaid)}),
        4);
    EXPECT_EQ(member(german), "g");
    EXPECT_EQ(member("\xC3\xBClt.txt"), "o");
    EXPECT_EQ(member("\xC3\xBC"
                     "ber.txt"),
              "u");
}

TEST_F(MemberImportTest, links_are_not_followed_round_in_a_ring) {
    outside("pack/a", "a");
    if (!test::makeLink(".", game.at("outside/pack/ring")))
        GTEST_SKIP() << "the system makes no links";
    EXPECT_EQ(import({game.folder() + "/outside/pack/"}), 1);
    EXPECT_EQ(member("pack/a"), "a");
    EXPECT_EQ(leftOut, 1);
}

TEST_F(MemberImportTest, a_folder_that_has_vanished_is_made_anew) {
    release = "Map-Gone";
    EXPECT_EQ(import({outside("pack.zip", packing::packZip({{"a", "a"}}))}), 1);
    EXPECT_EQ(member("a"), "a");
}

TEST_F(MemberImportTest, the_release_copied_into_itself_has_an_end) {
    game.put("Vexillum/Map-New/a", "a");
    EXPECT_EQ(import({game.folder() + "/Vexillum/Map-New"}), 1);
    EXPECT_EQ(member("Map-New/a"), "a");
    EXPECT_FALSE(game.has("Vexillum/Map-New/Map-New/Map-New"));
}

} // namespace
} // namespace releases
