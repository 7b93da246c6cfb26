// Where games are found, in made-up homes, and what a set-up leaves where it is disturbed.
#include <gtest/gtest.h>

#include "installation/data_tree.h"
#include "installation/known_directories.h"
#include "installation/search.h"
#include "platform/failure.h"
#include "platform/memory_disk.h"
#include "platform/text.h"
#include "support/faulty_disk.h"
#include "support/game.h"

namespace installation {
namespace {

using Paths = std::vector<std::string>;

/// As the system of the made-up homes has them.
Paths inPosixForm(Paths paths) {
    for (auto& path : paths)
        path = platform::replaceAll(platform::replaceAll(path, "\\", "/"), "//", "/");
    return paths;
}

struct Home {
    const char* title;
    Paths files;
    Paths found;
};

class FindDirectories : public testing::TestWithParam<Home> {};

TEST_P(FindDirectories, that_hold_the_game) {
    const auto raw = std::make_shared<platform::MemoryDisk>();
    raw->putFolder("/me");
    for (const auto& file : GetParam().files)
        if (const auto arrow = file.find(" -> "); arrow != std::string::npos)
            raw->putLink(file.substr(0, arrow), file.substr(arrow + 4));
        else
            raw->put(file, "");
    platform::Disk disk(raw);
    const auto found =
        findDirectories(disk, {"/here", "/me", "/me/.config", "/me/data", "/prefix", {}});
    EXPECT_EQ(inPosixForm(found), GetParam().found);
}

INSTANTIATE_TEST_SUITE_P(
    All, FindDirectories,
    testing::Values(
        Home{"nothing", {"/me/notes.txt"}, {}}, Home{"any_case", {"/here/TotalA.EXE"}, {"/here"}},
        Home{"a_folder_of_that_name", {"/here/totala.exe/x"}, {}},
        Home{"likeliest_first",
             {"/me/GOG Games/TA/totala.exe", "/me/.wine/drive_c/Program Files/TA/totala.exe",
              "/me/data/wineprefixes/a/drive_c/TA/totala.exe",
              "/me/data/wineprefixes/b/drive_c/TA/totala.exe", "/prefix/drive_c/TA/totala.exe",
              "/here/totala.exe"},
             {"/here", "/prefix/drive_c/TA", "/me/data/wineprefixes/a/drive_c/TA",
              "/me/data/wineprefixes/b/drive_c/TA", "/me/.wine/drive_c/Program Files/TA",
              "/me/GOG Games/TA"}},
        Home{"a_library_in_another_case",
             {"/me/games/totala/drive_c/GOG Games/TA/TOTALA.EXE"},
             {"/me/games/totala/drive_c/GOG Games/TA"}},
        Home{"below_home_itself", {"/me/TA/totala.exe", "/me/x/y/totala.exe"}, {"/me/TA"}},
        Home{"never_in_a_data_tree_or_a_hidden_folder",
             {"/me/Games/Vexillum/TC-X/totala.exe", "/me/Games/.old/totala.exe"},
             {}},
        Home{"not_deeper_than_games_lie", {"/me/.wine/drive_c/1/2/3/4/5/6/totala.exe"}, {}},
        Home{"never_behind_links",
             {"/me/.wine/drive_c/loop -> /me", "/me/Games/loop -> /me/Games", "/me/TA/totala.exe"},
             {"/me/TA"}}),
    [](const auto& row) { return std::string(row.param.title); });

TEST(FindDirectories, a_place_without_end_does_not_keep_the_others_from_their_turn) {
    const auto raw = std::make_shared<platform::MemoryDisk>();
    for (int i = 0; i < 300; ++i)
        raw->put("/me/.wine/drive_c/" + std::to_string(i) + "/x", "");
    raw->put("/me/.wine/drive_c/zz/totala.exe", "");
    raw->put("/me/Games/TA/totala.exe", "");
    platform::Disk disk(raw);
    const auto find = [&](const SearchLimits& limits) {
        return inPosixForm(findDirectories(disk, {"", "/me", "", "", "", {}}, limits));
    };
    EXPECT_EQ(find({100, std::chrono::minutes(1)}), Paths{"/me/Games/TA"});
    EXPECT_EQ(find({1000, std::chrono::minutes(1)}),
              (Paths{"/me/.wine/drive_c/zz", "/me/Games/TA"}));
    EXPECT_EQ(find({1000, std::chrono::milliseconds(0)}), Paths{});
}

TEST(KnownDirectories, are_kept_in_the_order_of_their_use) {
    const test::Game game;
    const auto disk = platform::makeDisk();
    const auto one = platform::absoluteFolder(game.folder());
    const auto other = platform::absoluteFolder(game.folder() + "/other");
    KnownDirectories known(*disk, platform::absoluteFolder(game.folder() + "/new/settings"));
    EXPECT_EQ(known.all(), Paths{});
    known.use(one);
    known.add(other);
    EXPECT_EQ(known.all(), (Paths{one, other}));
    known.use(other);
    known.add(one);
    EXPECT_EQ(known.all(), (Paths{other, one}));
    EXPECT_THROW(known.use(game.folder() + "/a\nb"), platform::Failure);
    game.put("new/settings/directories.txt", "\n# mine\nrelative\n" + one + "\n" + one);
    EXPECT_EQ(known.all(), Paths{one});
    known.forget(one);
    EXPECT_EQ(known.all(), Paths{});
    EXPECT_THROW(KnownDirectories(*disk, "").use(one), platform::Failure);
}

/// A set-up that stops before any change of the disk leaves no data tree, and the next one makes it
/// whole.
TEST(DataTree, is_there_whole_or_not_at_all) {
    struct Stop {};
    for (int stop = 1;; ++stop) {
        const test::Game game;
        const auto disk = platform::makeDisk();
        game.makeFolder("new");
        const auto directory = game.folder() + "/new";
        int changes = 0;
        test::FaultyDisk faulty(*disk, [&](int /*number*/, const std::string& /*path*/) {
            if (++changes == stop)
                throw Stop();
        });
        bool isStopped = false;
        try {
            setUp(faulty, VEXILLUM_DATA, directory);
        } catch (const Stop&) {
            isStopped = true;
            EXPECT_FALSE(game.has("new/Vexillum")) << stop;
            setUp(*disk, VEXILLUM_DATA, directory);
        }
        EXPECT_EQ(game.content("new/Vexillum/VXL-Changes/Internal.txt"),
                  game.content("Vexillum/VXL-Changes/Internal.txt"));
        EXPECT_FALSE(game.has("new/Vexillum.new"));
        if (!isStopped)
            break;
    }
}

TEST(DataTree, gets_new_texts_and_keeps_all_that_is_the_users) {
    const test::Game game;
    const auto disk = platform::makeDisk();
    const auto help = game.content("Vexillum/VXL-Help/Index.html");
    game.put("Vexillum/VXL-Help/Index.html", "old");
    game.remove("Vexillum/VXL-Trlx");
    game.put("Vexillum/VXL-Misc/Windows.ini", "mine");
    game.put("Vexillum/TC-Cavedog TA/info.txt", "mine");
    game.remove("Vexillum/VXL-Changes/Internal.txt");
    bringUpToDate(*disk, VEXILLUM_DATA, game.folder());
    EXPECT_EQ(game.content("Vexillum/VXL-Help/Index.html"), help);
    EXPECT_TRUE(game.has("Vexillum/VXL-Trlx/800x600/BUILDM.GUI"));
    EXPECT_EQ(game.content("Vexillum/VXL-Misc/Windows.ini"), "mine");
    EXPECT_EQ(game.content("Vexillum/TC-Cavedog TA/info.txt"), "mine");
    EXPECT_FALSE(game.has("Vexillum/VXL-Changes/Internal.txt")) << "a lost journal was hidden";
}

} // namespace
} // namespace installation
