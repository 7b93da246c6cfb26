// What the game makes of names: the order of its archives, and the units that files define.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "formats/game_files.h"
#include "formats/unit_file.h"

namespace formats {
namespace {

TEST(GameFiles, archives_go_by_their_endings_and_then_by_name) {
    const std::string_view inOrder[] = {"b.HPI", "totala1.hpi", "A.ufo", "b.UFO",
                                        "a.ccx", "z.ccx",       "a.gp3", "Rev31.GP3"};
    for (std::size_t i = 0; i < std::size(inOrder); ++i)
        for (std::size_t j = 0; j < std::size(inOrder); ++j)
            EXPECT_EQ(lessInGameOrder(inOrder[i], inOrder[j]), i < j) << inOrder[i] << inOrder[j];
}

TEST(UnitFile, the_first_value_of_the_key_is_the_name) {
    struct Row {
        std::string_view text;
        std::optional<std::string> name;
    };
    const Row rows[] = {
        {"[UNITINFO]\r\n\t{\r\n\tUnitName=ARMCOM;\r\n\tVersion=1;\r\n\t}", "ARMCOM"},
        {"[UNITINFO] { Name=x; UNITNAME = A B ; }", "A B"},
        {"[UNITINFO]UnitName=A", "A"},
        {"unitname=A;unitname=B;", "A"},
        {"//UnitName=A;\nUnitName=B;", "B"},
        {"/* UnitName=A;\n */UnitName=B/C; // comment", "B/C"},
        {"/* UnitName=A;", std::nullopt},
        {"UnitName=;", std::nullopt},
        {"UnitNames=A;\nName=UnitName;", std::nullopt},
        {"UnitName=A\x01;", std::nullopt},
        {"", std::nullopt},
    };
    for (const auto& row : rows)
        EXPECT_EQ(unitNameIn(row.text), row.name) << row.text;
    EXPECT_EQ(unitNameIn("UnitName=" + std::string(256, 'A')), std::nullopt);
}

} // namespace
} // namespace formats
