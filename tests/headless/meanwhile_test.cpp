// What a script does while the program works: tried where events are let run, and run, if at all,
// where the program waits again.
#include <sstream>

#include <gtest/gtest.h>

#include "headless/session.h"

namespace {

using headless::Event;

/// A program of one window whose work is to let events run. It writes down what runs.
class Program {
  public:
    explicit Program(const std::string& script) : lines_(script) {}

    /// What has run, and what the transcript says of refusals; a bad line ends it.
    std::string play() {
        try {
            toolkit_.load(main_);
            wire();
            toolkit_.show(main_);
            toolkit_.doEvents();
            say("started");
            for (;;)
                toolkit_.waitForUser();
        } catch (const headless::ScriptEnd&) {
            return told_;
        } catch (const headless::BadLine& line) {
            return told_ + "bad: " + line.what();
        }
    }

  private:
    struct Main : windows::Window {
        Main() : Window("frmMain", "") {}
        windows::TabStrip tspMain{*this, "tspMain", {"One", "Two"}};
        windows::MarkList lstList{*this, "lstList"};
        windows::Button cmdWork{*this, "cmdWork"};
        windows::Button cmdRest{*this, "cmdRest"};
        windows::Button cmdFill{*this, "cmdFill"};
        windows::Button cmdAsk{*this, "cmdAsk"};
        windows::Button cmdOther{*this, "cmdOther"};
        windows::Button cmdGrey{*this, "cmdGrey"};
        windows::TextBox txt{*this, "txt", windows::TextBox::Kind::line};
    };
    struct Log : windows::Window {
        Log() : Window("frmLog", "") {}
        windows::Button cmdStop{*this, "cmdStop"};
    };

    void say(const std::string& what) { told_ += what + "; "; }

    void wire() {
        main_.lstList.setItems({{"a", false}, {"b", false}});
        main_.lstList.onClick = [this](const auto& text) { say("mark " + text); };
        main_.tspMain.onClick = [this] { say("tab " + main_.tspMain.caption()); };
        main_.cmdOther.onClick = [this] { say("other"); };
        main_.cmdGrey.setEnabled(false);
        main_.onClose = [this] { say("close"); };
        main_.cmdWork.onClick = [this] { work([] {}); };
        main_.cmdRest.onClick = [this] { work([this] { main_.setResting(true); }); };
        main_.cmdFill.onClick = [this] {
            work([] {});
            main_.lstList.setItems({{"b", false}});
        };
        main_.cmdAsk.onClick = [this] {
            toolkit_.showModal(log_);
            say("asked");
        };
        log_.cmdStop.onClick = [this] {
            say("stop");
            toolkit_.hide(log_);
        };
        log_.onClose = log_.cmdStop.onClick;
        log_.cmdStop.wish = &stop_;
        log_.closeWish = &leave_;
    }

    /// Works with the log open, as the procedures that take long do.
    void work(const std::function<void()>& prepare) {
        stop_ = leave_ = {};
        prepare();
        toolkit_.show(log_);
        say("work");
        toolkit_.doEvents();
        if (stop_.noted)
            say("stop noted");
        if (leave_.noted)
            say("leave noted");
        say("done");
        toolkit_.hide(log_);
        main_.setResting(false);
    }

    std::string told_;
    windows::Wish stop_;
    windows::Wish leave_;
    std::istringstream lines_;
    headless::Script script_{lines_};
    headless::SessionToolkit toolkit_{script_, [this](const Event& event) {
                                          if (event["event"] == "refused")
                                              say("refused " + event["line"].get<std::string>());
                                      }};
    Main main_;
    Log log_;
};

TEST(Meanwhile, lines_are_kept_noted_or_refused) {
    const struct {
        const char* script;
        const char* told;
    } rows[] = {
        // Kept, in their order, and run before the next line.
        {"meanwhile click cmdOther\nmeanwhile tab Two\nmeanwhile mark b\nclick cmdWork\nmark a",
         "started; other; tab Two; mark b; work; done; mark a; "},
        {"click cmdOther\nmeanwhile click cmdOther\nmeanwhile tab Two\nclick cmdWork\nmark a",
         "started; other; work; done; other; tab Two; mark a; "},
        // Tried once: the second run of the work is undisturbed.
        {"mark a\nmeanwhile click cmdStop\nclick cmdWork\nclick cmdWork",
         "started; mark a; work; stop noted; done; work; done; "},
        {"mark a\nmeanwhile close\nclick cmdWork", "started; mark a; work; leave noted; done; "},
        // Where the program waits, a click is a click, wish or not.
        {"click cmdAsk\nclick cmdStop", "started; stop; asked; "},
        {"click cmdAsk\nclose", "started; stop; asked; "},
        // What rests, is greyed or lies below.
        {"mark a\nmeanwhile click cmdOther\nmeanwhile mark b\nclick cmdRest\nmark b",
         "started; mark a; work; refused click cmdOther; refused mark b; done; mark b; "},
        {"mark a\nmeanwhile click cmdGrey\nclick cmdWork",
         "started; mark a; work; refused click cmdGrey; done; "},
        // A wish is heard also where its window rests.
        {"mark a\nmeanwhile click cmdStop\nclick cmdRest",
         "started; mark a; work; stop noted; done; "},
        // The list is another by the time that the click could run, even if it has such an item.
        {"mark a\nmeanwhile mark b\nmeanwhile click cmdOther\nclick cmdFill\nmark b",
         "started; mark a; work; done; other; mark b; "},
        // Before the first waiting those that lead the script, and never what is not worked for.
        {"meanwhile click cmdGrey\nmark a", "refused click cmdGrey; started; mark a; "},
        {"mark a\nmeanwhile click cmdGrey", "started; mark a; "},
        // Not looked at before the program works.
        {"mark a\nmeanwhile click cmdNone\nmark b\nclick cmdWork",
         "started; mark a; mark b; work; bad: meanwhile click cmdNone"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Program(row.script).play(), row.told) << row.script;
}

TEST(Meanwhile, a_line_that_names_nothing_there_is_a_bad_line) {
    for (const std::string line :
         {"meanwhile click cmdNone", "meanwhile click lstList", "meanwhile mark c",
          "meanwhile tab Three", "meanwhile type txt x", "meanwhile dump", "meanwhile answer Yes",
          "meanwhile close all", "meanwhile", "meanwhile meanwhile close"})
        EXPECT_EQ(Program(line).play(), "bad: " + line + (line == "meanwhile" ? " " : ""));
}

} // namespace
