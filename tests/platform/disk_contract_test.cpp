// The promises of the disk, the same over the machine and over disks in memory: names in any case,
// nothing ever replaced by a move, no way out of the game directory.
#include <array>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/failure.h"
#include "platform/look_ahead.h"
#include "support/disk_worlds.h"

namespace platform {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class DiskContract : public testing::TestWithParam<test::WorldKind> {
  protected:
    DiskContract() {
        world->put("totala.exe", "the game");
        disk->setGameDirectory(world->folder());
    }

    std::string in(std::string_view path) const {
        return world->folder() + "\\" + std::string(path);
    }

    std::unique_ptr<test::World> world = GetParam().make();
    std::unique_ptr<Disk> disk = std::make_unique<Disk>(world->raw());
};

INSTANTIATE_TEST_SUITE_P(Disks, DiskContract, testing::ValuesIn(test::worldKinds),
                         [](const auto& each) { return std::string(each.param.name); });

TEST_P(DiskContract, an_entry_is_found_in_any_case_also_after_changes) {
    world->put("Maps/Coast.OTA", "x");
    EXPECT_EQ(disk->kindOf(in("mAPS\\cOAST.ota")), EntryKind::file);
    EXPECT_EQ(disk->kindOf(in("MAPS")), EntryKind::folder);
    EXPECT_EQ(disk->kindOf(in("maps\\")), EntryKind::folder);
    EXPECT_EQ(disk->kindOf(in("maps\\coast")), EntryKind::none);
    EXPECT_EQ(disk->kindOf(in("maps\\coast.ota\\x")), EntryKind::none);
    EXPECT_EQ(disk->kindOf(in("")), EntryKind::folder);
    EXPECT_EQ(disk->kindOf(world->folder()), EntryKind::folder);
    EXPECT_EQ(disk->readFile(in("maps\\coast.ota")), "x");
    EXPECT_TRUE(disk->moveEntry(in("maps\\coast.ota"), in("maps\\pass.ota")));
    EXPECT_EQ(disk->kindOf(in("Maps\\COAST.ota")), EntryKind::none);
    EXPECT_EQ(disk->kindOf(in("Maps\\PASS.OTA")), EntryKind::file);
    EXPECT_EQ(disk->systemPath(in("MAPS\\PASS.ota")),
              world->folder() + test::shown("/Maps/pass.ota"));
    EXPECT_EQ(disk->systemPath(in("MAPS\\none\\x")), world->folder() + test::shown("/Maps/none/x"));
}

TEST_P(DiskContract, equal_bytes_are_those_of_two_entries) {
    world->put("a.ufo", "x");
    world->put("maps/a.ufo", "x");
    world->put("other", "y");
    EXPECT_TRUE(disk->holdSame(in("A.ufo"), in("maps\\a.ufo")));
    EXPECT_FALSE(disk->holdSame(in("a.ufo"), in("other")));
    EXPECT_FALSE(disk->holdSame(in("maps\\a.ufo"), in("MAPS\\A.UFO"))) << "one entry is no copy";
    EXPECT_THROW(disk->holdSame(in("a.ufo"), in("maps")), Failure);
}

TEST_P(DiskContract, looking_ahead_tells_what_looking_tells) {
    for (int i = 0; i < 300; i += 2)
        world->put("Maps/a" + std::to_string(i), std::string(static_cast<std::size_t>(i), 'x'));
    const auto path = [this](std::size_t number, std::string& text) {
        text = number == 1 ? in("maps") : in("maps\\A" + std::to_string(number));
    };
    for (const std::size_t count : {0U, 3U, 300U}) {
        LookAhead ahead(*disk, count, path);
        for (std::size_t number = 0; number < count; ++number) {
            std::string text;
            path(number, text);
            const auto known = disk->factsOf(text);
            const auto facts = ahead.factsOf(number);
            EXPECT_EQ(facts.kind, known.kind) << number;
            EXPECT_EQ(facts.size, known.size) << number;
            EXPECT_EQ(facts.changed, known.changed) << number;
        }
    }
    const LookAhead unasked(*disk, 100'000, path);
}

TEST_P(DiskContract, letters_beyond_ascii_fold_too) {
    world->put("\xC3\x84rger/kelvin", "x"); // a capital umlaut
    EXPECT_EQ(disk->readFile(in("\xC3\xA4RGER\\KELVIN")), "x");
    EXPECT_EQ(disk->readFile(in("\xC3\xA4rger\\\xE2\x84\xAA"
                                "elvin")),
              "x")
        << "the sign for kelvin is a k";
}

TEST_P(DiskContract, one_folder_is_one_under_all_its_spellings) {
    world->put("vexillum/Mod-A/one", "1");
    EXPECT_EQ(disk->kindOf(in("Vexillum\\Mod-A\\ONE")), EntryKind::file);
    EXPECT_EQ(disk->kindOf(in("vexillum\\mod-a\\TWO")), EntryKind::none);
    disk->writeFile(in("VEXILLUM\\mod-A\\two"), "2");
    EXPECT_EQ(disk->kindOf(in("vexillum\\mod-a\\TWO")), EntryKind::file);
    EXPECT_FALSE(disk->moveEntry(in("vexillum\\mod-a\\one"), in("vexillum\\mod-a\\Two")));
    EXPECT_TRUE(disk->moveEntry(in("vexillum\\Mod-A\\one"), in("One")));
    EXPECT_EQ(disk->kindOf(in("Vexillum\\Mod-A\\ONE")), EntryKind::none);
    EXPECT_TRUE(disk->moveEntry(in("ONE"), in("Vexillum\\MOD-A\\oNE")));
    disk->replaceFile(in("vexillum\\mod-a\\ONE"), "11");
    disk->writeFile(in("vexillum\\Mod-A\\TWO"), "22");
    EXPECT_THAT(disk->fileNames(in("Vexillum\\Mod-A")), ElementsAre("oNE", "two"));
    disk->removeFile(in("VEXILLUM\\MOD-A\\one"));
    EXPECT_TRUE(disk->moveEntry(in("totala.exe"), in("vexillum\\mod-a\\ONE")));
    EXPECT_EQ(world->content("vexillum/Mod-A/two"), "22");
    EXPECT_FALSE(world->has("Vexillum"));
}

TEST_P(DiskContract, new_names_take_the_spelling_given_and_folders_keep_theirs) {
    world->put("UNITS/a.fbi", "a");
    disk->moveEntry(in("units\\A.FBI"), in("Units\\New\\B.fbi"));
    EXPECT_EQ(world->content("UNITS/New/B.fbi"), "a");
    EXPECT_FALSE(world->has("Units"));
}

TEST_P(DiskContract, a_listing_is_sorted_and_leaves_out_what_no_path_can_express) {
    for (const auto* name : {"b", "A", "C", ".hidden"})
        world->put(std::string("list/") + name, "");
    if (world->holdsAnyName())
        for (const auto* name : {"back\\slash", "line\nend"})
            world->put(std::string("list/") + name, "");
    world->makeFolder("list/z");
    world->makeFolder("list/Y");
    if (!world->link("list/way-out", "/etc"))
        world->put("list/way-out", "");
    EXPECT_THAT(disk->fileNames(in("list")), ElementsAre("A", "b", "C", "way-out"));
    EXPECT_THAT(disk->folderNames(in("list\\")), ElementsAre("Y", "z"));
    EXPECT_THROW(disk->fileNames(in("missing")), Failure);
    EXPECT_THROW(disk->fileNames(in("list\\A")), Failure);
}

TEST_P(DiskContract, a_move_never_replaces_anything) {
    world->put("a", "a");
    world->put("B", "b");
    world->put("folder/c", "c");
    world->makeFolder("empty");
    EXPECT_FALSE(disk->moveEntry(in("a"), in("b")));
    EXPECT_FALSE(disk->moveEntry(in("a"), in("FOLDER")));
    EXPECT_FALSE(disk->moveEntry(in("folder"), in("EMPTY")));
    EXPECT_FALSE(disk->moveEntry(in("missing"), in("new\\deep\\x")));
    EXPECT_FALSE(disk->moveEntry(in("missing\\x"), in("new\\deep\\x")));
    EXPECT_THROW(disk->moveEntry(in("a"), in("B\\x")), Failure);
    EXPECT_FALSE(world->has("new"));
    EXPECT_EQ(world->content("B"), "b");
    EXPECT_EQ(world->content("a"), "a");
}

TEST_P(DiskContract, a_move_never_replaces_what_appeared_a_moment_ago) {
    world->put("from/a", "a");
    world->makeFolder("from/b");
    world->makeFolder("to");
    EXPECT_EQ(disk->kindOf(in("to\\none")), EntryKind::none) << "the folder is known now";
    world->put("to/a", "theirs");
    world->makeFolder("to/b");
    EXPECT_FALSE(disk->moveEntry(in("from\\a"), in("to\\a")));
    EXPECT_FALSE(disk->moveEntry(in("from\\b"), in("to\\b")));
    EXPECT_EQ(world->content("to/a"), "theirs");
    EXPECT_EQ(world->content("from/a"), "a");
    EXPECT_TRUE(world->has("from/b"));
}

TEST_P(DiskContract, a_folder_cannot_move_into_itself) {
    world->put("clean/a", "a");
    EXPECT_THROW(disk->moveEntry(in("clean"), in("Clean\\sub\\clean")), Failure);
    EXPECT_FALSE(disk->moveEntry(in("clean"), in("CLEAN")));
    EXPECT_EQ(world->content("clean/a"), "a");
    EXPECT_FALSE(world->has("clean/sub"));
}

TEST_P(DiskContract, a_folder_moves_whole_and_is_found_at_its_new_place_alone) {
    world->put("from/deep/a", "a");
    EXPECT_EQ(disk->readFile(in("from\\deep\\a")), "a");
    disk->moveEntry(in("from"), in("to\\there"));
    EXPECT_EQ(disk->readFile(in("to\\there\\deep\\a")), "a");
    EXPECT_EQ(disk->kindOf(in("from\\deep\\a")), EntryKind::none);
    EXPECT_TRUE(disk->moveEntry(in("TO\\THERE"), in("back")));
    EXPECT_EQ(disk->kindOf(in("to\\there\\deep\\a")), EntryKind::none) << "in another spelling";
    EXPECT_EQ(disk->readFile(in("back\\deep\\a")), "a");
}

TEST_P(DiskContract, a_new_name_may_differ_in_case_alone) {
    world->put("Mod-old/x", "x");
    world->put("Mod-other/y", "y");
    EXPECT_FALSE(disk->renameEntry(in("mod-OLD"), "MOD-OTHER"));
    EXPECT_FALSE(disk->renameEntry(in("mod-none"), "Mod-New"));
    EXPECT_TRUE(disk->renameEntry(in("mod-OLD"), "Mod-OLD"));
    EXPECT_TRUE(world->has("Mod-OLD"));
    EXPECT_FALSE(world->has("Mod-old"));
    EXPECT_EQ(disk->readFile(in("mod-old\\X")), "x");
    EXPECT_TRUE(disk->renameEntry(in("mod-old"), "Mod-New"));
    EXPECT_EQ(disk->readFile(in("mod-new\\X")), "x");
    EXPECT_EQ(disk->kindOf(in("mod-old\\x")), EntryKind::none);
    for (const auto* name : {"", "..", "a\\b", "a/b", "line\nend"})
        EXPECT_THROW(disk->renameEntry(in("mod-new"), name), Failure) << name;
}

TEST_P(DiskContract, removing_tells_files_from_folders) {
    world->put("file", "x");
    world->put("full/file", "x");
    world->makeFolder("empty");
    EXPECT_THROW(disk->removeFolder(in("file")), Failure);
    EXPECT_THROW(disk->removeFolder(in("full")), Failure);
    EXPECT_THROW(disk->removeFile(in("empty")), Failure);
    EXPECT_THROW(disk->removeTree(in("file")), Failure);
    EXPECT_THROW(disk->removeTree(in("missing")), Failure);
    disk->removeFolder(in("EMPTY"));
    disk->removeFile(in("FILE"));
    EXPECT_FALSE(world->has("empty"));
    EXPECT_FALSE(world->has("file"));
    EXPECT_THROW(disk->makeFolder(in("FULL")), Failure);
    EXPECT_THROW(disk->makeFolder(in("no\\parent")), Failure);
}

TEST_P(DiskContract, a_tree_is_removed_with_its_links_but_not_what_they_lead_to) {
    world->put("kept/file", "kept");
    world->put("tree/.hidden", "x");
    world->put("tree/deep/deeper/file", "x");
    world->link("tree/deep/link", world->folder() + "/kept");
    disk->removeTree(in("Tree"));
    EXPECT_FALSE(world->has("tree"));
    EXPECT_EQ(world->content("kept/file"), "kept");
    disk->makeFolder(in("tree"));
    EXPECT_EQ(disk->kindOf(in("tree\\deep")), EntryKind::none);
}

TEST_P(DiskContract, nothing_leads_out_of_the_game_directory) {
    world->put("a", "a");
    world->makeFolder("Vexillum");
    const auto outside = world->folder() + "-outside";
    std::vector<std::string> ways = {
        in("..\\outside"), in("x\\..\\..\\y"),        in("/tmp/x"), in("x\\.\\y"), outside,
        "relative",        in(std::string("a\0b", 3))};
    if (world->link("link", "/tmp") && world->link("inner", world->folder() + "/Vexillum"))
        ways.insert(ways.end(), {in("link\\x"), in("inner\\x")});
    for (const auto& way : ways) {
        EXPECT_THROW(disk->moveEntry(in("a"), way), Failure) << way;
        EXPECT_FALSE(disk->moveEntry(way, in("b"))) << way;
        EXPECT_THROW(disk->writeFile(way, "x"), Failure) << way;
        EXPECT_THROW(disk->replaceFile(way, "x"), Failure) << way;
        EXPECT_THROW(disk->writePieces(way, [](const PieceSink&) {}), Failure) << way;
        EXPECT_THROW(disk->copyFile(in("a"), way), Failure) << way;
        EXPECT_THROW(disk->renameEntry(way, "b"), Failure) << way;
        EXPECT_THROW(disk->makeFolder(way), Failure) << way;
        EXPECT_THROW(disk->removeFile(way), Failure) << way;
        EXPECT_THROW(disk->removeFolder(way), Failure) << way;
        EXPECT_THROW(disk->removeTree(way), Failure) << way;
    }
    EXPECT_THROW(disk->removeTree(in("")), Failure);
    EXPECT_EQ(world->content("a"), "a");
    EXPECT_EQ(disk->kindOf(outside), EntryKind::none);
    EXPECT_TRUE(disk->isInside(in("units\\a.fbi")));
    for (const auto* path : {"..\\x", "", "\\x", "C:\\x", "x/y"})
        EXPECT_FALSE(disk->isInside(in(path))) << path;
    EXPECT_FALSE(disk->isInside(world->folder() + "x\\y"));
    EXPECT_TRUE(disk->isInside(in("x\\\\y")));
    EXPECT_EQ(disk->isInside(in("a:")), !test::onWindows) << "a name like any other elsewhere";
}

TEST_P(DiskContract, a_link_is_moved_and_removed_itself_and_never_followed) {
    world->put("target", "t");
    if (!world->link("link", world->folder() + "/target"))
        GTEST_SKIP() << "the disk takes no links";
    EXPECT_THROW(disk->readFile(in("link")), Failure);
    EXPECT_THROW(disk->writeFile(in("link"), "over"), Failure);
    EXPECT_EQ(disk->kindOf(in("link")), EntryKind::file);
    EXPECT_TRUE(disk->moveEntry(in("link"), in("sub\\link")));
    disk->removeFile(in("sub\\link"));
    EXPECT_EQ(world->content("target"), "t");
}

TEST_P(DiskContract, a_folder_of_the_users_own_is_read_through_links) {
    world->put("target/file", "t");
    const auto outside = world->folder() + "/target";
    if (!world->link("link", outside))
        GTEST_SKIP() << "the disk takes no links";
    disk->setGameDirectory(world->folder() + "/elsewhere");
    EXPECT_EQ(disk->readFile(world->folder() + "/link/FILE"), "t");
    EXPECT_TRUE(disk->leadsThroughLink(world->folder(), "LINK\\file"));
    EXPECT_FALSE(disk->leadsThroughLink(world->folder(), "target\\file"));
    EXPECT_FALSE(disk->leadsThroughLink(world->folder(), "missing\\file"));
}

TEST_P(DiskContract, the_game_directory_itself_leads_through_no_link) {
    world->put("game/file", "g");
    disk->setGameDirectory(world->folder() + "\\game");
    EXPECT_FALSE(disk->leadsThroughLink(world->folder(), "game"));
    EXPECT_FALSE(disk->leadsThroughLink(world->folder(), "GAME\\file"));
}

TEST_P(DiskContract, a_file_is_read_whole_mapped_or_piece_by_piece) {
    world->put("file", "0123456789");
    world->put("empty", "");
    EXPECT_EQ(disk->sizeOf(in("FILE")), 10U);
    EXPECT_EQ(disk->readFile(in("empty")), "");
    EXPECT_THAT(disk->mapFile(in("empty"))->bytes(), IsEmpty());
    const auto view = disk->mapFile(in("file"));
    EXPECT_EQ(view->bytes()[9], '9');
    const auto reader = disk->openFile(in("File"));
    EXPECT_EQ(reader->size(), 10U);
    disk->moveEntry(in("file"), in("moved"));
    const auto piece = [&](std::uint64_t offset) {
        std::array<std::uint8_t, 4> bytes{};
        reader->seek(offset);
        const auto count = reader->read(bytes);
        return std::string(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(count));
    };
    EXPECT_EQ(piece(8), "89");
    EXPECT_EQ(piece(2), "2345");
    EXPECT_EQ(piece(10), "");
    EXPECT_EQ(piece(~std::uint64_t{0}), "");
    world->makeFolder("folder");
    for (const auto* name : {"folder", "missing", ""}) {
        EXPECT_THROW(disk->readFile(in(name)), Failure) << name;
        EXPECT_THROW(disk->mapFile(in(name)), Failure) << name;
        EXPECT_THROW(disk->openFile(in(name)), Failure) << name;
        EXPECT_THROW(disk->sizeOf(in(name)), Failure) << name;
    }
}

TEST_P(DiskContract, copying_and_replacing_leave_no_half_files) {
    world->put("a", "new");
    world->put("B", "old");
    disk->copyFile(in("a"), in("b"));
    EXPECT_EQ(world->content("B"), "new");
    disk->copyFile(in("a"), in("A"));
    EXPECT_EQ(world->content("a"), "new");
    disk->replaceFile(in("b"), "third");
    EXPECT_EQ(world->content("B"), "third");
    world->makeFolder("folder");
    EXPECT_THROW(disk->replaceFile(in("folder"), "x"), Failure);
    EXPECT_THROW(disk->copyFile(in("a"), in("folder")), Failure);
    EXPECT_THROW(disk->copyFile(in("missing"), in("deep\\x")), Failure);
    EXPECT_THROW(disk->copyFile(in("folder"), in("deep\\x")), Failure);
    EXPECT_FALSE(world->has("deep"));
    EXPECT_THAT(disk->fileNames(in("")), ElementsAre("a", "B", "totala.exe"));
}

TEST_P(DiskContract, a_file_out_of_pieces_appears_when_it_is_whole) {
    world->put("Old", "old");
    for (const auto* name : {"old", "new"}) {
        EXPECT_THROW(disk->writePieces(in(name),
                                       [&](const PieceSink& sink) {
                                           sink("half");
                                           EXPECT_NE(world->content(name), "half");
                                           throw Failure("unpack", name, "it is damaged");
                                       }),
                     Failure);
    }
    EXPECT_EQ(world->content("Old"), "old");
    EXPECT_THAT(disk->fileNames(in("")), ElementsAre("Old", "totala.exe"));
    for (const auto* name : {"old", "new"})
        disk->writePieces(in(name), [](const PieceSink& sink) {
            sink("one ");
            sink("two");
        });
    EXPECT_EQ(world->content("Old"), "one two");
    EXPECT_EQ(world->content("new"), "one two");
    EXPECT_THROW(disk->writePieces(in("no\\folder"), [](const PieceSink&) {}), Failure);
}

TEST_P(DiskContract, a_copy_tells_how_far_it_is_and_goes_when_it_is_stopped) {
    world->put("a", std::string(3'000'000, 'x'));
    std::uint64_t told = 0;
    disk->copyFile(in("a"), in("sub\\b"), [&](std::uint64_t bytes) { told += bytes; });
    EXPECT_EQ(told, 3'000'000U);
    struct Stop {};
    EXPECT_THROW(
        disk->copyFile(in("a"), in("other\\b"), [](std::uint64_t /*bytes*/) { throw Stop(); }),
        Stop);
    EXPECT_FALSE(world->has("other"));
}

TEST_P(DiskContract, a_failure_names_call_path_and_reason) {
    world->makeFolder("folder");
    try {
        disk->readFile(in("folder\\none.ota"));
        FAIL();
    } catch (const Failure& failure) {
        EXPECT_EQ(failure.what(), "read " + world->folder() + test::shown("/folder/none.ota") +
                                      ": " + failure.reason());
        EXPECT_EQ(test::inPosixWords(failure.reason()), "No such file or directory");
        EXPECT_TRUE(failure.is(std::errc::no_such_file_or_directory));
        EXPECT_FALSE(failure.is(std::errc::file_exists));
    }
}

} // namespace
} // namespace platform
