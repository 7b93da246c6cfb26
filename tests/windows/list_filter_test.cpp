// What is typed into the filter, and the maps that it finds.
#include <gtest/gtest.h>

#include "windows/list_filter.h"

namespace windows {
namespace {

TEST(ListFilterTest, words_are_conditions_or_text) {
    struct {
        const char* typed;
        const char* text;
        bool has;
    } const rows[] = {
        {"", "", false},
        {" two  lakes ", " two  lakes ", false},
        {"players:4", "", true},
        {"great players:4  divide SIZE>=16", "great divide", true},
        {"size:12x16", "", true},
        {"players", "players", false},
        {"players:", "players:", false},
        {"players:four", "players:four", false},
        {"players:4x4", "players:4x4", false},
        {"players>-1", "players>-1", false},
        {"size:12x", "size:12x", false},
        {"size:99999999999", "size:99999999999", false},
        {"oversize:3", "oversize:3", false},
    };
    for (const auto& row : rows) {
        const auto filter = ListFilter::parse(row.typed);
        EXPECT_EQ(filter.text(), row.text) << row.typed;
        EXPECT_EQ(filter.hasConditions(), row.has) << row.typed;
    }
}

TEST(ListFilterTest, one_map_meets_all_conditions) {
    const std::vector<MapFacts> maps = {{{2, 3, 4}, {12, 16}, ""}, {{8}, {6, 6}, ""}};
    struct {
        const char* typed;
        bool accepts;
    } const rows[] = {
        {"lakes", true},
        {"players:4", true},
        {"players=8", true},
        {"players:5", false},
        {"players>4", true},
        {"players<2", false},
        {"size>=16", true},
        {"size>16", false},
        {"size<=6", true},
        {"size:12x16", true},
        {"size:16x12", false},
        {"size>=10x10", true},
        {"players:8 size:6", true},
        {"players:8 size>6", false},
        {"players>1 players<3", true},
    };
    for (const auto& row : rows)
        EXPECT_EQ(ListFilter::parse(row.typed).accepts(maps), row.accepts) << row.typed;
    EXPECT_FALSE(ListFilter::parse("size<5").accepts({{{2}, {}, ""}})) << "nothing is known";
    EXPECT_FALSE(ListFilter::parse("players<5").accepts({}));
}

} // namespace
} // namespace windows
