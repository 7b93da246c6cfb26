// Names as journals, archives, data files, menus and people write them, and whether they may be
// followed.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/paths.h"
#include "platform/relative_path.h"

namespace platform {
namespace {

using testing::ElementsAre;

#ifdef _WIN32
constexpr bool colonIsAName = false;
#else
constexpr bool colonIsAName = true;
#endif

constexpr PathRules strictDots{PathRules::Slash::separates, PathRules::Dot::refused,
                               PathRules::Controls::allowed};

struct Row {
    std::string text;
    PathRules rules;
    std::string expected; ///< empty for a path that is refused
};

const std::string thousand(1000, 'a');

const Row rows[] = {
    // Members of zip files and releases.
    {"units/a.fbi", PathRules::foreign(), "units\\a.fbi"},
    {"units\\\\sub//a.fbi/", PathRules::foreign(), "units\\sub\\a.fbi"},
    {"./units/./a", PathRules::foreign(), "units\\a"},
    {"...", PathRules::foreign(), "..."},
    {".hidden", PathRules::foreign(), ".hidden"},
    {"", PathRules::foreign(), ""},
    {"/", PathRules::foreign(), ""},
    {"./.", PathRules::foreign(), ""},
    {"/etc/passwd", PathRules::foreign(), ""},
    {"\\a", PathRules::foreign(), ""},
    {"..", PathRules::foreign(), ""},
    {"a/../../b", PathRules::foreign(), ""},
    {"a\\..", PathRules::foreign(), ""},
    {"C:/a", PathRules::foreign(), ""},
    {"./c:\\a", PathRules::foreign(), ""},
    {"c:a", PathRules::foreign(), ""},
    {"a/C:/b", PathRules::foreign(), ""},
    {"ab:c", PathRules::foreign(), colonIsAName ? "ab:c" : ""},
    {"a\nb", PathRules::foreign(), ""},
    {"a\tb", PathRules::foreign(), ""},
    {std::string("a\0b", 3), PathRules::foreign(), ""},
    {thousand, PathRules::foreign(), thousand},
    {thousand + "b", PathRules::foreign(), ""},
    {"./" + thousand, PathRules::foreign(), thousand},
    // Names of units on a menu.
    {"armcom", strictDots, "armcom"},
    {"sub/armcom", strictDots, "sub\\armcom"},
    {".", strictDots, ""},
    {"a/./b", strictDots, ""},
    {"a\\c:", strictDots, ""},
    {"tab\there", strictDots, "tab\there"},
    // Journals.
    {"units\\a.fbi", PathRules::own(), "units\\a.fbi"},
    {"x\\\\y\\", PathRules::own(), "x\\y"},
    {"x/y", PathRules::own(), ""},
    {"/x", PathRules::own(), ""},
    {"\\x", PathRules::own(), ""},
    {"", PathRules::own(), ""},
    {"..\\x", PathRules::own(), ""},
    {"x\\.\\y", PathRules::own(), ""},
    {"C:\\x", PathRules::own(), ""},
    {"C:\\", PathRules::own(), colonIsAName ? "C:" : ""},
    {"a:", PathRules::own(), colonIsAName ? "a:" : ""},
    {"x\\a:", PathRules::own(), colonIsAName ? "x\\a:" : ""},
    {std::string("a\\\0", 3), PathRules::own(), ""},
    {thousand + "\\" + thousand, PathRules::own(), thousand + "\\" + thousand},
};

TEST(RelativePathTest, only_what_stays_below_its_folder_is_a_path) {
    for (const auto& row : rows) {
        const auto path = RelativePath::parse(row.text, row.rules);
        EXPECT_EQ(path ? path->text() : "", row.expected) << row.text;
        EXPECT_EQ(RelativePath::accepts(row.text, row.rules), path.has_value()) << row.text;
    }
}

TEST(RelativePathTest, a_path_gives_its_parts_also_after_it_was_moved) {
    auto path = RelativePath::parse("a/bc\\./d");
    const auto moved = *std::move(path);
    EXPECT_THAT(moved.parts(), ElementsAre("a", "bc", "d"));
}

TEST(RelativePathTest, what_is_below_the_game_directory_is_told_from_its_neighbours) {
    EXPECT_TRUE(isPlainPathBelow("/game\\x", "/game"));
    for (const auto* path : {"/game", "/game\\", "/gamex\\y", "/game\\..\\x", "x"})
        EXPECT_FALSE(isPlainPathBelow(path, "/game")) << path;
    EXPECT_FALSE(isPlainPathBelow("\\x", "")) << "no game directory is set";
}

TEST(RelativePathTest, a_plain_name_names_one_entry) {
    for (const auto* name : {"a", "Map-New", ".hidden", "...", "a b", "tab\t"})
        EXPECT_TRUE(isPlainName(name)) << name;
    for (const std::string name : {"", ".", "..", "a\\b", "a/b", "a\rb", "a\n"})
        EXPECT_FALSE(isPlainName(name)) << name;
    EXPECT_FALSE(isPlainName(std::string_view("a\0b", 3)));
    EXPECT_EQ(isPlainName("a:"), colonIsAName);
}

} // namespace
} // namespace platform
