// The pane of what a release brings, on the screen: sharp pixels, keys, the table's order.
#include <QAccessible>
#include <QAction>
#include <QLineEdit>
#include <QMenu>
#include <QTreeView>

#include "packing/archive_writer.h"
#include "packing/map_writer.h"
#include "picture_view.h"
#include "views/support/window_test.h"

namespace {

using test::find;
using test::key;
using test::WindowTest;

std::shared_ptr<const formats::Picture> checkered(int width, int height) {
    formats::Picture picture;
    picture.width = width;
    picture.height = height;
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            picture.pixels.push_back(static_cast<std::uint8_t>((x + y) % 2));
    picture.colours[1] = {255, 128, 0};
    return std::make_shared<const formats::Picture>(picture);
}

TEST(PictureTest, pixels_are_whole_ones_of_the_screen) {
    struct {
        QSize picture;
        QSize room;
        QSize shown;
    } const rows[] = {
        {{126, 126}, {128, 128}, {126, 126}}, {{126, 126}, {256, 256}, {252, 252}},
        {{10, 20}, {55, 55}, {20, 40}},       {{252, 252}, {128, 128}, {128, 128}},
        {{200, 100}, {128, 128}, {128, 64}},  {{10, 10}, {0, 20}, {0, 0}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(
            views::fitted(views::imageOf(checkered(row.picture.width(), row.picture.height())),
                          row.room)
                .size(),
            row.shown)
            << row.picture.width() << " in " << row.room.width();
    const auto doubled = views::fitted(views::imageOf(checkered(3, 2)), {6, 5});
    for (int y = 0; y < doubled.height(); ++y)
        for (int x = 0; x < doubled.width(); ++x)
            EXPECT_EQ(doubled.pixel(x, y),
                      (x / 2 + y / 2) % 2 == 1 ? qRgb(255, 128, 0) : qRgb(0, 0, 0));
}

TEST_F(WindowTest, maps_are_found_by_players_and_sorted_by_size_and_shown_as_tiles) {
    const auto put = [this](const std::string& name, const std::string& facts) {
        game.put("Vexillum/Map-" + name + "/a.ufo",
                 packing::packArchive(
                     {{"maps\\a.ota", "[GlobalHeader]{missionname=X;" + facts + "}"},
                      {"maps\\a.tnt", packing::mapFile(packing::drawMap(1, 64, 32, 80))}}));
    };
    put("Alps", "numplayers=2, 4;size=16 x 16;");
    put("Bay", "numplayers=2;size=8 x 8;");
    put("Cliff", "numplayers=4;size=12 x 9;");
    game.put("Vexillum/Map-Dark/a.ufo", "no archive");
    const auto rows = [] {
        QStringList names;
        const auto* model = find<QListView>("lstList")->model();
        for (int row = 0; row < model->rowCount(); ++row)
            names << model->index(row, 0).data().toString();
        return names.join(" ").toStdString();
    };
    const auto order = [](const QString& caption) {
        for (auto* action : find<QMenu>("listMenu")->actions())
            if (action->text() == caption)
                action->trigger();
    };
    run({
        [] { chooseTab(4); },
        [&] {
            find<QLineEdit>("filter")->setText("players:4");
            // What is not known yet comes when it is.
            awaited = [&] { return rows() == "Alps Cliff"; };
        },
        [&] {
            EXPECT_EQ(rows(), "Alps Cliff");
            find<QLineEdit>("filter")->setText("a size<=12");
            EXPECT_EQ(rows(), "Bay");
            find<QLineEdit>("filter")->setText("");
            order("By Si&ze");
            EXPECT_EQ(rows(), "Bay Cliff Alps Dark");
            order("In &Listed Order");
            auto* list = find<QListView>("lstList");
            const auto* row = QAccessible::queryAccessibleInterface(list)->child(0);
            EXPECT_EQ(row->text(QAccessible::Name), "Alps");
            EXPECT_EQ(row->text(QAccessible::Description), "2 to 4 players, 16 x 16");
            find<QAction>("showsPictures")->trigger();
            EXPECT_EQ(list->viewMode(), QListView::IconMode);
            clickRow(1);
        },
        [&] {
            EXPECT_TRUE(window->lstList.marked(1)) << "tiles are ticked as rows are";
            chooseTab(2);
        },
        [] {
            EXPECT_EQ(find<QListView>("lstList")->viewMode(), QListView::ListMode)
                << "races have no pictures";
            find<QWidget>("frmMain")->close();
        },
    });
}

TEST_F(WindowTest, a_picture_is_enlarged_by_a_key_and_a_table_is_sorted) {
    const auto unit = [](const std::string& name, int energy) {
        return "[UNITINFO]{UnitName=" + name + ";BuildCostEnergy=" + std::to_string(energy) + ";}";
    };
    game.put(
        "Vexillum/Map-A/a.ufo",
        packing::packArchive({{"maps\\a.tnt", packing::mapFile(packing::drawMap(1, 64, 32, 80))},
                              {"units\\a.fbi", unit("A", 900)},
                              {"units\\b.fbi", unit("B", 1000)},
                              {"units\\c.fbi", unit("C", 80)}}));
    const auto picture = [] { return find<views::PictureView>("picContents"); };
    run({
        [] { chooseTab(4); },
        [&] {
            find<QListView>("lstList")->setFocus();
            key(find<QListView>("lstList"), Qt::Key_Down);
            awaited = [&] { return picture()->isVisible(); };
        },
        [&] {
            EXPECT_EQ(picture()->accessibleName(), "map a, 2 x 1");
            auto* units = find<QTreeView>("treUnits");
            units->sortByColumn(3, Qt::AscendingOrder);
            QStringList names;
            for (int row = 0; row < units->model()->rowCount(); ++row)
                names << units->model()->index(row, 0).data().toString();
            EXPECT_EQ(names.join(" "), "C A B");
            const auto* told = QAccessible::queryAccessibleInterface(units);
            ASSERT_EQ(told->childCount(), 3);
            EXPECT_EQ(told->child(0)->text(QAccessible::Name), "C, 80") << "as it is sorted";
            picture()->setFocus();
            key(picture(), Qt::Key_Return);
            awaited = [] { return find<views::PictureView>("picLarge") != nullptr; };
        },
        [] {
            const auto* large = find<views::PictureView>("picLarge");
            ASSERT_NE(large, nullptr);
            EXPECT_EQ(large->accessibleName(), "map a, 2 x 1");
            key(large->window(), Qt::Key_Escape);
        },
        [] {
            EXPECT_TRUE(find<views::PictureView>("picContents")->isEnabled());
            auto* units = find<QTreeView>("treUnits");
            units->setCurrentIndex(units->model()->index(1, 0));
            EXPECT_TRUE(QAccessible::queryAccessibleInterface(units)->child(1)->state().selected);
            find<QWidget>("frmMain")->close();
        },
    });
}

} // namespace
