// Case, order, lines and what a person sees of bytes.
#include <gtest/gtest.h>

#include "platform/text.h"

namespace platform {
namespace {

TEST(Text, case_is_ignored_by_simple_folding) {
    struct Row {
        std::string_view a;
        std::string_view b;
        bool equal;
    };
    const Row rows[] = {
        {"TotalA.EXE", "totala.exe", true},
        {"", "", true},
        {"a", "", false},
        {"[", "{", false},
        {"Überfahrt", "ÜBERFAHRT", true},
        {"Überfahrt", "überfahrt", true},
        {"ΣΊΣΥΦΟΣ", "σίσυφος", true},
        {"straße", "STRASSE", false},
        {"ẞ", "ß", true},
        {"İ", "i", false},
        {"\xFF\xFE"
         "A",
         "\xFF\xFE"
         "a",
         true},
        {"\xE4", "\xC4", false},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(equalIgnoringCase(row.a, row.b), row.equal) << row.a << " and " << row.b;
        EXPECT_EQ(foldCase(row.a) == foldCase(row.b), row.equal) << row.a << " and " << row.b;
    }
    EXPECT_TRUE(endsWithIgnoringCase("README.TXT", ".txt"));
    EXPECT_FALSE(endsWithIgnoringCase("txt", ".txt"));
}

TEST(Text, the_order_of_listings_ignores_case_and_is_total) {
    const std::string_view ascending[] = {"", "A", "a", "a b", "B", "b_", "ba", "Ä", "ä"};
    for (std::size_t i = 0; i < std::size(ascending); ++i)
        for (std::size_t j = 0; j < std::size(ascending); ++j)
            EXPECT_EQ(lessIgnoringCase(ascending[i], ascending[j]), i < j)
                << ascending[i] << " < " << ascending[j];
}

TEST(Text, lines_end_in_any_of_the_three_ways_and_the_last_needs_no_end) {
    using Lines = std::vector<std::string>;
    EXPECT_EQ(splitLines(""), Lines{});
    EXPECT_EQ(splitLines("\r\n"), Lines{""});
    EXPECT_EQ(splitLines("a\r\n\r\nb"), (Lines{"a", "", "b"}));
    EXPECT_EQ(splitLines("a\nb\rc\r\n"), (Lines{"a", "b", "c"}));
    EXPECT_EQ(splitLines(" a \r\n"), Lines{" a "});
    EXPECT_EQ(splitLines(std::string_view("a\0b\r\n", 5)), Lines{std::string("a\0b", 3)});
}

TEST(Text, what_is_no_utf8_is_shown_as_windows_1252) {
    EXPECT_EQ(toUtf8("plain"), "plain");
    EXPECT_EQ(toUtf8("Überfahrt"), "Überfahrt");
    EXPECT_EQ(toUtf8("\xDC"
                     "berfahrt \x80 \x93x\x94"),
              "Überfahrt € “x”");
    EXPECT_EQ(toUtf8("\xC3"), "Ã");
}

} // namespace
} // namespace platform
