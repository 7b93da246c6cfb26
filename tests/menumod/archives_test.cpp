// The archive calls and the extraction that the modifier and the scan share.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "menumod/modHPIUtil.h"
#include "packing/archive_writer.h"
#include "support/game.h"

namespace menumod {
namespace {

class ArchivesTest : public testing::Test {
  protected:
    ArchivesTest() { disk->setGameDirectory(game.folder()); }
    std::string in(const std::string& path) const { return game.folder() + "\\" + path; }

    test::Game game;
    std::unique_ptr<platform::Disk> disk = platform::makeDisk();
    modHPIUtil archives{*disk};
};

TEST_F(ArchivesTest, entries_are_listed_and_extracted_by_the_name_listed) {
    game.put("a.ufo",
             packing::packArchive({{"guis\\A.gui", "a"}, {"b", std::string(70'000, 'b')}}));
    game.makeFolder("guis");
    game.put("guis/A.GUI", "older");
    const int handle = archives.HPIOpen(in("A.UFO"));
    ASSERT_NE(handle, 0);
    std::vector<std::string> listed;
    std::string name;
    int type = 0;
    int size = 0;
    for (int next = 0; (next = archives.HPIGetFiles(handle, next, name, type, size)) != 0;)
        listed.push_back(name + (type == 0 ? "" : "/"));
    EXPECT_THAT(listed, testing::ElementsAre("guis/", "b", "guis\\A.gui"));
    EXPECT_TRUE(archives.HPIExtractFile(handle, "guis\\A.gui", in("guis\\A.gui")));
    EXPECT_TRUE(archives.HPIExtractFile(handle, "b", in("b")));
    EXPECT_FALSE(archives.HPIExtractFile(handle, "guis", in("c")));
    EXPECT_FALSE(archives.HPIExtractFile(handle, "none", in("c")));
    EXPECT_FALSE(archives.HPIExtractFile(handle, "b", in("missing\\b")));
    EXPECT_FALSE(archives.HPIExtractFile(handle, "b", in("..\\b")));
    EXPECT_EQ(game.content("guis/A.GUI"), "a");
    EXPECT_EQ(game.content("b")->size(), 70'000U);
    archives.HPIClose(handle);
    EXPECT_EQ(archives.HPIGetFiles(handle, 0, name, type, size), 0);
}

TEST_F(ArchivesTest, what_is_no_archive_has_the_handle_0) {
    game.put("empty");
    game.put("text", "HAPI, but only in words of some length");
    game.makeFolder("folder");
    for (const auto* path : {"empty", "text", "folder", "missing", "totala.exe"})
        EXPECT_EQ(archives.HPIOpen(in(path)), 0) << path;
    archives.HPIClose(0);
}

TEST_F(ArchivesTest, a_damaged_entry_leaves_the_file_that_is_there) {
    auto bytes = packing::packArchive({{"a", std::string(1000, 'a')}});
    bytes[bytes.size() - 5] = static_cast<char>(bytes[bytes.size() - 5] ^ 1);
    game.put("bad.hpi", bytes);
    game.put("a", "healthy");
    const int handle = archives.HPIOpen(in("bad.hpi"));
    EXPECT_FALSE(archives.HPIExtractFile(handle, "a", in("a")));
    EXPECT_EQ(game.content("a"), "healthy");
    EXPECT_THAT(disk->fileNames(in("")), testing::ElementsAre("a", "bad.hpi", "totala.exe"));
}

} // namespace
} // namespace menumod
