// The whole cycle on a disk that forgets what was not synced: wherever the power goes, the next
// start finds a journal that fits what is there.
#include <gtest/gtest.h>

#include "cycle/apply.h"
#include "cycle/reset.h"
#include "platform/memory_disk.h"
#include "support/core.h"
#include "support/faulty_disk.h"

namespace cycle {
namespace {

using releases::ReleaseType;

constexpr auto changes = "VXL-Changes/";

/// All files but the journal's own, and what a move cut off had not put in place yet.
std::map<std::string, std::string> gameFiles(const platform::MemoryDisk& disk) {
    auto files = disk.files("/game");
    std::erase_if(files, [](const auto& file) {
        return file.first.find(changes) != std::string::npos ||
               file.first.find(".vexillum-part") != std::string::npos;
    });
    return files;
}

class PowerTest : public testing::Test {
  protected:
    PowerTest() {
        memory->put("/game/totala.exe", "the game");
        memory->put("/game/units/a.fbi", "game a");
        memory->put("/game/Vexillum/VXL-Changes/Internal.txt", "MKDIRS\r\nMOVES\r\n");
        memory->put("/game/Vexillum/VXL-Changes/Human.txt", "");
        memory->putFolder("/game/Vexillum/TC-Cavedog TA");
        memory->put("/game/Vexillum/Mod-One/units/a.fbi", "one a");
        memory->put("/game/Vexillum/Mod-One/b.ufo", "one b");
        memory->put("/game/Vexillum/Mod-Two/new/c.ufo", "two c");
        memory->put("/game/Vexillum/Mod-Two/units/A.FBI", "two a");
        plain = gameFiles(*memory);
    }

    /// Runs a stretch of a run before whose change number `cut` the power goes; 0 for none. Tells
    /// whether it came to its end.
    template <typename Work>
    bool run(int cut, Work&& work) {
        const auto disk = test::faultyDisk(memory, [&](const test::RawChange& change) {
            if (change.number == cut)
                throw test::PowerCut();
            return std::error_code();
        });
        platform::NoLog nobody;
        releases::GameDirectory game(*disk, nobody, user);
        game.open("/game");
        try {
            work(game);
            return true;
        } catch (const test::PowerCut&) {
            return false;
        }
    }

    static void apply(releases::GameDirectory& game, const char* mod) {
        Selection selection;
        selection.add(ReleaseType::mod, mod);
        Unfinished unfinished;
        carryOut(game, makePlan(game, selection).journal(), unfinished);
    }
    static void reset(releases::GameDirectory& game) { undo(game, readLastLaunch(game), false); }

    std::shared_ptr<platform::MemoryDisk> memory = std::make_shared<platform::MemoryDisk>();
    test::ScriptedAnswers user;
    std::map<std::string, std::string> plain;
};

/// A new journal must not be on the disk ahead of what the reset before it moved back.
TEST_F(PowerTest, a_start_and_a_launch_cut_off_anywhere_come_back_plain) {
    int cuts = 0;
    for (const auto& arrived : {std::set<std::uint64_t>{}, {0}}) {
        bool ended = false;
        for (int cut = 1; !ended; ++cut, ++cuts) {
            SCOPED_TRACE("cut " + std::to_string(cut) + (arrived.empty() ? "" : ", names arrived"));
            memory = std::make_shared<platform::MemoryDisk>();
            for (const auto& [path, content] : plain)
                memory->put("/game/" + path, content);
            memory->put("/game/Vexillum/VXL-Changes/Internal.txt", "MKDIRS\r\nMOVES\r\n");
            memory->putFolder("/game/Vexillum/TC-Cavedog TA");
            ASSERT_TRUE(run(0, [](auto& game) {
                apply(game, "One");
                game.disk().flush();
            }));
            ended = run(cut, [](auto& game) {
                reset(game);
                apply(game, "Two");
            });
            memory->losePower(arrived);
            ASSERT_TRUE(run(0, [](auto& game) { reset(game); }));
            ASSERT_EQ(gameFiles(*memory), plain);
        }
    }
    EXPECT_GT(cuts, 30);
}

} // namespace
} // namespace cycle
