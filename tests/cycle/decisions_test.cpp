// What is decided ahead of the question, and the text that people may change.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "cycle/decisions.h"

namespace cycle {
namespace {

using releases::ReleaseType;
using testing::HasSubstr;

const Owner map{ReleaseType::map, "Two/Rivers"};
const Owner unit{ReleaseType::unit, "Crane"};
const Owner game{ReleaseType::tc, "Cavedog TA"};

ClashQuestion between(const Owner& a, const Owner& b, const std::string& place) {
    return {{"from a", place, a.type, a.name}, {"from b", place, b.type, b.name}};
}

TEST(Decisions, the_closest_one_counts_whatever_the_case_and_whoever_is_named_first) {
    Decisions decisions;
    decisions.decide({"", unit, map});
    decisions.decide({"maps\\", map, unit});
    decisions.decide({"maps\\Coast.ota", unit, map});
    decisions.decide({"", map, game});
    struct Row {
        Owner a, b;
        const char* place;
        std::optional<bool> isForA;
    };
    const Row rows[] = {
        {unit, map, "a.ufo", true},           {map, unit, "a.ufo", false},
        {unit, map, "MAPS\\b.ota", false},    {unit, map, "maps\\coast.OTA", true},
        {map, game, "maps\\coast.ota", true}, {unit, game, "a.ufo", std::nullopt},
        {map, map, "a.ufo", std::nullopt},
    };
    for (const auto& row : rows)
        EXPECT_EQ(decisions.isForA(between(row.a, row.b, row.place)), row.isForA) << row.place;
    decisions.decide({"maps\\coast.ota", map, unit});
    EXPECT_EQ(decisions.isForA(between(unit, map, "maps\\coast.ota")), false) << "the later one";
    EXPECT_TRUE(decisions.forget({"maps\\coast.ota", unit, map}));
    EXPECT_FALSE(decisions.forget({"maps\\coast.ota", unit, map}));
    decisions.rename(ReleaseType::map, "Two/Rivers", "Three");
    EXPECT_EQ(decisions.isForA(between({ReleaseType::map, "Three"}, unit, "a")), false);
    EXPECT_EQ(decisions.isForA(between(map, unit, "a")), std::nullopt);
    decisions.forget(ReleaseType::unit, "Crane");
    EXPECT_EQ(decisions.all().size(), 1U);
}

TEST(Decisions, their_text_reads_back_and_strange_lines_are_passed_over) {
    Decisions decisions;
    decisions.decide({"maps\\coast.ota", map, game});
    decisions.decide({"maps\\", unit, map});
    decisions.decide({"", {ReleaseType::mod, "a \"quoted\" one"}, unit});
    decisions.decide({"#x\\a", unit, game});
    decisions.decide({"tab\there", unit, game});
    const auto text = decisions.text();
    EXPECT_THAT(text, HasSubstr("\r\nmaps/coast.ota\tMap \"Two/Rivers\"\tnot\tTotal Conversion "
                                "\"Cavedog TA\"\r\n"));
    EXPECT_THAT(text, HasSubstr("\r\n*\tModification \"a \"quoted\" one\"\tnot\tUnit \"Crane\""));
    Decisions again;
    again.readText(text + "nonsense\r\n\t\t\t\r\n*\tMap \"A\"\tnot\tMap \"A\"\r\n"
                          "*\tMap A\tnot\tMap \"B\"\r\n*\tMap \"A\"\tor\tMap \"B\"\r\n\t");
    EXPECT_EQ(again.text(), text);
    EXPECT_EQ(again.all().size(), 4U) << "a name with a tab in it cannot be remembered";
    again.readText("maps/coast.ota\tTotal Conversion \"Cavedog TA\"\tnot\tMap \"Two/Rivers\"");
    EXPECT_EQ(again.isForA(between(map, game, "maps\\coast.ota")), false);
}

} // namespace
} // namespace cycle
