// The working panel over a conversion whose copies take long.
#include <thread>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/faulty_disk.h"
#include "support/play.h"
#include "windows/slow_work.h"

namespace {

using testing::Contains;
using testing::Not;

std::vector<std::string> windowsSeen(bool slow) {
    const test::Game game;
    game.put("pack/m.tc", "Big\r\nText\r\nany\r\nmember.hpi member.hpi\r\n");
    game.put("pack/member.hpi", "m");
    const auto disk = platform::makeDisk();
    test::FaultyDisk busy(*disk, [&](int /*number*/, const std::string& path) {
        if (slow && path.ends_with("member.hpi"))
            std::this_thread::sleep_for(windows::SlowWork::isLong + std::chrono::milliseconds(50));
    });
    const auto session = test::play(game,
                                    "click mnuUconverter\npick cbo1TAMtype TAM TC\n"
                                    "pick cbo1VXLtype VXL Mod\nclick cmd1Next\nanswer " +
                                        game.folder() +
                                        "/pack/m.tc\nclick cmd2Browse\nclick cmd2Next\n"
                                        "click cmd3next\nclose\n",
                                    {"", &busy});
    EXPECT_TRUE(session.endedItself);
    EXPECT_EQ(game.content("Vexillum/Mod-Big/member.hpi"), "m");
    return fieldOf(session, "show", "window");
}

TEST(SlowWork, shows_the_panel_only_where_it_takes_long) {
    EXPECT_THAT(windowsSeen(true), Contains("frmWorking"));
    EXPECT_THAT(windowsSeen(false), Not(Contains("frmWorking")));
}

} // namespace
