// Which release fits which total conversion.
#include <gtest/gtest.h>

#include "formats/codes.h"

namespace formats {
namespace {

TEST(Codes, a_release_and_a_conversion_that_share_one_fit) {
    struct Row {
        std::vector<std::string> release;
        std::vector<std::string> conversion;
        bool fit;
    };
    const Row rows[] = {
        {{"A", "b"}, {"c", "B"}, true},
        {{"a"}, {"b"}, false},
        {{"*"}, {"a"}, true},
        {{"aNy"}, {"a"}, true},
        {{"a"}, {"*"}, false},
        {{"a"}, {"any"}, false},
        {{}, {"a"}, false},
        {{}, {}, true},
        {{"a"}, {}, true},
        {{""}, {"a"}, true},
        {{"x", "*"}, {"a"}, true},
        {{"a b"}, {"a"}, false},
        {{"\xD6L"}, {"\xC3\xB6l"}, true}, // two encodings of one word
    };
    for (const auto& row : rows)
        EXPECT_EQ(areCompatible(row.release, row.conversion), row.fit)
            << shownCodes(row.release) << "| " << shownCodes(row.conversion);
}

TEST(Codes, a_file_has_one_in_a_line) {
    EXPECT_EQ(readCodes("a b\r\n\r\nc"), (std::vector<std::string>{"a b", "", "c"}));
    EXPECT_EQ(shownCodes({"a b", "", "c"}), "a b  c ");
    EXPECT_EQ(codesText("a  b"), "a\r\n\r\nb\r\n");
}

} // namespace
} // namespace formats
