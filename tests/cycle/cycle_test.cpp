// The promise of the cycle: whatever is chosen and answered, and wherever the power goes, no file
// is lost or changed and the next start makes the game directory plain.
#include <algorithm>
#include <random>
#include <set>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "cycle/after_reset.h"
#include "cycle/apply.h"
#include "cycle/preview.h"
#include "cycle/reset.h"
#include "platform/text.h"
#include "support/core.h"
#include "support/faulty_disk.h"
#include "support/play.h"
#include "support/system.h"

namespace {

using test::Game;

/// A game directory, releases, a selection and answers, all by chance.
class RandomGame {
  public:
    /// `alike` allows names that differ in case alone in one folder of the game.
    explicit RandomGame(unsigned seed, bool alike = true) : random_(seed) {
        alike_ = alike && test::tellsCaseApart;
        fill("", 6, 2);
        alike_ = test::tellsCaseApart;
        for (const auto& [type, tab] : tabs) {
            const int releases = upTo(4);
            for (int i = 0; i < releases; ++i)
                addRelease(type, tab);
            if (type == "Map" || type == "Unit")
                for (int i = upTo(3); i > 0; --i) {
                    const auto name = pick(files);
                    const auto folder = "Vexillum/" + type + "-Misc/";
                    if (!isFree(folder, name))
                        continue;
                    put(folder + name);
                    if (!platform::endsWithIgnoringCase(name, ".txt") && !name.starts_with('.'))
                        choices_.insert({tab, name});
                }
        }
    }

    std::string script() {
        std::string text;
        for (const auto& [tab, name] : choices_)
            if (upTo(4) > 0)
                text += "tab " + tab + "\nmark " + platform::toUtf8(name) + "\n";
        for (int i = 0; i < 200; ++i)
            text += upTo(2) > 0 ? "answer Yes\n" : "answer No\n";
        return text + (upTo(1) > 0 ? "click cmdGo\n" : "close\n");
    }

    /// The same choice as a value.
    cycle::Selection selection() {
        cycle::Selection selection;
        for (const auto& [tab, name] : choices_) {
            const auto& type = *releases::typeOfTab(tab);
            if (upTo(4) == 0)
                continue;
            if (type.isSingle())
                selection.choose(type.type, releases::folderForm(name));
            else
                selection.add(type.type, name);
        }
        return selection;
    }

    const Game& game() const { return game_; }
    const std::vector<std::string>& releases() const { return releases_; }
    int upTo(int most) { return std::uniform_int_distribution(0, most)(random_); }

  private:
    static inline const std::vector<std::pair<std::string, std::string>> tabs = {
        {"TC", "Total Conversions"},
        {"AI", "AIs"},
        {"Race", "Races"},
        {"Mod", "Mods"},
        {"Map", "Maps"},
        {"Unit", "Units"}};
    static inline const std::vector<std::string> names = {"Alpha", "Beta~Two", "gamma",
                                                          "Über",  "D.E",      " blank"};
    static inline const std::vector<std::string> folders = {
        "maps", "MAPS", "units", "Units", "ai", "MOVES", "guis", "é", "É", "Vexillum", "a.ufo"};
    /// Names that not every system can hold.
    static constexpr auto foreign = test::onWindows ? "\xC3\xBF.ufo" : "\xFF.ufo";
    static constexpr auto blank = test::onWindows ? " x" : " x ";
    static constexpr auto quoted = test::onWindows ? "c'd e.ota" : "c'd\"e.ota";
    static inline const std::vector<std::string> files = {
        "a.ufo",   "A.UFO", "b.ccx",   "readme.txt", "ReadMe.TXT", "totala.exe", "TOTALA.EXE",
        "mod.exe", "maps",  "é.tdf",   "É.tdf",      blank,        "MKDIRS",     "Vexillum.exe",
        "x.y.hpi", foreign, ".hidden", "units",      "a;b.tdf",    quoted};

