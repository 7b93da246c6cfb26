// String arrays, and the search and the queries that lean on them.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "releases/game_directory.h"

namespace releases {
namespace {

using testing::ElementsAre;

TEST(StringArray, entries_start_at_1_behind_a_blank_slot) {
    StringArray names;
    EXPECT_EQ(names.upperBound(), 0);
    arrayAdd(names, "a");
    EXPECT_EQ(names.upperBound(), 1);
    EXPECT_EQ(names[0], "");
    arrayAdd(names, "A", Duplicates::refused);
    EXPECT_EQ(names.upperBound(), 1);
    arrayAdd(names, "a");
    EXPECT_THAT(names.entries(), ElementsAre("a", "a"));
}

TEST(StringArray, a_search_ignores_case_and_finds_the_empty_text_in_slot_0) {
    const StringArray names{"One", "two", "ONE"};
    EXPECT_EQ(arrayFind(names, "one"), 1);
    EXPECT_EQ(arrayFind(names, "TWO"), 2);
    EXPECT_EQ(arrayFind(names, "three"), -1);
    EXPECT_EQ(arrayFind(names, ""), 0);
    EXPECT_EQ(arrayFind(StringArray(), "x"), -1);
}

TEST(StringArray, a_removal_takes_the_first_match_and_keeps_the_order) {
    StringArray names{"a", "b", "c", "B"};
    arrayRemove(names, "B");
    EXPECT_THAT(names.entries(), ElementsAre("a", "c", "B"));
    arrayRemoveAt(names, 3);
    arrayRemove(names, "none");
    arrayRemove(names, "");
    EXPECT_THAT(names.entries(), ElementsAre("a", "c"));
    arrayRemoveAt(names, 3);
    arrayRemoveAt(names, 0);
    EXPECT_THAT(names.slots(), ElementsAre("", "a", "c"));
}

TEST(TextSearch, goes_both_ways_from_any_start) {
    struct Row {
        std::string_view text;
        std::string_view what;
        int start;
        bool goL2R;
        int found;
    };
    constexpr int none = GameDirectory::noStart;
    const Row rows[] = {
        {"a.b.c", ".", none, true, 2},  {"a.b.c", ".", none, false, 4},
        {"a.b.c", ".", 3, true, 4},     {"a.b.c", ".", 3, false, 2},
        {"a.b.c", "x", none, true, -1}, {"a.b.c", "x", none, false, -1},
        {"aXbx", "x", none, true, 4},   {"", ".", none, true, -1},
        {"ab", "abc", none, true, -1},  {"a.b", ".", 9, true, -1},
        {"a.b", ".", 9, false, 2},
    };
    for (const auto& row : rows)
        EXPECT_EQ(GameDirectory::fIs(row.text, row.what, row.start, row.goL2R), row.found)
            << row.text << " " << row.what << " " << row.start;
}

} // namespace
} // namespace releases
