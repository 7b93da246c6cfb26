// What programs get where they are started by a POSIX system, and what it needs for that.
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <thread>

#include <gtest/gtest.h>

#include "platform/disk.h"
#include "platform/failure.h"
#include "platform/programs.h"
#include "support/game.h"

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

} // namespace
} // namespace platform
