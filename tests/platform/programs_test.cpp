// Programs that really run.
#include <chrono>
#include <filesystem>
#include <thread>

#include <gtest/gtest.h>

#include "platform/disk.h"
#include "platform/programs.h"
#include "support/game.h"
#include "support/system.h"

namespace platform {
namespace {

TEST(Programs, are_seen_while_they_run) {
    const test::Game game;
    const auto disk = makeDisk();
    disk->setGameDirectory(game.folder());
    const auto program = game.folder() + "\\TOTALA.EXE";
    game.remove("totala.exe");
    std::filesystem::copy_file(test::sleeper(), game.at("totala.exe"));
    const auto programs = makePrograms(*disk);
    EXPECT_FALSE(programs->isRunning(program));
    programs->start({Command::Kind::program, program, "1", StartWindow::normal});
    const auto comesTo = [&](bool runs) {
        for (int look = 0; look < 300; ++look) {
            if (programs->isRunning(program) == runs)
                return true;
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
        return false;
    };
    EXPECT_TRUE(comesTo(true));
    EXPECT_FALSE(programs->isRunning(game.folder() + "\\other.exe"));
    EXPECT_TRUE(comesTo(false));
}

} // namespace
} // namespace platform
