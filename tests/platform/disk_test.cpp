// The promises of the disk: names in any case, nothing ever replaced by a move, no way out of the
// game directory.
#include <thread>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

#include "platform/failure.h"
#include "platform/disk.h"
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

TEST_F(DiskTest, an_entry_is_found_in_any_case_also_after_changes) {
    game.put("Maps/Coast.OTA", "x");
    EXPECT_EQ(disk->kindOf(in("mAPS\\cOAST.ota")), EntryKind::file);
    EXPECT_EQ(disk->kindOf(in("MAPS")), EntryKind::folder);
    EXPECT_EQ(disk->kindOf(in("maps\\")), EntryKind::folder);
    EXPECT_EQ(disk->kindOf(in("maps\\coast")), EntryKind::none);
    EXPECT_EQ(disk->kindOf(in("maps\\coast.ota\\x")), EntryKind::none);
    EXPECT_EQ(disk->readFile(in("maps\\coast.ota")), "x");
    disk->moveEntry(in("maps\\coast.ota"), in("maps\\pass.ota"));
    EXPECT_EQ(disk->kindOf(in("Maps\\COAST.ota")), EntryKind::none);
    EXPECT_EQ(disk->kindOf(in("Maps\\PASS.OTA")), EntryKind::file);
    EXPECT_EQ(disk->systemPath(in("MAPS\\PASS.ota")), game.folder() + "/Maps/pass.ota");
    game.put("Maps/another.ota");
    std::this_thread::sleep_for(std::chrono::milliseconds(150));
    EXPECT_EQ(disk->kindOf(in("maps\\ANOTHER.OTA")), EntryKind::file);
}

TEST_F(DiskTest, new_names_take_the_spelling_given_and_folders_keep_theirs) {
    game.put("UNITS/a.fbi", "a");
    disk->moveEntry(in("units\\A.FBI"), in("Units\\New\\B.fbi"));
    EXPECT_EQ(game.content("UNITS/New/B.fbi"), "a");
    EXPECT_FALSE(game.has("Units"));
}

TEST_F(DiskTest, a_listing_is_sorted_and_leaves_out_what_no_path_can_express) {
    for (const auto* name : {"b", "A", "C", ".hidden", "back\\slash", "line\nend"})
        game.put(std::string("list/") + name);
    game.makeFolder("list/z");
    game.makeFolder("list/Y");
    ::mkfifo(game.at("list/pipe").c_str(), 0600);
    ::symlink("/etc", game.at("list/way-out").c_str());
    EXPECT_THAT(disk->fileNames(in("list")), ElementsAre("A", "b", "C", "way-out"));
    EXPECT_THAT(disk->folderNames(in("list\\")), ElementsAre("Y", "z"));
    EXPECT_THROW(disk->fileNames(in("missing")), Failure);
    EXPECT_THROW(disk->fileNames(in("list\\A")), Failure);
}

TEST_F(DiskTest, a_move_never_replaces_anything) {
    game.put("a", "a");
    game.put("B", "b");
    game.put("folder/c", "c");
    game.makeFolder("empty");
    EXPECT_FALSE(disk->moveEntry(in("a"), in("b")));
    EXPECT_FALSE(disk->moveEntry(in("a"), in("FOLDER")));
    EXPECT_FALSE(disk->moveEntry(in("folder"), in("EMPTY")));
    EXPECT_FALSE(disk->moveEntry(in("missing"), in("new\\deep\\x")));
    EXPECT_FALSE(disk->moveEntry(in("missing\\x"), in("new\\deep\\x")));
    EXPECT_THROW(disk->moveEntry(in("a"), in("B\\x")), Failure);
    EXPECT_FALSE(game.has("new"));
    EXPECT_EQ(game.content("B"), "b");
    EXPECT_EQ(game.content("a"), "a");
}

TEST_F(DiskTest, a_folder_cannot_move_into_itself) {
    game.put("clean/a", "a");
    EXPECT_THROW(disk->moveEntry(in("clean"), in("Clean\\sub\\clean")), Failure);
    EXPECT_FALSE(disk->moveEntry(in("clean"), in("CLEAN")));
    EXPECT_EQ(game.content("clean/a"), "a");
    EXPECT_FALSE(game.has("clean/sub"));
}

TEST_F(DiskTest, a_folder_moves_whole_and_is_found_at_its_new_place_alone) {
    game.put("from/deep/a", "a");
    EXPECT_EQ(disk->readFile(in("from\\deep\\a")), "a");
    disk->moveEntry(in("from"), in("to\\there"));
    EXPECT_EQ(disk->readFile(in("to\\there\\deep\\a")), "a");
    EXPECT_EQ(disk->kindOf(in("from\\deep\\a")), EntryKind::none);
}

