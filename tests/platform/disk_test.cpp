// What only the machine's own disk can show: pipes, permissions, clocks and other mounts.
#include <thread>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/disk.h"
#include "platform/failure.h"
#include "platform/text.h"
#include "support/game.h"
#include "support/system.h"

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
    if (!test::makePipe(game.at("list/pipe")))
        GTEST_SKIP() << "the system has no pipes in folders";
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
    test::setReadOnly(game.at("a"), true);
    const auto permissions = std::filesystem::status(game.at("a")).permissions();
    disk->replaceFile(in("a"), "new");
    EXPECT_EQ(game.content("a"), "new");
    EXPECT_EQ(std::filesystem::status(game.at("a")).permissions(), permissions);
}

TEST_F(DiskTest, a_tree_moves_between_two_disks_with_all_that_is_in_it) {
    namespace fs = std::filesystem;
    if (test::lieOnOneDisk(game.at(""), test::otherTemporaryFolder()))
        GTEST_SKIP() << "the two folders lie on one disk";
    const auto away = test::otherTemporaryFolder() /
                      ("vexillum-disk-test-" + std::to_string(test::processNumber()));
    game.put("mod/deep/a", "a");
    const bool hasLink = test::makeLink("a", game.at("mod/deep/link"));
    fs::create_hard_link(game.at("mod/deep/a"), game.at("mod/b"));
    game.put("mod/locked", "x");
    test::setReadOnly(game.at("mod/locked"), true);
    test::setReadOnly(game.at("mod/deep"), true);
    const bool isLocked = test::isReadOnly(game.at("mod/deep")); // not every system has that
    const bool isGivenAway = test::giveAway(game.at("mod/b"), 1234, 567);
    const auto time = fs::last_write_time(game.at("mod/deep"));
    // Bounded by the whole disk, both can be reached.
    disk->setGameDirectory(test::wholeDisk(away));
    const auto there = test::belowWholeDisk(away / "mod");
    const auto here = test::belowWholeDisk(game.at("mod"));
    EXPECT_TRUE(disk->moveEntry(here, there));
    EXPECT_FALSE(game.has("mod"));
    EXPECT_EQ(disk->readFile((away / "mod" / "deep" / "a").string()), "a");
    if (hasLink) {
        EXPECT_EQ(fs::read_symlink(away / "mod/deep/link"), "a");
    }
    EXPECT_TRUE(fs::equivalent(away / "mod/b", away / "mod/deep/a"));
    EXPECT_EQ(test::isReadOnly(away / "mod/deep"), isLocked);
    EXPECT_TRUE(test::isReadOnly(away / "mod/locked"));
    EXPECT_EQ(fs::last_write_time(away / "mod/deep"), time);
    EXPECT_EQ(test::belongsTo(away / "mod/b", 1234, 567), isGivenAway);
    EXPECT_TRUE(disk->moveEntry(there, here));
    EXPECT_TRUE(fs::is_empty(away)) << "parts were left behind";
    test::setReadOnly(game.at("mod/deep"), false);
    fs::remove(away);
}

} // namespace
} // namespace platform
