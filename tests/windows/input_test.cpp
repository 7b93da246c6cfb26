// What is kept of the user's actions, what is dropped, and how timers tick.
#include <functional>

#include <gtest/gtest.h>

#include "windows/input.h"

namespace windows {
namespace {

using Fate = Input::Fate;
using Moment = Input::Moment;

class InputTest : public testing::Test {
  protected:
    struct Main : Window {
        Main() : Window("frmMain", "") {}
        Button cmd{*this, "cmd"};
        MarkList list{*this, "lst"};
        Timer timer{*this, "tmr", 1};
    };

    InputTest() {
        open(main, false);
        main.cmd.onClick = [this] { done += "click "; };
        main.list.setItems({{"a", false}, {"b", false}});
        main.list.onClick = [this](const auto& text) { done += text + " "; };
        main.onClose = [this] { done += "close "; };
        main.timer.setEnabled(true);
        main.timer.onTick = [this] { done += "tick "; };
    }

    void open(Window& window, bool modal) {
        window.setVisible(true);
        input.opened(window, modal);
    }
    void runAll() {
        while (input.runNext()) {
        }
    }

    Input input;
    Main main;
    Window other{"frmOther", ""};
    Wish wish;
    std::string done;
};

TEST_F(InputTest, an_action_is_noted_refused_or_kept) {
    const struct {
        const char* what;
        std::function<void()> before;
        Fate whileWaiting;
        Fate whileWorking;
    } rows[] = {
        {"as it is", [] {}, Fate::kept, Fate::kept},
        {"a window that is not modal stands over it", [&] { open(other, false); }, Fate::kept,
         Fate::kept},
        {"a modal window does", [&] { open(other, true); }, Fate::refused, Fate::refused},
        {"the window rests", [&] { main.setResting(true); }, Fate::refused, Fate::refused},
        {"it has a wish, too", [&] { main.cmd.wish = &wish; }, Fate::refused, Fate::noted},
        {"the window takes input again", [&] { main.setResting(false); }, Fate::refused,
         Fate::noted},
        {"the modal window is closed", [&] { input.closed(other); }, Fate::kept, Fate::noted},
        {"the wish is over", [&] { main.cmd.wish = nullptr; }, Fate::kept, Fate::kept},
        {"the button is disabled", [&] { main.cmd.setEnabled(false); }, Fate::refused,
         Fate::refused},
    };
    for (const auto& row : rows) {
        row.before();
        wish.noted = false;
        EXPECT_EQ(input.offer(press(main.cmd), Moment::waiting), row.whileWaiting) << row.what;
        EXPECT_FALSE(wish.noted) << row.what;
        EXPECT_EQ(input.offer(press(main.cmd), Moment::working), row.whileWorking) << row.what;
        EXPECT_EQ(wish.noted, row.whileWorking == Fate::noted) << row.what;
        EXPECT_EQ(done, "") << row.what << ": nothing runs by being offered";
    }
}

TEST_F(InputTest, what_was_kept_runs_only_if_it_is_wanted_still) {
    const struct {
        const char* what;
        std::function<void(Main&)> meanwhile;
        const char* done;
    } rows[] = {
        {"nothing has changed", [](Main&) {}, "click b close "},
        {"the window is hidden", [](Main& m) { m.setVisible(false); }, ""},
        {"the window is disabled", [](Main& m) { m.setEnabled(false); }, ""},
        {"the window rests", [](Main& m) { m.setResting(true); }, ""},
        {"a modal window has come", [this](Main&) { open(other, true); }, ""},
        {"the button is disabled", [](Main& m) { m.cmd.setEnabled(false); }, "b close "},
        {"the button is hidden", [](Main& m) { m.cmd.setVisible(false); }, "b close "},
        {"marks are others",
         [](Main& m) {
             m.list.setItems({{"a", true}, {"b", true}});
         },
         "click b close "},
        {"the list was filled anew with the same",
         [](Main& m) {
             m.list.clear();
             m.list.setItems({{"a", false}, {"b", false}});
         },
         "click close "},
        {"the window is gone", [this](Main& m) { input.forget(m); }, ""},
    };
    for (const auto& row : rows) {
        for (const auto& action :
             {press(main.cmd), click(main.list, "b", main.list.revision()), close(main)})
            EXPECT_EQ(input.offer(action, Moment::working), Fate::kept) << row.what;
        row.meanwhile(main);
        runAll();
        EXPECT_EQ(done, row.done) << row.what;
        done.clear();
        main.setEnabled(true);
        main.setResting(false);
        main.cmd.setEnabled(true);
        main.cmd.setVisible(true);
        input.closed(other);
        open(main, false);
    }
}

TEST_F(InputTest, an_action_may_take_the_next_ones_away) {
    main.cmd.onClick = [this] {
        done += "click ";
        input.forget(main);
    };
    input.offer(press(main.cmd), Moment::waiting);
    input.offer(close(main), Moment::waiting);
    runAll();
    EXPECT_EQ(done, "click ");
}

TEST_F(InputTest, a_view_is_told_where_its_widget_has_run_ahead) {
    struct Shown : View {
        int changes = 0;
        void changed() override { ++changes; }
    } view;
    main.cmd.view = &view;
    input.offer(press(main.cmd), Moment::waiting);
    main.cmd.setEnabled(false);
    const int before = view.changes;
    runAll();
    EXPECT_EQ(view.changes, before + 1) << "dropped";
    input.offer(press(main.cmd), Moment::waiting);
    EXPECT_EQ(view.changes, before + 2) << "refused";
    main.cmd.view = nullptr;
}

TEST_F(InputTest, a_timer_has_one_tick_pending_at_most) {
    for (int i = 0; i < 3; ++i)
        input.tick(main.timer);
    EXPECT_TRUE(input.runTicks());
    EXPECT_FALSE(input.runTicks());
    EXPECT_EQ(done, "tick ");
    input.tick(main.timer);
    main.timer.setEnabled(false);
    input.runTicks();
    EXPECT_EQ(done, "tick ") << "a timer that was stopped ticks no more";
}

TEST_F(InputTest, a_window_takes_its_ticks_with_it) {
    input.tick(main.timer);
    input.forget(main);
    EXPECT_FALSE(input.runTicks());
    EXPECT_EQ(done, "");
}

TEST_F(InputTest, no_tick_runs_inside_a_tick) {
    main.timer.onTick = [this] {
        done += "tick(";
        input.tick(main.timer);
        EXPECT_FALSE(input.runTicks());
        done += ")";
    };
    input.tick(main.timer);
    input.runTicks();
    EXPECT_EQ(done, "tick()");
    input.runTicks();
    EXPECT_EQ(done, "tick()tick()") << "the next one is for next time";
}

} // namespace
} // namespace windows
