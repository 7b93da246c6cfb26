// What the disk asks of the system for a name: seldom a listing, never more than one look a move.
#include <thread>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/disk.h"
#include "platform/memory_disk.h"

namespace platform {
namespace {

using namespace std::chrono_literals;

constexpr auto untilOthersShow = 120ms;

class FolderTest : public testing::Test {
  protected:
    FolderTest() {
        for (int i = 0; i < files; ++i)
            memory->put("/game/from/file" + std::to_string(i), "x");
        memory->putFolder("/game/to");
        disk.setGameDirectory("/game");
    }
    void move(int number, const std::string& to) {
        EXPECT_TRUE(disk.moveEntry("/game\\from\\file" + std::to_string(number), to));
    }

    static constexpr int files = 500;
    std::shared_ptr<platform::MemoryDisk> memory = std::make_shared<platform::MemoryDisk>();
    Disk disk{memory};
};

TEST_F(FolderTest, many_moves_into_one_folder_list_it_once) {
    move(0, "/game\\to\\file0");
    const int lists = memory->calls("list");
    const int looks = memory->calls("look");
    for (int i = 1; i < files; ++i)
        move(i, "/game\\TO\\file" + std::to_string(i));
    EXPECT_LE(memory->calls("list") - lists, 2);
    EXPECT_LE(memory->calls("look") - looks, files + 10);
    for (int i = 0; i < files; ++i)
        EXPECT_EQ(disk.kindOf("/game\\to\\FILE" + std::to_string(i)), EntryKind::file);
    EXPECT_LE(memory->calls("list") - lists, 3);
}

TEST_F(FolderTest, what_others_add_shows_behind_a_pause_also_after_changes_of_our_own) {
    move(0, "/game\\to\\a");
    memory->put("/game/to/Theirs", "t");
    move(1, "/game\\to\\b");
    std::this_thread::sleep_for(untilOthersShow);
    EXPECT_EQ(disk.readFile("/game\\to\\THEIRS"), "t");
    EXPECT_FALSE(disk.moveEntry("/game\\from\\file2", "/game\\to\\theirs"));
}

TEST_F(FolderTest, what_others_take_away_is_free_at_once) {
    memory->put("/game/to/Theirs", "t");
    EXPECT_FALSE(disk.moveEntry("/game\\from\\file0", "/game\\to\\theirs"));
    memory->remove("/game/to/Theirs");
    EXPECT_EQ(disk.kindOf("/game\\to\\theirs"), EntryKind::none);
    move(0, "/game\\to\\theirs");
}

TEST_F(FolderTest, a_folder_that_others_put_in_place_of_another_is_found) {
    memory->put("/game/to/inner/old", "o");
    EXPECT_EQ(disk.readFile("/game\\to\\inner\\OLD"), "o");
    memory->remove("/game/to/inner");
    memory->put("/game/to/inner/new", "n");
    std::this_thread::sleep_for(300ms);
    EXPECT_EQ(disk.kindOf("/game\\to\\inner\\OLD"), EntryKind::none);
    EXPECT_EQ(disk.readFile("/game\\to\\inner\\NEW"), "n");
}

TEST_F(FolderTest, more_folders_than_are_kept_open_are_all_found) {
    for (int i = 0; i < 1000; ++i)
        memory->put("/game/many/" + std::to_string(i) + "/File", std::to_string(i));
    for (int round = 0; round < 2; ++round)
        for (int i = 0; i < 1000; ++i)
            EXPECT_EQ(disk.readFile("/game\\many\\" + std::to_string(i) + "\\FILE"),
                      std::to_string(i));
}

} // namespace
} // namespace platform
