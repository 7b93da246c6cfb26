// Programs that really run.
#include <atomic>
#include <chrono>
#include <filesystem>
#include <future>
#include <thread>

#include <gtest/gtest.h>

#include "platform/disk.h"
#include "platform/failure.h"
#include "platform/instance_lock.h"
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

TEST(Programs, can_be_waited_for) {
    const test::Game game;
    const auto disk = makeDisk();
    disk->setGameDirectory(game.folder());
    game.remove("totala.exe");
    std::filesystem::copy_file(test::sleeper(), game.at("totala.exe"));
    const auto programs = makePrograms(*disk);
    const auto program = programs->startWatched(
        {Command::Kind::program, game.folder() + "\\TOTALA.EXE", "1", StartWindow::normal});
    EXPECT_TRUE(program->isRunning());
    for (int look = 0; look < 500 && program->isRunning(); ++look)
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    EXPECT_FALSE(program->isRunning());
    EXPECT_THROW(programs->startWatched({Command::Kind::program, game.folder() + "\\none.exe", "",
                                         StartWindow::normal}),
                 Failure);
}

TEST(InstanceLock, who_holds_it_hears_the_next_one_and_answers) {
    test::Game game;
    const auto held = lockFolder(game.folder(), Holder::isLeftAlone);
    ASSERT_TRUE(held.lock);
    const auto bell = hangDoorbell(game.folder());
    ASSERT_TRUE(bell);
    std::atomic<bool> isDone = false;
    // A thread that holds a lock might get it once more.
    auto next = std::async(std::launch::async, [&] {
        auto outcome = lockFolder(game.folder() + "/Vexillum/..", Holder::isAsked);
        isDone = true;
        return outcome.wasAnswered && !outcome.lock;
    });
    while (!isDone) {
        bell->answer();
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    EXPECT_TRUE(next.get());
}

} // namespace
} // namespace platform
