// The build-menu table: numbers, reading, merging, compression and the generated texts.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "formats/build_menu.h"
#include "formats/menu_files.h"
#include "formats/number.h"
#include "platform/text.h"

namespace formats {
namespace {

using Units = std::vector<std::string>;

void readPage(MenuTable& table, const std::string& builder, std::string_view text,
              bool skipPlaceholders = false) {
    GuiPageReader page(table, builder, skipPlaceholders);
    for (const auto& line : platform::splitLines(text))
        page.readLine(line);
}

void readDownload(MenuTable& table, std::string_view text) {
    DownloadReader download(table);
    for (const auto& line : platform::splitLines(text))
        download.readLine(line);
}

/// The units of a builder with their places, as "menu/button name".
Units placesOf(const MenuTable& table, std::string_view builder) {
    Units places;
    const int index = table.findBuilder(builder);
    for (int menu = 2; index != -1 && menu <= 8; ++menu)
        for (int button = 0; button < 6; ++button)
            if (const auto& unit =
                    table.menus()[static_cast<std::size_t>(index)].slots(menu, button);
                !unit.empty())
                places.push_back(std::to_string(menu) + "/" + std::to_string(button) + " " + unit);
    return places;
}

TEST(Number, is_read_from_the_start_and_rounded_to_the_even_neighbour) {
    struct Row {
        std::string_view text;
        long value;
    };
    const Row rows[] = {{"7", 7},     {" \t-3x", -3}, {"+12 ", 12}, {"", 0},       {"abc", 0},
                        {"-", 0},     {"0.5", 0},     {"1.5", 2},   {"2.5", 2},    {"2.51", 3},
                        {"2.500", 2}, {"-2.5", -2},   {"-3.5", -4}, {"2.4999", 2}, {".7", 1},
                        {"1e5", 1},   {"3.", 3},      {"0012", 12}, {"9.5", 10},   {"- 4", 0}};
    for (const auto& row : rows)
        EXPECT_EQ(numberAtStart(row.text).value, row.value) << row.text;
    EXPECT_GT(numberAtStart(std::string(5000, '9')).value, 256);
    EXPECT_LT(numberAtStart("-" + std::string(5000, '9')).value, 0);
}

TEST(MenuReading, menu_and_button_numbers_fold_into_range) {
    struct Row {
        std::string menu;
        std::string button;
        std::string place;
    };
    const Row rows[] = {
        {"2", "0", "2/0"},     {"8", "5", "8/5"},
        {"9", "6", "2/0"},     {"0", "7", "7/1"},
        {"1", "-1", "8/5"},    {"-1", "-7", "6/5"},
        {"16", "12", "2/0"},   {"", "x", "7/0"},
        {"2.5", "1.5", "2/2"}, {"70000000000000000000002", "60000000000000000000001", "2/1"}};
    for (const auto& row : rows) {
        MenuTable table;
        readDownload(table,
                     "unitmenu=B\nmenu=" + row.menu + "\nbutton=" + row.button + "\nunitname=U");
        EXPECT_THAT(placesOf(table, "b"), testing::ElementsAre(row.place + " U"))
            << row.menu << " " << row.button;
    }
}

TEST(MenuReading, gui_pages_give_buttons_of_height_64) {
    struct Row {
        const char* what;
        const char* text;
        bool skip;
        Units places;
    };
    const Row rows[] = {
        {"two buttons", "name=A;\nheight=64;\nNAME=B;\n\t HEIGHT=64;\n", false, {"2/0 A", "2/1 B"}},
        {"no button", "name=A;\nheight=63;\n", false, {}},
        {"a blank before the end", "name=A;\nheight=64 ;\n", false, {}},
        {"a trailing blank belongs to the name",
         "name=A ;\nheight=64;\nname=A;\nheight=64;\n",
         false,
         {"2/0 A ", "2/1 A"}},
        {"the last name counts", "name=A;\nname=B;\nheight=64;\n", false, {"2/0 B"}},
        {"a name is used once", "name=A;\nheight=64;\nheight=64;\n", false, {"2/0 A"}},
        {"text behind the semicolon", "name=A; comment\nheight=64; x\n", false, {"2/0 A"}},
        {"a line that begins with one", ";name=A;\nheight=64;\n", false, {}},
        {"placeholders hold one place",
         "name=igpatch;\nheight=64;\nname=IGPATCH;\nheight=64;\nname=A;\nheight=64;\n",
         false,
         {"2/0 igpatch", "2/1 A"}},
        {"placeholders passed over",
         "name=A;\nname=IGPatch;\nheight=64;\nheight=64;\n",
         true,
         {"2/0 A"}},
        {"a placeholder with a blank is a unit",
         "name=igpatch ;\nheight=64;\n",
         true,
         {"2/0 igpatch "}},
    };
    for (const auto& row : rows) {
        MenuTable table;
        readPage(table, "XYZ", row.text, row.skip);
        EXPECT_EQ(placesOf(table, "xyz"), row.places) << row.what;
    }
}

TEST(MenuReading, download_records_need_all_four_values_in_any_order) {
    struct Row {
        const char* what;
        const char* text;
        Units places;
    };
    const Row rows[] = {
        {"any order", "unitname=U;\nbutton=1;\n[x]{\nunitmenu=B;\nmenu=3;\n}", {"3/1 U"}},
        {"three of four", "unitmenu=B;\nmenu=3;\nbutton=1;\n", {}},
        {"carried over a section",
         "[a]\nunitmenu=B;\nmenu=3;\n}\n[b]\n{\nbutton=1;\nunitname=U;\n",
         {"3/1 U"}},
        {"twice in a section",
         "unitmenu=B;\nmenu=2;\nbutton=0;\nunitname=U;\nunitmenu=b;\nmenu=2;\nbutton=1;\nunitname="
         "V;\n",
         {"2/0 U", "2/1 V"}},
        {"a taken place",
         "unitmenu=B;\nmenu=2;\nbutton=0;\nunitname=U;\n"
         "unitmenu=B;\nmenu=2;\nbutton=0;\nunitname=V;\n",
         {"2/0 U", "2/1 V"}},
        {"a unit comes once",
         "unitmenu=B;\nmenu=2;\nbutton=0;\nunitname=U;\n"
         "unitmenu=B;\nmenu=4;\nbutton=4;\nunitname=u;\n",
         {"2/0 U"}},
        {"an empty name is none", "unitmenu=B;\nmenu=2;\nbutton=0;\nunitname=;\n", {}},
    };
    for (const auto& row : rows) {
        MenuTable table;
        readDownload(table, row.text);
        EXPECT_EQ(placesOf(table, "B"), row.places) << row.what;
    }
}

TEST(MenuTable, the_file_that_added_last_spells_the_builder) {
    MenuTable table;
    readPage(table, "XYZ", "name=A;\nheight=64;\n");
    readPage(table, "xyz", "name=B;\nheight=64;\n");
    readPage(table, "Xyz", "name=a;\nheight=64;\n");
    ASSERT_EQ(table.menus().size(), 1U);
    EXPECT_EQ(table.menus()[0].builderName, "xyz");
    EXPECT_TRUE(table.builderHasUnit("XYZ", "b"));
    EXPECT_FALSE(table.builderHasUnit("other", "b"));
}

TEST(MenuTable, a_43rd_unit_is_left_out_and_told) {
    Units left;
    MenuTable table([&](const auto& builder, const auto& unit) { left.push_back(builder + unit); });
    for (int i = 0; i < 44; ++i)
        table.addMenuUnit("B", "u" + std::to_string(i), 8, 5);
    EXPECT_EQ(placesOf(table, "B").size(), 42U);
    EXPECT_EQ(placesOf(table, "B").back(), "8/5 u0");
    EXPECT_THAT(left, testing::ElementsAre("Bu42", "Bu43"));
}

TEST(MenuTable, compression_closes_gaps_and_ends_with_each_builder) {
    MenuTable table;
    table.addMenuUnit("one", "a", 2, 0);
    table.addMenuUnit("one", "b", 2, 3);
    table.addMenuUnit("one", "c", 4, 1);
    table.addMenuUnit("two", "IGPATCH", 2, 0);
    table.addMenuUnit("two", "d", 3, 0);
    table.addMenuUnit("three", "igpatch", 5, 5);
    table.addMenuUnit("four", "e", 8, 5);
    table.compress();
    EXPECT_EQ(placesOf(table, "one"), (Units{"2/0 a", "2/1 b", "2/2 c"}));
    EXPECT_EQ(placesOf(table, "two"), (Units{"2/0 d"}));
    EXPECT_EQ(placesOf(table, "three"), (Units{"5/5 igpatch"}));
    EXPECT_EQ(placesOf(table, "four"), (Units{"2/0 e"}));
}

TEST(Downloads, two_menus_fold_into_one_of_twelve_buttons_unless_small) {
    struct Row {
        int menu;
        int button;
        bool small;
        std::string head;
        std::string menuLine;
        std::string buttonLine;
    };
    const Row rows[] = {
        {2, 0, false, "[MENUENTRY1] {", "MENU=2;", "BUTTON=0;"},
        {3, 0, false, "[MENUENTRY7] {", "MENU=2;", "BUTTON=6;"},
        {4, 0, false, "[MENUENTRY7] {", "MENU=3;", "BUTTON=0;"},
        {7, 5, false, "[MENUENTRY24] {", "MENU=4;", "BUTTON=11;"},
        {8, 5, false, "[MENUENTRY24] {", "MENU=5;", "BUTTON=5;"},
        {8, 5, true, "[MENUENTRY42] {", "MENU=8;", "BUTTON=5;"},
        {3, 2, true, "[MENUENTRY9] {", "MENU=3;", "BUTTON=2;"},
    };
    for (const auto& row : rows) {
        DownloadTable table;
        table.addDownloadEntry("U", "B", row.menu, row.button, row.small);
        EXPECT_EQ(downloadText(table.downloads()[0]), row.head + "\r\n\tUNITMENU=B;\r\n\t" +
                                                          row.menuLine + "\r\n\t" + row.buttonLine +
                                                          "\r\n\tUNITNAME=U;\r\n}\r\n\r\n");
    }
}

TEST(Downloads, units_are_told_apart_by_case_and_keep_their_order) {
    DownloadTable table;
    table.addDownloadEntry("U", "A", 2, 0, true);
    table.addDownloadEntry("u", "A", 2, 1, true);
    table.addDownloadEntry("U", "B", 2, 0, true);
    table.addDownloadEntry("U", "", 2, 0, true);
    ASSERT_EQ(table.downloads().size(), 2U);
    EXPECT_EQ(table.downloads()[0].entries.size(), 3U);
    EXPECT_EQ(table.findDownload("u"), 1);
    EXPECT_EQ(table.findDownload("x"), -1);
    EXPECT_EQ(downloadText(table.downloads()[0]).find("UNITMENU=;"), std::string::npos);
}

TEST(MenuList, long_names_run_into_the_next_column) {
    EXPECT_EQ(padRight("ab", 4), "ab  ");
    EXPECT_EQ(padRight("abcde", 4), "abcde");
    MenuTable table;
    table.addMenuUnit("B", "ALONGNAMEDUNIT", 2, 0);
    table.addMenuUnit("B", "X", 2, 1);
    const auto text = menuListText(table.menus());
    EXPECT_EQ(text.substr(0, 55), "Build Menu for B:\r\nM#2: ALONGNAMEDUNITX                ");
    EXPECT_TRUE(text.ends_with("\r\n\r\n\r\n"));
}

} // namespace
} // namespace formats