TEST_F(DiskTest, removing_tells_files_from_folders) {
    game.put("file", "x");
    game.put("full/file", "x");
    game.makeFolder("empty");
    EXPECT_THROW(disk->removeFolder(in("file")), Failure);
    EXPECT_THROW(disk->removeFolder(in("full")), Failure);
    EXPECT_THROW(disk->removeFile(in("empty")), Failure);
    disk->removeFolder(in("EMPTY"));
    disk->removeFile(in("FILE"));
    EXPECT_FALSE(game.has("empty"));
    EXPECT_FALSE(game.has("file"));
    EXPECT_THROW(disk->makeFolder(in("FULL")), Failure);
    EXPECT_THROW(disk->makeFolder(in("no\\parent")), Failure);
}

TEST_F(DiskTest, nothing_leads_out_of_the_game_directory) {
    game.put("a", "a");
    ::symlink("/tmp", game.at("link").c_str());
    ::symlink(game.at("Vexillum").c_str(), game.at("inner").c_str());
    const auto outside = game.folder() + "-outside";
    const std::string ways[] = {in("..\\outside"), in("x\\..\\..\\y"), in("link\\x"),
                                in("inner\\x"),    in("/tmp/x"),       in("x\\.\\y"),
                                outside,           "relative",         in(std::string("a\0b", 3))};
    for (const auto& way : ways) {
        EXPECT_THROW(disk->moveEntry(in("a"), way), Failure) << way;
        EXPECT_FALSE(disk->moveEntry(way, in("b"))) << way;
        EXPECT_THROW(disk->writeFile(way, "x"), Failure) << way;
        EXPECT_THROW(disk->replaceFile(way, "x"), Failure) << way;
        EXPECT_THROW(disk->copyFile(in("a"), way), Failure) << way;
        EXPECT_THROW(disk->makeFolder(way), Failure) << way;
        EXPECT_THROW(disk->removeFile(way), Failure) << way;
    }
    EXPECT_EQ(game.content("a"), "a");
    EXPECT_FALSE(std::filesystem::exists(outside));
    EXPECT_TRUE(disk->isInside(in("units\\a.fbi")));
    for (const auto* path : {"..\\x", "", "\\x", "C:\\x", "x/y"})
        EXPECT_FALSE(disk->isInside(in(path))) << path;
    EXPECT_FALSE(disk->isInside(game.folder() + "x\\y"));
    EXPECT_TRUE(disk->isInside(in("x\\\\y")));
    EXPECT_TRUE(disk->isInside(in("a:"))) << "a name like any other on this system";
}

TEST_F(DiskTest, a_link_is_moved_and_removed_itself_and_never_followed) {
    game.put("target", "t");
    ::symlink(game.at("target").c_str(), game.at("link").c_str());
    EXPECT_THROW(disk->readFile(in("link")), Failure);
    EXPECT_THROW(disk->writeFile(in("link"), "over"), Failure);
    disk->moveEntry(in("link"), in("sub\\link"));
    disk->removeFile(in("sub\\link"));
    EXPECT_EQ(game.content("target"), "t");
}

TEST_F(DiskTest, reading_works_outside_in_the_systems_form_too) {
    const test::Game other;
    other.put("Docs/Readme.TXT", "r");
    EXPECT_EQ(disk->readFile(other.folder() + "/Docs/Readme.TXT"), "r");
    EXPECT_EQ(disk->readFile(other.folder() + "\\docs\\readme.txt"), "r");
    disk->copyFile(other.folder() + "/docs/readme.txt", in("Vexillum\\Map-New\\readme.txt"));
    EXPECT_EQ(game.content("Vexillum/Map-New/readme.txt"), "r");
}

TEST_F(DiskTest, copying_and_replacing_leave_no_half_files) {
    game.put("a", "new");
    game.put("B", "old");
    disk->copyFile(in("a"), in("b"));
    EXPECT_EQ(game.content("B"), "new");
    disk->copyFile(in("a"), in("A"));
    EXPECT_EQ(game.content("a"), "new");
    disk->replaceFile(in("b"), "third");
    EXPECT_EQ(game.content("B"), "third");
    game.makeFolder("folder");
    EXPECT_THROW(disk->replaceFile(in("folder"), "x"), Failure);
    EXPECT_THROW(disk->copyFile(in("a"), in("folder")), Failure);
    EXPECT_THAT(disk->fileNames(in("")), ElementsAre("a", "B", "totala.exe"));
}

TEST_F(DiskTest, a_file_in_a_read_only_folder_is_written_over) {
    if (::geteuid() == 0)
        GTEST_SKIP() << "nothing is read-only for root";
    game.put("locked/journal", "old");
    std::filesystem::permissions(game.at("locked"), std::filesystem::perms(0555));
    disk->replaceFile(in("locked\\journal"), "new");
    EXPECT_EQ(game.content("locked/journal"), "new");
    EXPECT_THROW(disk->replaceFile(in("locked\\other"), "new"), Failure);
    std::filesystem::permissions(game.at("locked"), std::filesystem::perms(0755));
}

TEST_F(DiskTest, a_failure_names_call_path_and_reason) {
    try {
        disk->readFile(in("maps\\none.ota"));
        FAIL();
    } catch (const Failure& failure) {
        EXPECT_EQ(std::string(failure.what()).substr(0, 12), "open folder ");
        EXPECT_EQ(failure.reason(), "No such file or directory");
    }
}

} // namespace
} // namespace platform
