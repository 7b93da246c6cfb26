// The real program on the real windows, step by step.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include <QListView>
#include <QTabBar>
#include <QTimer>

#include <gtest/gtest.h>

#include "headless/recorded_programs.h"
#include "support/play.h"
#include "views/qt_toolkit.h"
#include "views/support/widget_hands.h"
#include "windows/frmMain.h"

namespace test {

/// Plays one step each time that the windows come to rest, then lets the session stop.
class WindowTest : public testing::Test {
  protected:
    void run(std::vector<std::function<void()>> steps) {
        views::QtToolkit qt;
        toolkit = &qt;
        if (!remembers.empty())
            qt.rememberIn(remembers);
        const auto disk = platform::makeDisk();
        headless::RecordedPrograms programs(
            *disk, [this](const auto& event) { started.push_back(event["command"]); });
        windows::frmMain main({*disk, qt, programs, game.folder(), "", ""});
        window = &main;
        std::size_t next = 0;
        QTimer clock;
        QObject::connect(&clock, &QTimer::timeout, [&] {
            // The log of the start, and of the apply behind the last step, need not stand.
            if (auto* sleep = find<QTimer>("tmrSleep");
                sleep->isActive() && (next == 0 || next == steps.size()))
                sleep->setInterval(0);
            const auto* log = find<QWidget>("frmShowReadme");
            if (next == 0 && (main.resting() || (log != nullptr && log->isVisible()) ||
                              main.lstList.count() == 0))
                return;
            if (next < steps.size() && (isAwaited() || --patience == 0)) {
                awaited = nullptr;
                patience = mostTicks;
                steps[next++]();
            }
        });
        clock.start(40);
        main.run();
        EXPECT_EQ(next, steps.size());
    }

    /// Work that the last step has set off goes on behind it: the next step waits until this holds,
    /// but not without end.
    std::function<bool()> awaited;

    static void chooseTab(int index) {
        auto* tabs = find<QTabBar>("tspMain");
        Q_EMIT tabs->tabBarClicked(index);
    }
    static void clickRow(int row) {
        auto* list = find<QListView>("lstList");
        Q_EMIT list->clicked(list->model()->index(row, 0));
    }

    bool isAwaited() const { return !awaited || awaited(); }

    static constexpr int mostTicks = 250;
    int patience = mostTicks;
    /// Where places of windows are kept, if anywhere.
    std::string remembers;
    test::Game game;
    views::QtToolkit* toolkit = nullptr;
    windows::frmMain* window = nullptr;
    std::vector<std::string> started;
};

} // namespace test
