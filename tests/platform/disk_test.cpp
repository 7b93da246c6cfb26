// What only the machine's own disk can show: pipes, permissions, clocks and other mounts.
#include <thread>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

#include "platform/disk.h"
#include "platform/failure.h"
#include "platform/text.h"
#include "support/game.h"

namespace platform {
namespace {

using testing::ElementsAre;

class DiskTest : public testing::Test {
  protected:
    DiskTest() { disk->setGameDirectory(game.folder()); }

    std::string in(std::string_view path) const { return game.folder() + "\\" + std::string(path); }

    test::Game game;
    std::unique_ptr<Disk> disk = makeDisk();
};

TEST_F(DiskTest, what_others_add_is_found_in_any_case_a_moment_later) {
    game.put("Maps/a.ota");
    EXPECT_TRUE(disk->moveEntry(in("maps\\a.ota"), in("maps\\b.ota")));
    game.put("Maps/another.ota");
    std::this_thread::sleep_for(std::chrono::milliseconds(150));
    EXPECT_EQ(disk->kindOf(in("maps\\ANOTHER.OTA")), EntryKind::file);
}

TEST_F(DiskTest, a_pipe_is_in_no_listing_and_is_not_waited_for) {
    game.put("list/a");
    ::mkfifo(game.at("list/pipe").c_str(), 0600);
    EXPECT_THAT(disk->fileNames(in("list")), ElementsAre("a"));
    EXPECT_THROW(disk->readFile(in("list\\pipe")), Failure);
    EXPECT_THROW(disk->mapFile(in("list\\pipe")), Failure);
    EXPECT_THROW(disk->writeFile(in("list\\pipe"), "x"), Failure);
}

TEST_F(DiskTest, reading_works_outside_in_the_systems_form_too) {
    const test::Game other;
    other.put("Docs/Readme.TXT", "r");
    EXPECT_EQ(disk->readFile(other.folder() + "/Docs/Readme.TXT"), "r");
    EXPECT_EQ(disk->readFile(other.folder() + "\\docs\\readme.txt"), "r");
    disk->copyFile(other.folder() + "/docs/readme.txt", in("Vexillum\\Map-New\\readme.txt"));
    EXPECT_EQ(game.content("Vexillum/Map-New/readme.txt"), "r");
}

TEST_F(DiskTest, a_copy_has_the_time_of_its_source_and_a_replaced_file_its_permissions) {
    game.put("a", "a");
    const auto time = std::filesystem::last_write_time(game.at("a")) - std::chrono::hours(30);
    std::filesystem::last_write_time(game.at("a"), time);
    disk->copyFile(in("a"), in("b"));
    EXPECT_EQ(std::filesystem::last_write_time(game.at("b")), time);
    std::filesystem::permissions(game.at("a"), std::filesystem::perms(0600));
    disk->replaceFile(in("a"), "new");
    EXPECT_EQ(std::filesystem::status(game.at("a")).permissions(), std::filesystem::perms(0600));
}

TEST_F(DiskTest, a_tree_moves_between_two_mounts_with_all_that_is_in_it) {
    namespace fs = std::filesystem;
    const auto away =
        fs::temp_directory_path() / ("vexillum-disk-test-" + std::to_string(::getpid()));
    struct stat here {};
    struct stat there {};
    ASSERT_EQ(::stat(game.folder().c_str(), &here), 0);
    ASSERT_EQ(::stat(away.parent_path().c_str(), &there), 0);
    if (here.st_dev == there.st_dev)
        GTEST_SKIP() << "the two folders lie on one disk";
    game.put("mod/deep/a", "a");
    fs::create_symlink("a", game.at("mod/deep/link"));
    fs::create_hard_link(game.at("mod/deep/a"), game.at("mod/b"));
    fs::permissions(game.at("mod/deep"), fs::perms(0555));
    const bool mayGiveAway = ::geteuid() == 0 && ::chown(game.at("mod/b").c_str(), 1234, 567) == 0;
    const auto time = fs::last_write_time(game.at("mod/deep"));
    // Bounded by the root, the disk reaches both.
    disk->setGameDirectory("/");
    const auto pathOf = [](const fs::path& path) {
        return "/" + replaceAll(path.string(), "/", "\\");
    };
    EXPECT_TRUE(disk->moveEntry(pathOf(game.at("mod")), pathOf(away / "mod")));
    EXPECT_FALSE(game.has("mod"));
    EXPECT_EQ(disk->readFile((away / "mod/deep/a").string()), "a");
    EXPECT_EQ(fs::read_symlink(away / "mod/deep/link"), "a");
    EXPECT_TRUE(fs::equivalent(away / "mod/b", away / "mod/deep/a"));
    EXPECT_EQ(fs::status(away / "mod/deep").permissions(), fs::perms(0555));
    EXPECT_EQ(fs::last_write_time(away / "mod/deep"), time);
    if (mayGiveAway) {
        struct stat moved {};
        ASSERT_EQ(::stat((away / "mod/b").c_str(), &moved), 0);
        EXPECT_EQ(moved.st_uid, 1234U);
        EXPECT_EQ(moved.st_gid, 567U);
    }
    EXPECT_TRUE(disk->moveEntry(pathOf(away / "mod"), pathOf(game.at("mod"))));
    EXPECT_TRUE(fs::is_empty(away)) << "parts were left behind";
    fs::permissions(game.at("mod/deep"), fs::perms(0755));
    fs::remove(away);
}

} // namespace
} // namespace platform
