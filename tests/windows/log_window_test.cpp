// The log beside running work: what the core tells, and the user who closes it meanwhile.
#include <sstream>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "headless/session.h"
#include "windows/ask_user.h"

namespace windows {
namespace {

class LogWindowTest : public testing::Test {
  protected:
    std::istringstream none;
    headless::Script script{none};
    std::vector<std::string> seen;
    headless::SessionToolkit toolkit{script, [this](const headless::Event& event) {
                                         seen.push_back(
                                             event.value("line", event.value("event", "")));
                                     }};
    frmShowReadme window{toolkit};
    Window main{"frmMain", ""};
    ProgressBar elsewhere{main, "barWork"};
    LogWindow log{toolkit, window, elsewhere};
};

TEST_F(LogWindowTest, who_closes_it_hides_it_and_stops_nothing) {
    log.open("Title", "Heading", LogWindow::Shows::withText);
    EXPECT_FALSE(window.visible());
    log.stage("First");
    EXPECT_TRUE(window.visible());
    window.closing.noted = true;
    log.breathe();
    EXPECT_FALSE(window.visible());
    log.line("more");
    log.stage("Last");
    EXPECT_EQ(window.txtReadme.text(), "First\r\nmore\r\nLast");
    EXPECT_FALSE(window.visible()) << "it does not come back by itself";
    log.open("Title", "Heading", LogWindow::Shows::atOnce);
    log.breathe();
    EXPECT_TRUE(window.visible()) << "an old wish does not close the next log";
}

TEST_F(LogWindowTest, progress_shows_in_the_main_window_where_the_log_is_closed) {
    elsewhere.setVisible(false);
    log.open("Title", "Heading", LogWindow::Shows::atOnce);
    log.stage("First");
    log.progress(1234, 20'000);
    log.progress(1240, 20'000);
    EXPECT_TRUE(window.barDone.visible());
    EXPECT_FALSE(elsewhere.visible());
    window.closing.noted = true;
    log.breathe();
    EXPECT_TRUE(elsewhere.visible());
    log.progress(20'000, 20'000);
    EXPECT_EQ(elsewhere.text(), "20,000 of 20,000");
    EXPECT_EQ(elsewhere.done(), ProgressBar::whole);
    log.close();
    EXPECT_FALSE(elsewhere.visible());
    EXPECT_FALSE(window.barDone.visible());
}

TEST_F(LogWindowTest, what_was_answered_alike_before_it_stands_at_its_head) {
    AskUser user(toolkit, log);
    platform::MessageRow row;
    for (int i = 0; i < 2; ++i)
        row.noteShown();
    row.answerRest(1);
    EXPECT_EQ(user.ask({"Really?\r\n\r\nSure?", {"Yes", "No"}}, &row), 1U);
    log.open("Title", "Heading", LogWindow::Shows::atOnce);
    log.stage("First");
    user.ask({"And this?", {"Yes", "No"}}, &row);
    EXPECT_EQ(window.txtReadme.text(), "First\r\nReally? Sure?: No\r\nAnd this?: No");
}

} // namespace
} // namespace windows
