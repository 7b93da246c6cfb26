// The session runner's own rules: which lines count, which box takes which answer, what cannot be
// carried out.
#include <sstream>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/play.h"
#include "support/system.h"

namespace {

using test::fieldOf;
using test::Game;
using test::play;
using testing::ElementsAre;

TEST(SessionRunner, lines_that_cannot_be_carried_out_stop_it) {
    const Game game;
    game.put("Vexillum/Map-Foo/a.ufo");
    const std::string lines[] = {
        "click cmdNone",
        "click lstList",
        "click mnuMMsmall",
        "mark Foo",
        "mark none",
        "tab Planets",
        "tab",
        "type txtSelTC x",
        "type txtAbout",
        "pick cbo1Type TC",
        "dance",
        "click",
        "click mnuMain",
        "click mnuMMsettings",
        "click lblList",
        "Tab Maps",
    };
    for (const auto& line : lines)
        EXPECT_EQ(play(game, "# a comment\n\n" + line + "\ntab Maps\n").badLine, line);
    const auto session = play(game, "tab Maps\nclick cmdRemove\n");
    EXPECT_EQ(session.badLine, "click cmdRemove");
}

TEST(SessionRunner, a_box_takes_the_first_answer_that_waits_or_the_next_line) {
    const Game game;
    for (const auto* name : {"a", "b", "c", "d"}) {
        game.put(name, "game");
        game.put(std::string("Vexillum/Mod-New/") + name, "new");
    }
    const auto applied = play(game, "tab Mods\nanswer No\nmark New\nanswer No\nclose\n"
                                    "# comments do not stand between\n\nanswer Yes\n");
    EXPECT_THAT(fieldOf(applied, "message", "answer"), ElementsAre("No", "No", "Yes", "Yes"));
}

TEST(SessionRunner, an_answer_that_a_box_does_not_know_is_a_bad_line) {
    const Game game;
    game.put("a", "game");
    game.put("Vexillum/Mod-New/a", "new");
    EXPECT_EQ(play(game, "tab Mods\nmark New\nanswer Maybe\nclose\n").badLine, "answer Maybe");
    EXPECT_THAT(
        fieldOf(play(game, "tab Mods\nmark New\nanswer No *\nclose\n"), "message", "answer"),
        ElementsAre("No"))
        << "the box has no check to set";
    play(game, "");
    EXPECT_EQ(play(game, "tab Mods\nmark New\nanswer  *\nclose\n").badLine, std::nullopt)
        << "no answer but the check takes the default";
}

TEST(SessionRunner, a_program_that_asks_without_end_is_stopped) {
    const Game game;
    std::string journal = "MKDIRS\r\nMOVES\r\n";
    for (int i = 0; i < headless::mostBoxesInARow - 1; ++i)
        journal += "a\r\nb\r\n";
    game.put("Vexillum/VXL-Changes/Internal.txt", journal);
    EXPECT_FALSE(play(game, "").boxesWithoutEnd);
    game.put("Vexillum/VXL-Changes/Internal.txt", journal + "a\r\nb\r\n");
    EXPECT_TRUE(play(game, "").boxesWithoutEnd);
}

TEST(SessionRunner, text_that_is_no_utf8_is_shown_as_windows_1252) {
    const Game game;
    // Where no such bytes can be a name, the text alone is shown so.
    game.put(test::onWindows ? "Vexillum/Map-Ägypten/info.txt" : "Vexillum/Map-\xC4gypten/info.txt",
             "Sch\xF6n\r\n");
    const auto session = play(game, "tab Maps\nmark Ägypten\ndump\n");
    EXPECT_FALSE(session.badLine);
    EXPECT_EQ(session.events.back()["controls"]["txtAbout"]["text"], "Schön\n");
}

TEST(SessionRunner, a_windows_program_is_started_through_wine_elsewhere) {
    const Game game;
    const auto program = game.folder() + test::shown("/totala.exe");
    EXPECT_THAT(fieldOf(play(game, "click cmdGo\n"), "start", "command"), ElementsAre(program));
    game.put("totala.exe", "MZ...");
    EXPECT_THAT(fieldOf(play(game, "click cmdGo\n"), "start", "command"),
                ElementsAre((test::onWindows ? "" : "wine ") + program));
}

TEST(SessionRunner, a_box_tells_its_default_button_and_its_reason_where_it_has_them) {
    const struct {
        windows::MessageBox box;
        const char* script;
        const char* event;
    } rows[] = {
        {{"Text", "Title", {"OK"}},
         "answer No",
         R"({"event":"message","text":"Text","title":"Title","buttons":["OK"],"answer":"OK"})"},
        {{"A\r\nB", "Title", {"Yes", "No"}, false, 1, "Disk\r\nfull"},
         "",
         R"({"event":"message","text":"A\nB","title":"Title","buttons":["Yes","No"],)"
         R"("answer":"No","default":"No","detail":"Disk\nfull"})"},
        {{"Text", "Title", {"Yes", "No"}, true, 1},
         "answer Yes *",
         R"({"event":"message","text":"Text","title":"Title","buttons":["Yes","No"],)"
         R"("answer":"Yes","default":"No"})"},
        {{"Text", "Title", {"Yes", "No"}, true, 1},
         "answer  *",
         R"({"event":"message","text":"Text","title":"Title","buttons":["Yes","No"],)"
         R"("answer":"No","default":"No"})"},
    };
    for (const auto& row : rows) {
        std::istringstream lines(row.script);
        headless::Script script(lines);
        std::string told;
        headless::SessionToolkit toolkit(script, [&](const auto& event) { told = event.dump(); });
        const auto answer = toolkit.showMessage(row.box);
        EXPECT_EQ(told, row.event);
        EXPECT_EQ(answer.sameForRest, std::string(row.script).ends_with("*"));
    }
}

} // namespace
