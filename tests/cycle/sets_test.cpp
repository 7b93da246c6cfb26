// Sets: what their texts keep and refuse, and what their names do to the disk.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "cycle/sets.h"
#include "platform/failure.h"
#include "platform/text.h"
#include "support/core.h"
#include "support/faulty_disk.h"

namespace cycle {
namespace {

using releases::ReleaseType;
using testing::ElementsAre;
using testing::HasSubstr;

const std::string plainText = "Vexillum Set\r\n[Releases]\r\nMap \"Coast\"\r\n[Menu Modifier]\r\n"
                              "[Answers]\r\n";

class SetsTest : public testing::Test {
  protected:
    SetsTest() { directory.open(game.folder()); }

    static Set someSet() {
        Set set;
        set.selection.choose(ReleaseType::tc, "A~B");
        for (const auto* name : {"Two/Rivers", "a \"quoted\" one", " Coast "})
            set.selection.add(ReleaseType::map, name);
        set.selection.modifier = {true, false, true};
        set.answers.decide(
            {"maps\\a.ota", {ReleaseType::map, " Coast "}, {ReleaseType::tc, "A/B"}});
        return set;
    }

    test::Game game;
    std::unique_ptr<platform::Disk> disk = platform::makeDisk();
    test::RecordedLog log;
    test::ScriptedAnswers user;
    releases::GameDirectory directory{*disk, log, user};
    Sets sets{directory};
};

TEST_F(SetsTest, a_text_holds_all_that_belongs_to_a_set) {
    const auto text = textOf(someSet());
    EXPECT_THAT(text,
                HasSubstr("\r\n[Releases]\r\nTotal Conversion \"A/B\"\r\nAI \"Cavedog AI\"\r\n"
                          "Map \"Two/Rivers\"\r\nMap \"a \"quoted\" one\"\r\n"
                          "Map \" Coast \"\r\n[Menu Modifier]\r\nUse Trellis: Yes\r\n"
                          "Compress Menus: No\r\nSmall Version: Yes\r\n[Answers]\r\n"));
    Set again;
    EXPECT_EQ(readSet("\xEF\xBB\xBF" + platform::replaceAll(text, "\r\n", " \n"), again), "")
        << "as an editor may leave it";
    EXPECT_EQ(textOf(again), text);
    EXPECT_EQ(again.selection.theOne(ReleaseType::tc), "A~B");
    EXPECT_EQ(again.answers.all().size(), 1U);
    again.selection.add(ReleaseType::map, "..\\..\\x");
    again.selection.add(ReleaseType::map, "");
    EXPECT_EQ(textOf(again), text) << "such names are no releases";
}

TEST_F(SetsTest, a_text_that_is_no_set_is_refused_with_the_reason) {
    struct Row {
        std::string text, reason;
    };
    const auto with = [](const std::string& line) {
        return platform::replaceAll(plainText, "Map \"Coast\"", line);
    };
    const Row rows[] = {
        {"", "no set"},
        {"Map \"Coast\"\r\n", "no set"},
        {std::string("Vexillum Set\0x\r\n", 16), "no set"},
        {std::string((4U << 20) + 1, 'x'), "too large"},
        {"Vexillum Set", "\"[Releases]\" is missing"},
        {plainText.substr(0, plainText.find("[Ans")), "\"[Answers]\" is missing"},
        {with("Map Coast"), "Line 3 names no release:\r\n\r\nMap Coast"},
        {with("Maps \"Coast\""), "Line 3 names no release"},
        {with("Map \"..\\Coast\""), "Line 3 has a name that no release can have"},
        {with("Map \"..\""), "no release can have"},
        {with(std::string("Map \"a\0b\"", 9)), "no release can have"},
        {with("AI \"A\"\nAI \"B\""), "Line 4 chooses one more"},
        {with("Use Trellis: Yes"), "Line 3 names no release"},
        {platform::replaceAll(plainText, "[Answers]", "Use Trellis: yes"),
         "Line 5 says nothing that belongs there"},
        {with("\x01" + std::string(500, 'x')), " " + std::string(99, 'x') + "..."},
    };
    for (const auto& row : rows) {
        auto set = someSet();
        EXPECT_THAT(readSet(row.text, set), HasSubstr(row.reason));
        EXPECT_EQ(textOf(set), textOf(someSet())) << row.reason;
    }
    Set set;
    EXPECT_EQ(readSet(with("# Map\n\n  Map \"Coast\"\nMap \"Coast\"\nMap \"coast\""), set), "");
    EXPECT_THAT(set.selection.namesOf(ReleaseType::map), ElementsAre("Coast", "coast"));
}

TEST_F(SetsTest, names_decide_which_file_is_meant_and_none_leads_out) {
    struct Row {
        const char* name;
        const char* reason; ///< nothing for a good one
    };
    const Row rows[] = {
        {"Duel", ""},
        {"a/b", ""},
        {"Über.x", ""},
        {"common", ""},
        {"", "must have a name"},
        {"  ", "must have a name"},
        {"..", "dot or a blank"},
        {"../x", "dot or a blank"},
        {".x", "dot or a blank"},
        {"x ", "dot or a blank"},
        {"..\\x", "cannot hold"},
        {"a\nb", "cannot hold"},
        {"a:b", "cannot hold"},
        {"a\tb", "cannot hold"},
        {"Nul.x", "device"},
        {"com1", "device"},
    };
    const auto before = game.files();
    for (const auto& row : rows)
        if (*row.reason != '\0')
            EXPECT_THAT(sets.save(row.name, {}), HasSubstr(row.reason)) << row.name;
        else
            EXPECT_EQ(sets.save(row.name, {}), "") << row.name;
    EXPECT_THAT(sets.save(std::string(300, 'x'), {}), HasSubstr("too long"));
    EXPECT_EQ(sets.names(), (std::vector<std::string>{"a/b", "common", "Duel", "Über.x"}));
    EXPECT_TRUE(game.has("Vexillum/VXL-Sets/a~b.txt"));
    EXPECT_FALSE(game.has("Vexillum/x.txt"));
    EXPECT_EQ(test::differences(before, game.files()), "") << "nothing but sets was made";
    Set set;
    game.put("Vexillum/secret.txt", plainText);
    for (const auto* name : {"..\\secret", "../secret", "..", "", "Other"})
        EXPECT_THAT(sets.load(name, set), HasSubstr("There is no set")) << name;
    EXPECT_THAT(sets.remove("..\\secret"), HasSubstr("There is no set"));
}

TEST_F(SetsTest, a_set_is_saved_renamed_and_removed_without_touching_another) {
    EXPECT_TRUE(sets.names().empty());
    game.put("Vexillum/VXL-Sets/a^b.TXT", plainText);
    game.put("Vexillum/VXL-Sets/other.dat");
    game.makeFolder("Vexillum/VXL-Sets/folder.txt");
    game.put("Vexillum/VXL-Sets/bad.txt", "nonsense");
    EXPECT_EQ(sets.save("One", someSet()), "");
    EXPECT_EQ(sets.save("Two", {}), "");
    EXPECT_EQ(sets.save("two", someSet()), "") << "the same one";
    EXPECT_THAT(sets.names(), ElementsAre("a^b", "bad", "One", "Two"));
    Set set;
    EXPECT_EQ(sets.load("ONE", set), "");
    EXPECT_EQ(textOf(set), textOf(someSet()));
    EXPECT_EQ(sets.rename("Two", "one"), "There is a set \"one\" already.");
    EXPECT_THAT(sets.rename("Two", "..\\Three"), HasSubstr("cannot hold"));
    EXPECT_THAT(sets.rename("Three", "Four"), HasSubstr("There is no set \"Three\""));
    EXPECT_EQ(sets.rename("Two", "TWO"), "");
    EXPECT_EQ(sets.rename("a^b", "a/b"), "");
    EXPECT_EQ(sets.remove("one"), "");
    EXPECT_THAT(sets.names(), ElementsAre("a/b", "bad", "TWO"));
    EXPECT_TRUE(game.has("Vexillum/VXL-Sets/other.dat"));
    EXPECT_THAT(sets.load("bad", set), HasSubstr("no set"));
    EXPECT_THAT(sets.load("folder", set), HasSubstr("There is no set"));
    EXPECT_NE(sets.save("folder", set), "");
}

TEST_F(SetsTest, a_disk_that_fails_leaves_every_set_as_it_was) {
    EXPECT_EQ(sets.save("One", someSet()), "");
    test::FaultyDisk full(*disk, [](int /*number*/, const std::string& path) {
        throw platform::Failure("write", path, "no room");
    });
    releases::GameDirectory onFull(full, log, user);
    onFull.open(game.folder());
    const Sets failing(onFull);
    for (const auto& reason : {failing.save("One", {}), failing.save("Two", {}),
                               failing.rename("One", "Two"), failing.remove("One")})
        EXPECT_THAT(reason, HasSubstr("no room"));
    EXPECT_THAT(failing.renameRelease(ReleaseType::map, "Two/Rivers", "Shore"),
                ElementsAre(HasSubstr("One: ")));
    EXPECT_THAT(sets.names(), ElementsAre("One"));
    EXPECT_EQ(game.content("Vexillum/VXL-Sets/One.txt"), textOf(someSet()));
}

TEST_F(SetsTest, a_release_that_gets_another_name_keeps_its_place_in_all_sets) {
    EXPECT_EQ(sets.save("One", someSet()), "");
    game.put("Vexillum/VXL-Sets/Other.txt", plainText);
    game.put("Vexillum/VXL-Sets/Bad.txt", "nonsense");
    EXPECT_TRUE(sets.renameRelease(ReleaseType::map, "Two/Rivers", "Shore").empty());
    EXPECT_TRUE(sets.renameRelease(ReleaseType::tc, "A/B", "C/D").empty());
    Set set;
    EXPECT_EQ(sets.load("One", set), "");
    EXPECT_THAT(set.selection.namesOf(ReleaseType::map),
                ElementsAre("Shore", "a \"quoted\" one", " Coast "));
    EXPECT_EQ(set.selection.theOne(ReleaseType::tc), "C~D");
    EXPECT_EQ(set.answers.all().front().loser.name, "C/D");
    EXPECT_EQ(game.content("Vexillum/VXL-Sets/Other.txt"), plainText) << "by hand, and not meant";
    EXPECT_EQ(game.content("Vexillum/VXL-Sets/Bad.txt"), "nonsense");
}

TEST_F(SetsTest, what_is_missing_is_taken_out_and_told_and_case_is_put_right) {
    for (const auto* folder : {"Map-Two~Rivers", "TC-Other", "Race-Dark", "Unit-Old"})
        game.makeFolder("Vexillum/" + std::string(folder));
    game.put("Vexillum/Unit-Misc/Crane.ufo");
    releases::Store store(directory);
    store.read();
    game.remove("Vexillum/Unit-Old");
    game.makeFolder("Vexillum/Map-New");
    Selection selection;
    selection.choose(ReleaseType::tc, "other");
    selection.choose(ReleaseType::ai, "Gone");
    for (const auto* name : {"New", "Lost", "two/rivers", "Two/Rivers"})
        selection.add(ReleaseType::map, name);
    for (const auto* name : {"Old", "crane.UFO"})
        selection.add(ReleaseType::unit, name);
    selection.add(ReleaseType::race, "Dark");
    EXPECT_THAT(takeOutMissing(selection, store),
                ElementsAre(Owner{ReleaseType::ai, "Gone"}, Owner{ReleaseType::map, "Lost"},
                            Owner{ReleaseType::unit, "Old"}));
    EXPECT_EQ(selection.theOne(ReleaseType::tc), "Other");
    EXPECT_EQ(selection.theOne(ReleaseType::ai), "Cavedog AI");
    EXPECT_THAT(selection.namesOf(ReleaseType::map), ElementsAre("New", "Two/Rivers"));
    EXPECT_THAT(selection.namesOf(ReleaseType::unit), ElementsAre("Crane.ufo"));
    EXPECT_TRUE(takeOutMissing(selection, store).empty());
}

} // namespace
} // namespace cycle
