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
