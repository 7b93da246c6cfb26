// Lists, tabs and drop-down lists: what is picked by its text, and when a list counts as another.
#include <gtest/gtest.h>

#include "windows/controls.h"

namespace windows {
namespace {

using Items = std::vector<MarkList::Item>;

class Lists : public testing::Test {
  protected:
    Window window{"frm", ""};
    MarkList list{window, "lstList"};
};

TEST_F(Lists, items_are_others_only_where_their_texts_are) {
    const Items first = {{"a", false}, {"b", true}, {"b", false}};
    const struct {
        const char* what;
        Items items;
        bool others;
        int marked;
    } rows[] = {
        {"other marks", {{"a", true}, {"b", true}, {"b", true}}, false, 3},
        {"the very same", first, false, 1},
        {"another order", {{"b", true}, {"a", false}, {"b", false}}, true, 1},
        {"one more", {{"a", false}, {"b", true}, {"b", false}, {"c", true}}, true, 2},
        {"one less", {{"a", false}, {"b", true}}, true, 1},
        {"none", {}, true, 0},
    };
    for (const auto& row : rows) {
        list.setItems(first);
        list.click("b");
        const auto revision = list.revision();
        list.setItems(row.items);
        EXPECT_EQ(list.revision(), revision + (row.others ? 1 : 0)) << row.what;
        EXPECT_EQ(list.index(), row.others ? -1 : 1) << row.what;
        EXPECT_EQ(list.markedCount(), row.marked) << row.what;
        list.clear();
    }
}

TEST_F(Lists, the_first_filling_counts_even_with_nothing) {
    const auto revision = list.revision();
    list.setItems({});
    EXPECT_EQ(list.revision(), revision + 1);
}

TEST_F(Lists, a_click_finds_the_first_item_of_its_text_and_marks_nothing) {
    std::string clicked;
    list.onClick = [&](const std::string& text) { clicked += text + ","; };
    list.setItems({{"a", false}, {"b", false}, {"b", false}});
    list.click("b");
    EXPECT_EQ(list.index(), 1);
    EXPECT_EQ(list.markedCount(), 0);
    list.click("none");
    EXPECT_EQ(list.index(), 1);
    EXPECT_EQ(clicked, "b,");
}

TEST_F(Lists, an_owner_may_fill_the_list_anew_while_it_is_told) {
    list.onClick = [&](const std::string& text) { list.setItems({{"was " + text, true}}); };
    list.setItems({{"a", false}});
    list.click(list.itemText(0));
    EXPECT_EQ(list.itemText(0), "was a");
}

TEST_F(Lists, tabs_and_rows_go_by_their_texts) {
    int clicks = 0;
    TabStrip tabs(window, "tsp", {"One", "Two"});
    tabs.onClick = [&] { ++clicks; };
    tabs.click("Two");
    tabs.click("Two");
    tabs.click("Three");
    EXPECT_EQ(tabs.caption(), "Two");
    EXPECT_EQ(clicks, 2) << "a click on the current tab counts, one on no tab does not";
    ComboBox box(window, "cbo", {"x", "y"});
    box.pick("y");
    box.pick("z");
    EXPECT_EQ(box.text(), "y");
    EXPECT_EQ(box.index(), 1);
}

} // namespace
} // namespace windows
