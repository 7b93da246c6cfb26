// What the widgets add to the preview: a filter that takes nobody's place, folders that stay as a
// hand has left them, the keys.
#include <QAction>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeView>

#include "views/support/window_test.h"

namespace test {
namespace {

class PreviewTest : public WindowTest {
  protected:
    PreviewTest() {
        for (const auto* name : {"coast.ota", "hill.ota"}) {
            game.put(std::string("maps/") + name, "game");
            game.put(std::string("Vexillum/Map-New/maps/") + name, "new");
        }
        game.put("camps/one.txt", "game");
    }

    static QWidget* preview() { return find<QWidget>("frmPreview"); }
    static QTreeView* files() { return preview()->findChild<QTreeView*>("treFiles"); }
    static void filter(const QString& text) {
        preview()->findChild<QLineEdit*>("filter")->setText(text);
    }

    /// The rows that can be seen, folders opened with what lies in them.
    static QStringList seen(const QModelIndex& parent = {}) {
        QStringList rows;
        const auto* model = files()->model();
        for (int row = 0; row < model->rowCount(parent); ++row) {
            const auto index = model->index(row, 0, parent);
            rows << index.data().toString();
            if (files()->isExpanded(index))
                rows << seen(index);
        }
        return rows;
    }

    static QModelIndex rowOf(const QString& folder, const QString& file = {}) {
        const auto* model = files()->model();
        for (int row = 0; row < model->rowCount(); ++row) {
            const auto index = model->index(row, 0);
            if (index.data() != folder)
                continue;
            for (int below = 0; below < model->rowCount(index) && !file.isEmpty(); ++below)
                if (model->index(below, 0, index).data() == file)
                    return model->index(below, 0, index);
            return index;
        }
        return {};
    }

    static std::function<void()> openPreview() {
        return [] { find<QWidget>("frmMain")->findChild<QAction*>("mnuFPreview")->trigger(); };
    }
};

TEST_F(PreviewTest, a_filter_shows_what_it_finds_and_picks_nothing) {
    run({
        [] { chooseTab(4); },
        [] { clickRow(0); },
        openPreview(),
        [] {
            EXPECT_EQ(seen(), (QStringList{"camps", "maps", "coast.ota", "hill.ota", "totala.exe"}))
                << "what is to be decided can be seen";
            files()->setCurrentIndex(rowOf("maps", "coast.ota"));
        },
        [] {
            filter("HILL");
            EXPECT_EQ(seen(), (QStringList{"maps", "hill.ota"}));
            EXPECT_FALSE(files()->currentIndex().isValid()) << "nobody has picked another one";
            filter("one.txt");
            EXPECT_EQ(seen(), (QStringList{"camps", "one.txt"})) << "what was found is opened";
            filter("Map \"New\"");
            EXPECT_EQ(seen(), (QStringList{"maps", "coast.ota", "hill.ota"})) << "any column";
            filter("nothing has this");
            EXPECT_EQ(seen(), QStringList());
            filter("");
            EXPECT_EQ(files()->currentIndex(), rowOf("maps", "coast.ota"));
            EXPECT_EQ(seen().size(), 5) << "and closed again";
        },
        [] { preview()->close(); },
        [] { clickRow(0); },
        [] { find<QWidget>("frmMain")->close(); },
    });
}

TEST_F(PreviewTest, folders_stay_as_a_hand_has_left_them) {
    run({
        [] { chooseTab(4); },
        [] { clickRow(0); },
        openPreview(),
        [] {
            files()->collapse(rowOf("maps"));
            files()->expand(rowOf("camps"));
            preview()->findChild<QPushButton*>("cmdRefresh")->click();
        },
        [] {
            EXPECT_EQ(seen(), (QStringList{"camps", "one.txt", "maps", "totala.exe"}));
            files()->setFocus(Qt::TabFocusReason);
            EXPECT_FALSE(files()->currentIndex().isValid()) << "to come by is not to pick";
            key(files(), Qt::Key_Down);
            EXPECT_EQ(files()->currentIndex(), rowOf("camps"));
            key(files(), Qt::Key_Tab);
            EXPECT_EQ(preview()->focusWidget()->objectName(), "treRivals");
        },
        [] { key(preview(), Qt::Key_Escape); },
        [] { clickRow(0); },
        [] { find<QWidget>("frmMain")->close(); },
    });
}

} // namespace
} // namespace test
