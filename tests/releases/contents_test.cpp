// What is found in a release, what is kept of it, and the look behind the scenes.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "packing/archive_writer.h"
#include "packing/map_writer.h"
#include "platform/memory_disk.h"
#include "releases/contents_cache.h"
#include "releases/contents_reader.h"
#include "releases/contents_worker.h"
#include "releases/game_colours.h"
#include "releases/store.h"
#include "support/core.h"

namespace releases {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

std::string ota(const std::string& name, const std::string& more = {}) {
    return "[GlobalHeader]\r\n{\r\nmissionname=" + name + ";\r\n" + more + "}\r\n";
}

std::string tnt(unsigned seed) {
    return packing::mapFile(packing::drawMap(seed, 64, 32, 80));
}

std::string pcx(unsigned seed) {
    return packing::pcxFile(packing::unitSide, packing::unitSide, packing::drawUnit(seed));
}

class ContentsTest : public testing::Test {
  protected:
    ContentsTest() { directory.open(game.folder()); }

    std::string release(const std::string& name) const { return directory.inDataTree(name); }

    Contents look(const std::string& name, ContentsCache* cache = nullptr) {
        ContentsReader reader(*disk, release(name), coloursOfGame(*disk, game.folder()), cache);
        while (reader.step()) {
        }
        return reader.contents();
    }

    test::Game game;
    std::unique_ptr<platform::Disk> disk = platform::makeDisk();
    test::RecordedLog log;
    test::ScriptedAnswers user;
    GameDirectory directory{*disk, log, user};
};

template <typename Content>
std::vector<std::string> namesOf(const std::vector<Content>& all) {
    std::vector<std::string> names;
    for (const auto& each : all)
        names.push_back(each.name + (each.picture ? " +" : "") + each.fault);
    return names;
}

TEST_F(ContentsTest, maps_units_and_weapons_come_together_from_archives_and_folders) {
    game.put("totala1.hpi",
             packing::packArchive({{"palettes\\PALETTE.PAL", packing::paletteFile()}}));
    game.put("Vexillum/Mod-A/b.ufo",
             packing::packArchive(
                 {{"Maps\\Divide.ota", ota("Great Divide", "numplayers=2, 4;size=12 x 12;")},
                  {"maps\\divide.TNT", tnt(1)},
                  {"maps\\deep\\no.ota", ota("Not looked into")},
                  {"units\\crane.fbi", "[UNITINFO]{UnitName=BIGCRANE;Name=Hover Crane;}"},
                  {"weapons\\w.tdf", "[A]{ID=1;[DAMAGE]{x=1;}} [B]{ID=2;}"},
                  {"readme.txt", "x"}}));
    game.put("Vexillum/Mod-A/c.ufo", packing::packArchive({{"unitpics\\bigcrane.pcx", pcx(1)},
                                                           {"maps\\alone.tnt", tnt(2)}}));
    game.put("Vexillum/Mod-A/Units/tank.fbi", "[UNITINFO]{UnitName=TANK;}");
    game.put("Vexillum/Mod-A/unitpics/Tank.PCX", pcx(2));
    game.put("Vexillum/Mod-A/maps/words.ota", ota(""));
    const auto found = look("Mod-A");
    EXPECT_EQ(summaryText(found), "2 archives, 11 files, 3 maps, 2 units, 2 weapons");
    EXPECT_THAT(namesOf(found.maps), ElementsAre("alone +", "Great Divide +", "words"));
    EXPECT_THAT(namesOf(found.units), ElementsAre("Hover Crane +", "TANK +"));
    EXPECT_EQ(spokenText(found.maps[1]), "map Great Divide, 12 x 12, 2 to 4 players");
    EXPECT_EQ(spokenText(found.maps[0]), "map alone, 2 x 1");
    EXPECT_EQ(found.maps[0].path, "maps\\alone");
    EXPECT_EQ(found.maps[0].picture->height, 126);
    EXPECT_EQ(found.maps[0].picture->colours, found.units[0].picture->colours);
    EXPECT_THAT(found.faults, IsEmpty());
    EXPECT_EQ(summaryText(look("Mod-Not there")), "No files");
}

TEST_F(ContentsTest, what_lies_over_another_counts) {
    const auto pack = [](const std::string& name) {
        return packing::packArchive({{"maps\\a.ota", ota(name)}});
    };
    game.put("Vexillum/Map-A/a.hpi", pack("by hpi"));
    game.put("Vexillum/Map-A/b.gp3", pack("by gp3"));
    game.put("Vexillum/Map-A/c.ufo", pack("by ufo"));
    EXPECT_THAT(namesOf(look("Map-A").maps), ElementsAre("by gp3"));
    game.put("Vexillum/Map-A/maps/A.OTA", ota("loose"));
    EXPECT_THAT(namesOf(look("Map-A").maps), ElementsAre("loose"));
    // A loose file that is a release, and nothing of those beside it.
    game.put("Vexillum/Map-Misc/one.ufo", pack("one"));
    game.put("Vexillum/Map-Misc/two.ufo", pack("two"));
    EXPECT_THAT(namesOf(look("Map-Misc\\one.ufo").maps), ElementsAre("one"));
    Store store(directory);
    EXPECT_EQ(store.pathOf(ReleaseType::map, "one.ufo"), release("Map-Misc\\one.ufo"));
    EXPECT_EQ(store.pathOf(ReleaseType::map, "A"), release("Map-A"));
}

TEST_F(ContentsTest, bad_files_are_told_of_and_those_beside_them_are_read) {
    auto lying = tnt(1);
    lying.replace(4, 8, std::string("\x00\x4c\x1d\x00\x00\x4c\x1d\x00", 8));
    auto cutPicture = pcx(1);
    cutPicture.resize(500);
    const auto good =
        packing::packArchive({{"maps\\good.ota", ota("good")}, {"maps\\good.tnt", tnt(3)}});
    game.put("Vexillum/Map-A/bad.ufo",
             packing::packArchive({{"maps\\lie.tnt", lying},
                                   {"maps\\cut.tnt", tnt(1).substr(0, 900)},
                                   {"maps\\long.ota", std::string(2 << 20, 'x')},
                                   {"unitpics\\u.pcx", cutPicture},
                                   {"units\\u.fbi", "[UNITINFO]{"}}));
    game.put("Vexillum/Map-A/good.ufo", good);
    game.put("Vexillum/Map-A/none.ufo", "no archive");
    game.put("Vexillum/Map-A/short.ufo", good.substr(0, 60));
    const auto found = look("Map-A");
    EXPECT_THAT(namesOf(found.maps),
                ElementsAre("cutit has no room for a size of 2 x 1", "good +",
                            "lieits size is said to be 60000 x 60000", "long"));
    EXPECT_THAT(namesOf(found.units), ElementsAre("uit is no PCX file, or its end is missing"));
    EXPECT_THAT(found.faults,
                ElementsAre(HasSubstr("none.ufo\" cannot be read: it is no archive"),
                            HasSubstr("short.ufo\" cannot be read"),
                            HasSubstr("long.ota\" cannot be read: it is too large.")));
}

TEST_F(ContentsTest, the_game_s_colours_are_found_wherever_they_are) {
    const auto sample = formats::readPalette(
        {reinterpret_cast<const std::uint8_t*>(packing::paletteFile().c_str()), 0});
    EXPECT_FALSE(sample || coloursOfGame(*disk, game.folder()));
    game.put("a.hpi", "no archive");
    game.put("totala1.hpi", packing::packArchive({{"palettes\\palette.pal", "too short"}}));
    game.put("z.gp3", packing::packArchive({{"Palettes\\PALETTE.PAL", packing::paletteFile()}}));
    EXPECT_EQ(coloursOfGame(*disk, game.folder()).value()[255], (formats::Colour{248, 248, 248}));
    game.put("palettes/Palette.pal", std::string(1024, '\7'));
    EXPECT_EQ(coloursOfGame(*disk, game.folder()).value()[255], (formats::Colour{7, 7, 7}));
    // A conversion brings colours of its own.
    game.put("Vexillum/TC-A/palettes/palette.pal", std::string(1024, '\1'));
    game.put("Vexillum/TC-A/maps/a.tnt", tnt(1));
    EXPECT_EQ(look("TC-A").maps.at(0).picture->colours[9], (formats::Colour{1, 1, 1}));
}

class CacheTest : public ContentsTest {
  protected:
    std::string folder = directory.inDataTree("VXL-Cache");