    const std::string& pick(const std::vector<std::string>& from) {
        return from[static_cast<std::size_t>(upTo(static_cast<int>(from.size()) - 1))];
    }

    void put(const std::string& path) {
        if (!game_.has(path))
            game_.put(path, "file " + std::to_string(++content_));
    }

    bool isFree(const std::string& folder, const std::string& name) const {
        if (alike_)
            return !game_.has(folder + name);
        std::error_code missing;
        const auto entries = std::filesystem::directory_iterator(game_.at(folder), missing);
        return std::none_of(begin(entries), end(entries), [&name](const auto& entry) {
            return platform::equalIgnoringCase(entry.path().filename().string(), name);
        });
    }

    void fill(const std::string& folder, int most, int depth) {
        for (int i = upTo(most); i > 0; --i)
            if (const auto name = pick(files); isFree(folder, name))
                put(folder + name);
        for (int i = depth > 0 ? upTo(3) : 0; i > 0; --i) {
            const auto name = pick(folders);
            if (!isFree(folder, name))
                continue;
            const auto sub = folder + name;
            game_.makeFolder(sub);
            fill(sub + "/", most, depth - 1);
        }
    }

    void addRelease(const std::string& type, const std::string& tab) {
        const auto name = pick(names);
        const auto folder = "Vexillum/" + type + "-" + name;
        game_.makeFolder(folder);
        releases_.push_back(folder);
        fill(folder + "/", 4, 2);
        choices_.insert({tab, platform::replaceAll(name, "~", "/")});
    }

