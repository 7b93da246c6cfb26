// What the window of the sets adds on the screen: where it begins, and what keys and a double click
// do in its list.
#include <QAction>
#include <QPlainTextEdit>
#include <QPushButton>

#include "views/support/window_test.h"

namespace test {
namespace {

class SetsViewTest : public WindowTest {
  protected:
    SetsViewTest() {
        for (const auto* name : {"Coast", "Hills"}) {
            game.put("Vexillum/Map-" + std::string(name) + "/a.ufo");
            game.put("Vexillum/VXL-Sets/" + std::string(name) + ".txt",
                     "Vexillum Set\n[Releases]\nMap \"" + std::string(name) +
                         "\"\n[Menu Modifier]\n[Answers]\n");
        }
    }

    static void open() { find<QWidget>("frmMain")->findChild<QAction*>("mnuSSwitch")->trigger(); }
    static bool isOpen() {
        const auto* window = find<QWidget>("frmSets");
        return window != nullptr && window->isVisible();
    }
};

TEST_F(SetsViewTest, the_list_has_the_focus_and_takes_a_set_by_enter_or_a_double_click) {
    const auto list = [] { return find<QListView>("lstSets"); };
    run({
        [] {
            chooseTab(4);
            open();
        },
        [&] {
            EXPECT_TRUE(list()->hasFocus());
            EXPECT_EQ(list()->currentIndex().data().toString(), "Coast");
            EXPECT_EQ(list()->accessibleName(), "Sets");
            key(list(), Qt::Key_Down);
        },
        [&] {
            EXPECT_TRUE(find<QPlainTextEdit>("txtSet")->toPlainText().contains("Map \"Hills\""));
            EXPECT_EQ(list()->currentIndex().data().toString(), "Hills");
            key(list(), Qt::Key_Return);
        },
        [] {
            EXPECT_FALSE(isOpen());
            auto* maps = find<QListView>("lstList");
            EXPECT_EQ(maps->model()->index(1, 0).data(Qt::CheckStateRole), Qt::Checked);
            EXPECT_EQ(maps->model()->index(0, 0).data(Qt::CheckStateRole), Qt::Unchecked);
            open();
        },
        [&] {
            EXPECT_EQ(list()->currentIndex().data().toString(), "Hills") << "the one at hand";
            const auto row = list()->model()->index(0, 0);
            Q_EMIT list()->clicked(row);
            Q_EMIT list()->doubleClicked(row);
        },
        [] {
            EXPECT_FALSE(isOpen());
            auto* maps = find<QListView>("lstList");
            EXPECT_EQ(maps->model()->index(0, 0).data(Qt::CheckStateRole), Qt::Checked);
            find<QWidget>("frmMain")->close();
        },
    });
}

TEST_F(SetsViewTest, a_set_that_cannot_be_read_is_not_taken) {
    game.put("Vexillum/VXL-Sets/A.txt", "nonsense");
    run({
        [] { open(); },
        [] {
            EXPECT_FALSE(find<QPushButton>("cmdSwitch")->isEnabled());
            EXPECT_TRUE(find<QPushButton>("cmdDelete")->isEnabled());
            key(find<QListView>("lstSets"), Qt::Key_Return);
        },
        [] {
            EXPECT_TRUE(isOpen());
            key(find<QWidget>("frmSets"), Qt::Key_Escape);
        },
        [] {
            EXPECT_FALSE(isOpen());
            find<QWidget>("frmMain")->close();
        },
    });
}

} // namespace
} // namespace test
