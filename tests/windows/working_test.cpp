// The marker's way round the working panel.
#include <sstream>

#include <gtest/gtest.h>

#include "headless/session.h"
#include "windows/frmWorking.h"

namespace windows {
namespace {

TEST(WorkingPanel, the_marker_runs_clockwise_in_120_ticks) {
    std::istringstream none;
    headless::Script script(none);
    headless::SessionToolkit toolkit(script, [](const auto&) {});
    frmWorking panel(toolkit);
    const auto at = [&](int ticks) {
        for (int i = 0; i < ticks; ++i)
            panel.tmrMove_Timer();
        return std::pair(panel.shpMove.left(), panel.shpMove.top());
    };
    EXPECT_EQ(at(0), std::pair(120, 120));
    EXPECT_EQ(at(45), std::pair(5520, 120));
    EXPECT_EQ(at(15), std::pair(5520, 1920));
    EXPECT_EQ(at(45), std::pair(120, 1920));
    EXPECT_EQ(at(15), std::pair(120, 120));
    EXPECT_EQ(at(1), std::pair(240, 120));
}

} // namespace
} // namespace windows