    void putMap(const std::string& name, unsigned seed) {
        game.put("Vexillum/Map-" + name + "/maps/a.ota",
                 ota(name, "size=1 x 2;numplayers=2-3;gravity=-4;lavaworld=1;"));
        game.put("Vexillum/Map-" + name + "/maps/a.tnt", tnt(seed));
        game.put("Vexillum/Map-" + name + "/units/u.fbi", "[UNITINFO]{Name=u;BuildCostMetal=3;}");
        game.put("Vexillum/Map-" + name + "/unitpics/u.pcx", pcx(seed));
    }
};

TEST_F(CacheTest, what_was_found_is_read_once_until_a_file_changes) {
    putMap("A", 1);
    ContentsCache cache(*disk, folder);
    const auto first = look("Map-A", &cache);
    ASSERT_EQ(disk->fileNames(folder).size(), 1U);
    const auto again = look("Map-A", &cache);
    EXPECT_EQ(cachedBytes(1, first), cachedBytes(1, again)) << "nothing is lost on the way";
    EXPECT_EQ(*again.maps.at(0).picture, *first.maps.at(0).picture);
    EXPECT_EQ(again.maps.at(0).info.players, first.maps.at(0).info.players);
    EXPECT_EQ(again.units.at(0).info.metal, 3);
    // It is the cache that answers: of two releases alike, the second is not looked into.
    auto kept = disk->readFile(folder + "\\" + disk->fileNames(folder).at(0));
    game.put("Vexillum/Map-A/maps/a.ota", ota("B"));
    EXPECT_EQ(look("Map-A", &cache).maps.at(0).name, "B");
    EXPECT_EQ(disk->fileNames(folder).size(), 2U);
    // Removed in between, it comes back.
    disk->removeTree(folder);
    look("Map-A", &cache);
    EXPECT_EQ(disk->fileNames(folder).size(), 1U);
}

TEST_F(CacheTest, a_damaged_entry_is_dropped_without_a_word) {
    putMap("A", 1);
    ContentsCache cache(*disk, folder);
    const auto found = look("Map-A", &cache);
    const auto file = "Vexillum/VXL-Cache/" + disk->fileNames(folder).at(0);
    const auto whole = *game.content(file);
    const auto key = std::stoull(disk->fileNames(folder).at(0).substr(0, 16), nullptr, 16);
    ASSERT_TRUE(readCached(key, whole));
    EXPECT_FALSE(readCached(key + 1, whole));
    for (std::size_t at = 0; at < whole.size(); at += 7) {
        auto damaged = whole;
        damaged[at] = static_cast<char>(damaged[at] ^ 0x55);
        EXPECT_FALSE(readCached(key, damaged)) << at;
        EXPECT_FALSE(readCached(key, whole.substr(0, at))) << at;
    }
    game.put(file, whole.substr(0, whole.size() - 1));
    EXPECT_FALSE(cache.find(key));
    EXPECT_FALSE(game.has(file));
    EXPECT_EQ(look("Map-A", &cache).maps.at(0).name, "A");
    EXPECT_EQ(game.content(file), whole);
}

TEST_F(CacheTest, the_oldest_go_where_there_are_too_many) {
    Contents contents;
    contents.maps.push_back({"maps\\a", "a", {}, nullptr, std::string(200, 'x')});
    const auto size = cachedBytes(1, contents).size();
    for (std::uint64_t key = 1; key <= 40; ++key) {
        // Another start now and then: the folder is looked at anew.
        ContentsCache cache(*disk, folder, size * 10);
        cache.keep(key, contents);
        cache.keep(key + 100, contents);
        EXPECT_LE(disk->fileNames(folder).size(), 10U);
    }
    ContentsCache cache(*disk, folder, size * 10);
    EXPECT_TRUE(cache.find(40) && cache.find(140));
    EXPECT_FALSE(cache.find(1));
    ContentsCache small(*disk, folder + "2", size * 3);
    small.keep(1, contents);
    EXPECT_FALSE(small.find(1)) << "one that would push out most others is not kept";
    game.put("Vexillum/no folder", "x");
    ContentsCache none(*disk, directory.inDataTree("no folder"));
    none.keep(1, contents);
    EXPECT_FALSE(none.find(1));
}

TEST_F(CacheTest, a_look_behind_the_scenes_takes_the_urgent_one_first_and_can_be_given_up) {
    std::vector<std::string> all;
    for (int i = 0; i < 20; ++i) {
        putMap(std::to_string(i), static_cast<unsigned>(i));
        all.push_back(release("Map-" + std::to_string(i)));
    }
    ContentsWorker worker(directory);
    EXPECT_FALSE(worker.isBusy());
    worker.want({all[3], all[1]});
    worker.finish();
    EXPECT_TRUE(worker.isBusy()) << "there is something to take";
    const auto found = worker.take();
    ASSERT_EQ(found.size(), 2U);
    EXPECT_EQ(found[0].path, all[3]);
    EXPECT_EQ(found[1].contents->maps.at(0).name, "1");
    EXPECT_FALSE(worker.isBusy());
    for (int round = 0; round < 30; ++round) {
        std::rotate(all.begin(), all.begin() + 3, all.end());
        worker.want(all);
        if (round % 3 == 0)
            worker.stop();
    }
    worker.take();
    worker.want({all[7]});
    worker.finish();
    EXPECT_EQ(worker.take().back().path, all[7]);
    worker.want(all);
    worker.stop();
    worker.take();
    EXPECT_FALSE(worker.isBusy());
}

TEST(ContentsWorkerTest, a_disk_for_one_thread_is_read_a_little_at_each_call) {
    const auto memory = std::make_shared<platform::MemoryDisk>();
    memory->put("/game/Vexillum/Map-A/maps/a.ota", ota("A"));
    memory->put("/game/Vexillum/Map-A/maps/a.tnt", tnt(1));
    platform::Disk disk(memory);
    test::RecordedLog log;
    test::ScriptedAnswers user;
    GameDirectory directory(disk, log, user);
    directory.open("/game");
    ContentsWorker worker(directory);
    worker.want({directory.inDataTree("Map-A")});
    std::vector<ContentsWorker::Found> found;
    while (worker.isBusy())
        for (auto& each : worker.take())
            found.push_back(std::move(each));
    ASSERT_EQ(found.size(), 1U);
    EXPECT_TRUE(found[0].contents->maps.at(0).picture);
}

} // namespace
} // namespace releases