    std::mt19937 random_;
    Game game_;
    int content_ = 0;
    bool alike_ = true;
    std::vector<std::string> releases_;
    std::set<std::pair<std::string, std::string>> choices_;
};

std::vector<std::string> contents(const test::Tree& files) {
    std::vector<std::string> all;
    for (const auto& [path, content] : files)
        all.push_back(content);
    std::sort(all.begin(), all.end());
    return all;
}

/// What may differ in the folders of a plain game directory behind a cycle.
void expectSameFolders(const std::vector<std::string>& before,
                       const std::vector<std::string>& after) {
    for (const auto& folder : after)
        if (!std::binary_search(before.begin(), before.end(), folder)) {
            EXPECT_THAT(folder, testing::StartsWith("Vexillum/TC-Cavedog TA/"));
        }
    for (const auto& folder : before)
        if (!std::binary_search(after.begin(), after.end(), folder)) {
            EXPECT_EQ(folder.find('/'), std::string::npos)
                << folder << " went, but was no empty one";
        }
}

TEST(Cycle, holds_in_random_game_directories) {
    // Under a layer over another system each takes a second.
    constexpr unsigned games = test::onWindows ? 60 : 300;
    for (unsigned seed = 1; seed <= games; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        const bool alike = seed % 2 == 0;
        RandomGame random(seed, alike);
        const auto& game = random.game();
        const auto files = game.files();
        const auto folders = game.folders();
        const auto applied = test::play(game, random.script());
        ASSERT_TRUE(applied.endedItself) << applied.badLine.value_or("no bad line");
        EXPECT_EQ(contents(game.files()), contents(files));
        test::play(game, "");
        ASSERT_EQ(test::differences(files, game.files()), "");
        expectSameFolders(folders, game.folders());
        // What is undone once more changes nothing, also where a release is gone by then.
        if (!alike && !random.releases().empty())
            game.remove(random.releases().front());
        const auto without = game.files();
        test::play(game, "");
        ASSERT_EQ(test::differences(without, game.files()), "");
    }
}

/// What a preview and a test look at: all but the data tree and what no listing shows.
test::Tree seen(test::Tree files) {
    std::erase_if(files, [](const auto& file) {
        const auto& path = file.first;
        return platform::foldCase(path).starts_with("vexillum/") || path.starts_with('.') ||
               path.find("/.") != std::string::npos;
    });
    return files;
}

TEST(Preview, shows_what_the_launch_does_in_random_game_directories) {
    constexpr unsigned games = test::onWindows ? 60 : 500;
    int conflicts = 0;
    int blocked = 0;
    for (unsigned seed = 1; seed <= games; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        RandomGame random(seed, seed % 2 == 0);
        const auto before = random.game().files();
        const auto disk = platform::makeDisk();
        test::RecordedLog log;
        test::ScriptedAnswers answers;
        releases::GameDirectory game(*disk, log, answers);
        game.open(random.game().folder());
        const auto selection = random.selection();
        cycle::Decisions chosen;
        const auto preview = [&] {
            return cycle::makePreview(game, selection, {}, &chosen, nullptr);
        };
        for (const auto& file : preview().files)
            for (const auto& rival : file.rivals)
                if (rival.owner != rival.lostTo && random.upTo(1) == 0)
                    chosen.decide({file.path, rival.owner, rival.lostTo});
        const auto shown = preview();
        EXPECT_EQ(random.game().files(), before) << "a preview changes nothing";
        cycle::Unfinished unfinished;
        const auto plan = cycle::makePlan(game, selection, {}, {&chosen, nullptr});
        ASSERT_TRUE(cycle::carryOut(game, plan.journal(), unfinished));
        test::Tree expected;
        for (const auto& file : shown.files)
            expected[platform::replaceAll(file.path, "\\", "/")] =
                before.at(platform::replaceAll(file.from, "\\", "/"));
        ASSERT_EQ(test::differences(seen(expected), seen(random.game().files())), "");
        conflicts += shown.conflicts();
        blocked += static_cast<int>(shown.blocked.size());
        EXPECT_EQ(shown.blocked.size(),
                  std::count_if(answers.asked.begin(), answers.asked.end(), [](const auto& text) {
                      return text.starts_with("I was trying to move");
                  }));
    }
    EXPECT_GT(conflicts, 100);
    EXPECT_GT(blocked, 10);
}

/// What would be planned, every question answered with Yes.
std::string planOver(const releases::GameDirectory& game, const cycle::Listings& listings,
                     const cycle::Selection& selection) {
    test::ScriptedAnswers yes;
    return formats::humanText(cycle::makePlan(game, listings, yes, selection).journal());
}

TEST(AfterReset, tells_what_the_reset_leaves_in_random_game_directories) {
    constexpr unsigned games = test::onWindows ? 60 : 300;
    int told = 0;
    for (unsigned seed = 1; seed <= games; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        RandomGame random(seed, seed % 2 == 0);
        const auto disk = platform::makeDisk();
        test::RecordedLog log;
        test::ScriptedAnswers yes;
        releases::GameDirectory game(*disk, log, yes);
        game.open(random.game().folder());
        cycle::Unfinished unfinished;
        ASSERT_TRUE(cycle::carryOut(
            game, cycle::makePlan(game, random.selection(), unfinished).journal(), unfinished));
        // Somebody may have been there since.
        if (seed % 5 == 0)
            random.game().put("a.ufo", "patched");
        const auto last = cycle::readLastLaunch(game);
        const auto next = random.selection();
        const auto listings = cycle::listingsAfterReset(game, last);
        const auto expected = listings ? planOver(game, *listings, next) : std::string();
        unfinished = cycle::undo(game, last, false);
        if (!listings)
            continue;
        ++told;
        ASSERT_EQ(planOver(game, cycle::listingsOf(game, unfinished), next), expected);
    }
    EXPECT_GT(told, static_cast<int>(games) / 2);
}

TEST(Cycle, comes_back_plain_wherever_the_power_goes) {
    RandomGame random(7);
    const auto& game = random.game();
    const auto script = random.script();
    const auto files = game.files();
    const auto disk = platform::makeDisk();
    bool ended = false;
    int cut = 1;
    for (; !ended; ++cut) {
        SCOPED_TRACE("before change " + std::to_string(cut));
        test::FaultyDisk faulty(*disk, [cut](int number, const auto&) {
            if (number == cut)
                throw test::PowerCut();
        });
        try {
            ended = test::play(game, script, {"", &faulty}).endedItself;
        } catch (const test::PowerCut&) {
            EXPECT_EQ(contents(game.files()), contents(files));
        }
        test::play(game, "");
        ASSERT_EQ(test::differences(files, game.files()), "");
    }
    EXPECT_GT(cut, 25);
}

TEST(Cycle, loses_nothing_where_every_change_of_the_disk_fails_by_chance) {
    for (unsigned seed = 1; seed <= 40; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        RandomGame random(seed);
        const auto& game = random.game();
        const auto files = game.files();
        const auto disk = platform::makeDisk();
        test::FaultyDisk faulty(*disk, [&random](int /*number*/, const std::string& path) {
            if (random.upTo(2) == 0)
                throw platform::Failure("change", path, "the disk is full");
        });
        test::play(game, random.script(), {"", &faulty});
        EXPECT_EQ(contents(game.files()), contents(files));
    }
}

TEST(Cycle, a_folder_that_takes_no_files_brings_messages_and_loses_nothing) {
    const Game game;
    game.put("Vexillum/Mod-New/units/a.fbi", "new");
    game.put("Vexillum/Mod-New/b.ufo", "new b");
    game.put("units", "a file where a folder is expected");
    const auto files = game.files();
    const auto applied = test::play(game, "tab Mods\nmark New\nclick cmdGo\n");
    EXPECT_TRUE(applied.endedItself);
    const auto told = fieldOf(applied, "message", "text");
    ASSERT_EQ(told.size(), 1U);
    EXPECT_THAT(told[0], testing::StartsWith("I was trying to move \"" + game.folder() +
                                             test::shown("/Vexillum/Mod-New/units/a.fbi") + '"'));
    EXPECT_EQ(test::inPosixWords(fieldOf(applied, "message", "detail").at(0)), "Not a directory");
    EXPECT_EQ(game.content("b.ufo"), "new b");
    EXPECT_EQ(contents(game.files()), contents(files));
    test::play(game, "");
    EXPECT_EQ(test::differences(files, game.files()), "");
}

TEST(Cycle, selection_files_of_any_bytes_do_no_harm) {
    const Game game;
    game.put("Vexillum/Map-New/a.ufo", "new");
    std::mt19937 random(5);
    std::string bytes;
    for (int i = 0; i < 4000; ++i)
        bytes += static_cast<char>(random() & 0xFFU);
    for (const auto* name : {"TC", "AI", "Races", "Mods", "Maps", "Units", "Trlx"})
        game.put(std::string("Vexillum/VXL-Sel/sel") + name + ".txt",
                 bytes + "\r\n..\\..\\x\r\nNew");
    const auto files = game.files();
    EXPECT_TRUE(test::play(game, "tab Races\ntab Mods\nclose\n").endedItself);
    test::play(game, "");
    EXPECT_EQ(test::differences(files, game.files()), "");
}

TEST(Cycle, a_plan_may_hold_more_than_16_bits_of_files) {
    const Game game;
    for (int i = 0; i < 40'000; ++i)
        game.put("Vexillum/Mod-Big/" + std::to_string(i / 1000) + "/" + std::to_string(i));
    EXPECT_TRUE(test::play(game, "tab Mods\nmark Big\nclose\n").endedItself);
    EXPECT_TRUE(game.has("39/39999"));
    EXPECT_FALSE(game.has("Vexillum/Mod-Big/39/39999"));
    const auto reset = test::play(game, "");
    EXPECT_TRUE(fieldOf(reset, "message", "text").empty());
    EXPECT_TRUE(game.has("Vexillum/Mod-Big/39/39999"));
    EXPECT_FALSE(game.has("39"));
}

} // namespace
