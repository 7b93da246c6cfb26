// What the data tree says of its releases, and what a change by name does to it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "releases/store.h"
#include "support/core.h"

namespace releases {
namespace {

using testing::ElementsAre;

class StoreTest : public testing::Test {
  protected:
    void read() {
        directory.open(game.folder());
        store.read();
    }

    test::Game game;
    std::unique_ptr<platform::Disk> disk = platform::makeDisk();
    test::RecordedLog log;
    test::ScriptedAnswers user;
    GameDirectory directory{*disk, log, user};
    Store store{directory};
};

TEST_F(StoreTest, releases_are_folders_by_their_prefix_and_loose_files) {
    for (const auto* folder : {"Map-A~B", "map-low", "Mapless", "Map-", "TC-Foo", "Mod-Misc"})
        game.makeFolder("Vexillum/" + std::string(folder));
    for (const auto* file : {"b.ufo", "a.UFO", "a.txt", "B.TXT", ".hidden", "no dot"})
        game.put("Vexillum/MAP-misc/" + std::string(file));
    read();
    EXPECT_THAT(store.releasesOf(ReleaseType::map),
                ElementsAre("", "A/B", "low", "a.UFO", "b.ufo", "no dot"));
    EXPECT_EQ(store.countOf(ReleaseType::map), 6);
    EXPECT_THAT(store.releasesOf(ReleaseType::mod), ElementsAre("Misc"));
    EXPECT_THAT(store.releasesOf(ReleaseType::tc), ElementsAre("Cavedog TA", "Foo"));
    EXPECT_TRUE(store.hasFolder(ReleaseType::map, "LOW"));
    EXPECT_FALSE(store.hasFolder(ReleaseType::tc, "low"));
    game.makeFolder("Vexillum/TC-Later");
    EXPECT_EQ(store.countOf(ReleaseType::tc), 2) << "names are read once";
}

TEST_F(StoreTest, texts_come_from_the_folder_or_from_beside_a_loose_file) {
    game.put("Vexillum/Map-A~B/README.txt");
    game.put("Vexillum/Map-A~B/Info.TXT", "one\ntwo");
    game.put("Vexillum/Map-A~B/ccodes.txt", "x\r\ny z\r\n");
    game.put("Vexillum/Map-Misc/l.o.ufo");
    game.put("Vexillum/Map-Misc/L.O.TXT", "loose");
    game.put("Vexillum/Map-Misc/readme.txt");
    read();
    const auto texts = store.textsOf(ReleaseType::map, "A/B");
    EXPECT_EQ(texts.readme, game.folder() + "\\Vexillum\\Map-A~B\\readme.txt");
    EXPECT_EQ(texts.about, "one\r\ntwo\r\n");
    EXPECT_THAT(texts.codes.value(), ElementsAre("x", "y z"));
    const auto loose = store.textsOf(ReleaseType::map, "l.o.ufo");
    EXPECT_EQ(loose.about, "loose\r\n");
    EXPECT_FALSE(loose.readme || loose.codes);
    EXPECT_FALSE(store.textsOf(ReleaseType::map, "gone").about);
}

TEST_F(StoreTest, a_rename_says_why_it_cannot_be) {
    game.put("Vexillum/Mod-Old/a", "a");
    game.makeFolder("Vexillum/Mod-Taken");
    read();
    for (const auto* name : {"taken", "..", "a\\b", "line\nend"})
        EXPECT_NE(store.rename(ReleaseType::mod, "Old", name), "") << name;
    EXPECT_NE(store.rename(ReleaseType::mod, "Missing", "New"), "");
    EXPECT_EQ(store.rename(ReleaseType::mod, "Old", "O/LD"), "");
    EXPECT_EQ(store.rename(ReleaseType::mod, "O/LD", "o/ld"), "") << "case alone";
    EXPECT_EQ(game.content("Vexillum/Mod-o~ld/a"), "a");
}

TEST_F(StoreTest, what_is_removed_goes_with_its_hidden_files_and_its_text) {
    game.put("Vexillum/Unit-Old/.hidden/deep/x", "x");
    game.put("Vexillum/Unit-Misc/a.b.ufo");
    game.put("Vexillum/Unit-Misc/A.B.txt");
    game.put("Vexillum/Unit-Misc/a.txt", "stays");
    game.put("Vexillum/Unit-Misc/nodot", "goes");
    read();
    for (const auto* name : {"Old", "a.b.ufo", "nodot", "gone"})
        store.remove(ReleaseType::unit, name);
    EXPECT_FALSE(game.has("Vexillum/Unit-Old"));
    EXPECT_THAT(disk->fileNames(directory.inDataTree("Unit-Misc")), ElementsAre("a.txt"));
}

} // namespace
} // namespace releases
