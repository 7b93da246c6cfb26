// The selection as a value, and its texts.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "cycle/selection.h"

namespace cycle {
namespace {

using releases::ReleaseType;
using testing::ElementsAre;

TEST(Selection, texts_of_any_kind_read_as_far_as_they_mean_something) {
    struct Row {
        ReleaseType type;
        std::string_view text;
        std::vector<std::string> names;
    };
    const Row rows[] = {
        {ReleaseType::tc, "", {"Cavedog TA"}},
        {ReleaseType::tc, "\r\n", {"Cavedog TA"}},
        {ReleaseType::tc, "A~B\r\nC\r\n", {"A~B"}},
        {ReleaseType::ai, "\r\nC", {"Cavedog AI"}},
        {ReleaseType::map, "", {}},
        {ReleaseType::map, "\r\na\r\n\r\n", {"a"}},
        {ReleaseType::map, "b\r\na\r\nb", {"b", "a", "b"}},
        {ReleaseType::unit, " x \n", {" x "}},
    };
    for (const auto& row : rows) {
        Selection selection;
        selection.readText(row.type, "Old\r\n");
        selection.readText(row.type, row.text);
        EXPECT_THAT(selection.namesOf(row.type), testing::ElementsAreArray(row.names)) << row.text;
        Selection again;
        again.readText(row.type, selection.textOf(row.type));
        EXPECT_THAT(again.namesOf(row.type), testing::ElementsAreArray(row.names)) << row.text;
    }
}

TEST(Selection, only_the_very_word_sets_a_setting_of_the_modifier) {
    Selection selection;
    selection.readModifierText("True\r\ntrue\r\nTrue");
    EXPECT_TRUE(selection.modifier.enabled);
    EXPECT_FALSE(selection.modifier.compress);
    EXPECT_TRUE(selection.modifier.small);
    EXPECT_EQ(selection.modifierText(), "True\r\nFalse\r\nTrue\r\n");
    selection.readModifierText("\r\n");
    EXPECT_EQ(selection.modifierText(), "False\r\nFalse\r\nFalse\r\n");
}

TEST(Selection, the_very_name_goes_before_one_in_another_case) {
    Selection selection;
    for (const auto* name : {"a", "A", "b", "A"})
        selection.add(ReleaseType::race, name);
    selection.takeOut(ReleaseType::race, "A");
    EXPECT_THAT(selection.namesOf(ReleaseType::race), ElementsAre("a", "b", "A"));
    selection.takeOut(ReleaseType::race, "B");
    EXPECT_THAT(selection.namesOf(ReleaseType::race), ElementsAre("a", "A"));
    selection.modifier.enabled = true;
    selection.choose(ReleaseType::tc, "Other");
    selection.revert();
    EXPECT_EQ(selection.countOf(ReleaseType::race), 0);
    EXPECT_EQ(selection.theOne(ReleaseType::tc), "Cavedog TA");
    EXPECT_TRUE(selection.modifier.enabled) << "it is no part of what a revert takes back";
}

} // namespace
} // namespace cycle
