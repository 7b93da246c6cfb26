// What programs get where they are started by a POSIX system, and what it needs for that.
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <thread>

#include <gtest/gtest.h>

#include "platform/disk.h"
#include "platform/failure.h"
#include "platform/programs.h"
#include "platform/text.h"
#include "support/game.h"
#include "support/system.h"

namespace platform {
namespace {

TEST(Programs, what_is_handed_over_reaches_the_next_copy_alone) {
    test::Game game;
    const auto disk = makeDisk();
    const auto programs = makePrograms(*disk);
    game.put("copy", "#!/bin/sh\nprintf %s \"$VEXILLUM_HANDED_OVER\" > part; mv part told\n");
    std::filesystem::permissions(game.folder() + "/copy", std::filesystem::perms::owner_all);
    programs->start({Command::Kind::program, game.folder() + "\\copy", "", StartWindow::normal,
                     "Map:Ashap\r\n"});
    for (int tries = 0; tries < 200 && !game.has("told"); ++tries)
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    EXPECT_EQ(game.content("told"), "Map:Ashap\r\n");
    EXPECT_EQ(takeHandedOver(), "");
}

TEST(Programs, a_helper_that_is_missing_is_named_with_its_package) {
    test::Game game;
    const auto disk = makeDisk();
    const auto programs = makePrograms(*disk);
    game.put("game.exe", "MZ");
    const auto* before = std::getenv("PATH");
    const std::string path = before == nullptr ? "" : before;
    ::setenv("PATH", game.folder().c_str(), 1);
    const auto reasonOf = [&](Command::Kind kind) {
        try {
            programs->start({kind, game.folder() + "\\game.exe", "", StartWindow::normal});
        } catch (const Failure& failure) {
            return failure.reason();
        }
        return std::string();
    };
    const auto wine = reasonOf(Command::Kind::program);
    const auto opener = reasonOf(Command::Kind::open);
    ::setenv("PATH", path.c_str(), 1);
    EXPECT_NE(wine.find("the package is called \"wine\""), std::string::npos) << wine;
    EXPECT_NE(opener.find("the package is called \"xdg-utils\""), std::string::npos) << opener;
}

/// A wine that notes what it gets, and the tools that it needs for that.
class WinePrograms : public testing::Test {
  protected:
    WinePrograms() {
        makeProgram("bin/wine",
                    "#!/bin/sh\nexec >\"$OUT/part\"\nfor w in "
                    "\"$WINEPREFIX\" \"$A\" \"$@\"; do echo \"$w\"; done\n"
                    "mv \"$OUT/part\" \"$OUT/told\"\nexec sleep \"${SECONDS_TO_RUN:-0}\"\n");
        makeProgram("bin/prime-run", "#!/bin/sh\nexec \"$@\"\n");
        ::setenv("OUT", game.folder().c_str(), 1);
        ::setenv("PATH", (game.folder() + "/bin:" + before).c_str(), 1);
        ::setenv("WINEPREFIX", "/elsewhere", 1);
    }
    ~WinePrograms() override {
        ::setenv("PATH", before.c_str(), 1);
        for (const auto* variable : {"OUT", "WINEPREFIX", "SECONDS_TO_RUN"})
            ::unsetenv(variable);
    }

    void makeProgram(const std::string& path, const std::string& text) const {
        game.put(path, text);
        std::filesystem::permissions(game.at(path), std::filesystem::perms::owner_all);
    }

    /// What wine got: prefix, A, and its arguments, a line each, with GAME for the directory.
    std::string told() const {
        for (int tries = 0; tries < 300 && !game.has("told"); ++tries)
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        return replaceAll(game.content("told").value_or("nothing"), game.folder(), "GAME");
    }

    const std::string before = std::getenv("PATH") == nullptr ? "" : std::getenv("PATH");
    test::Game game;
    std::unique_ptr<Disk> disk = makeDisk();
    std::unique_ptr<Programs> programs = makePrograms(*disk);
};

TEST_F(WinePrograms, get_the_prefix_that_they_lie_in_and_what_the_wrapper_says) {
    game.put("home/.wine/system.reg");
    game.put("home/.wine/drive_c/My Games/ta.exe", "MZ");
    game.put("home/new/drive_c/ta.exe", "MZ");
    game.makeFolder("bottle/dosdevices");
    game.put("bottle/games/ta.exe", "MZ");
    game.put("plain/ta.exe", "MZ");
    ASSERT_TRUE(test::makeLink(game.at("home/.wine/drive_c/My Games"), game.at("linked")));
    struct Row {
        const char* program;
        const char* wrapper;
        const char* told;
    };
    for (const auto& row :
         {Row{"home/.wine/drive_c/My Games/ta.exe", "", "GAME/home/.wine\n\n"},
          Row{"home/new/drive_c/ta.exe", "A='b c'", "GAME/home/new\nb c\n"},
          Row{"bottle/games/ta.exe", "env A=1 prime-run", "GAME/bottle\n1\n"},
          Row{"linked/ta.exe", " A=\\ \tprime-run env A=2 ", "GAME/home/.wine\n2\n"},
          Row{"home/new/drive_c/ta.exe", "WINEPREFIX=/mine", "/mine\n\n"},
          Row{"plain/ta.exe", "", "/elsewhere\n\n"}}) {
        game.remove("told");
        const auto path = game.folder() + "/" + row.program;
        programs->start({Command::Kind::program,
                         path,
                         "",
                         StartWindow::normal,
                         "",
                         row.wrapper,
                         {"one word", "two"}});
        EXPECT_EQ(told(), std::string(row.told) + "GAME/" + row.program + "\none word\ntwo\n")
            << row.wrapper;
    }
}

TEST_F(WinePrograms, are_seen_to_run_under_a_wrapper_and_behind_a_link) {
    game.put("real/ta.exe", "MZ");
    ASSERT_TRUE(test::makeLink(game.at("real"), game.at("linked")));
    ::setenv("SECONDS_TO_RUN", "1", 1);
    // A shell stands for wine, with the game's name among its arguments.
    makeProgram("bin/wine", "#!/bin/sh\n\"" + test::sleeper().string() + "\" 1\ntrue\n");
    const auto path = game.folder() + "/linked\\TA.EXE";
    const auto program = programs->startWatched(
        {Command::Kind::program, path, "", StartWindow::normal, "", "A=1 prime-run"});
    bool wasSeen = false;
    for (int look = 0; look < 500 && program->isRunning(); ++look) {
        wasSeen = wasSeen || programs->isRunning(path);
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    EXPECT_TRUE(wasSeen);
    EXPECT_FALSE(program->isRunning());
    EXPECT_FALSE(programs->isRunning(path));
}

TEST_F(WinePrograms, that_a_wrapper_cannot_run_are_refused_with_the_reason) {
    std::filesystem::remove(game.at("bin/prime-run"));
    struct Row {
        const char* wrapper;
        const char* reason;
    };
    for (const auto& row : {Row{"", ""}, Row{"A=1", ""}, Row{"nice -n 5", ""},
                            Row{"nice prime-run", "the package is called \"nvidia-prime\""},
                            Row{"gamemoderun", "the package is called \"gamemode\""},
                            Row{"1=A", "There is no command \"1=A\""},
                            Row{"./none", "There is no command"}, Row{"\"nice", "stands open"}}) {
        const auto reason = reasonAgainstWrapper(row.wrapper);
        EXPECT_NE(reason.find(row.reason), std::string::npos) << row.wrapper << ": " << reason;
        EXPECT_EQ(reason.empty(), row.reason[0] == '\0') << row.wrapper << ": " << reason;
    }
    game.put("ta.exe", "MZ");
    const auto path = game.folder() + "/ta.exe";
    EXPECT_THROW(programs->start(
                     {Command::Kind::program, path, "", StartWindow::normal, "", "nice prime-run"}),
                 Failure);
    // The wrapper is there, and what it would run is not.
    makeProgram("tools/nice", "#!/bin/sh\n");
    ::setenv("PATH", game.at("tools").c_str(), 1);
    try {
        programs->start({Command::Kind::program, path, "", StartWindow::normal, "", "nice"});
        ADD_FAILURE() << "started without wine";
    } catch (const Failure& failure) {
        EXPECT_NE(failure.reason().find("the package is called \"wine\""), std::string::npos);
    }
}

/// The game is a script here, with the sleeper as $S.
struct Descent {
    const char* title;
    const char* script;
    bool isKilled; ///< the script itself
    bool runsOn;   ///< once the script has gone
};

class WatchedPrograms : public testing::TestWithParam<Descent> {};

TEST_P(WatchedPrograms, run_as_long_as_any_that_they_have_started) {
    test::Game game;
    const auto disk = makeDisk();
    const auto programs = makePrograms(*disk);
    game.put("game", "#!/bin/bash\nS='" + test::sleeper().string() +
                         "'\necho $$ > part; mv part told\n" + GetParam().script + "\n");
    std::filesystem::permissions(game.folder() + "/game", std::filesystem::perms::owner_all);
    const auto program = programs->startWatched(
        {Command::Kind::program, game.folder() + "\\game", "", StartWindow::normal});
    const auto comesTo = [](const auto& condition) {
        for (int look = 0; look < 500; ++look) {
            if (condition())
                return true;
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
        return false;
    };
    EXPECT_TRUE(program->isRunning());
    ASSERT_TRUE(comesTo([&] { return game.has("told") && game.has("child"); }));
    EXPECT_TRUE(program->isRunning());
    const int script = std::stoi(game.content("told").value());
    if (GetParam().isKilled)
        ::kill(script, SIGKILL);
    ASSERT_TRUE(comesTo([&] { return ::kill(script, 0) != 0; }));
    EXPECT_EQ(program->isRunning(), GetParam().runsOn);
    EXPECT_TRUE(comesTo([&] { return !program->isRunning(); }));
}

INSTANTIATE_TEST_SUITE_P(
    All, WatchedPrograms,
    testing::Values(Descent{"alone", "touch child; \"$S\" 0.3", false, false},
                    Descent{"left_behind", "\"$S\" 2 & touch child", false, true},
                    Descent{"killed_over_its_child", "\"$S\" 2 & touch child; wait", true, true},
                    Descent{"in_a_session_of_its_own", "(setsid \"$S\" 2 &) ; touch child", false,
                            true},
                    Descent{"with_nothing_in_its_environment",
                            "env -i \"$S\" 2 & sleep 0.2; touch child; sleep 0.5", false, true},
                    Descent{"what_serves_the_next_one",
                            "(exec -a 'C:\\windows\\system32\\services.exe' sleep 4) & "
                            "cp \"$S\" wineserver64; ./wineserver64 4 & touch child; sleep 0.3",
                            false, false}),
    [](const auto& row) { return std::string(row.param.title); });

} // namespace
} // namespace platform
