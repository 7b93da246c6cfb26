// The real windows without a screen: what a person clicks and types reaches the logic, and what the
// logic sets is seen.
#include <chrono>
#include <csignal>
#include <filesystem>

#include <QAction>
#include <QCheckBox>
#include <QHelpEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QSplitter>
#include <QToolTip>

#include "mark_list_view.h"
#include "support/system.h"
#include "views/session_end.h"
#include "views/support/window_test.h"

namespace {

using test::find;
using test::key;
using test::WindowTest;

TEST_F(WindowTest, a_map_is_ticked_and_launched_through_the_widgets) {
    game.put("Vexillum/Map-New/maps/a.ota", "new");
    game.put(test::onWindows ? "Vexillum/Map-Ägypten/info.txt" : "Vexillum/Map-\xC4gypten/info.txt",
             "Sch\xF6n");
    game.put("maps/A.OTA", "game");
    run({
        [] { chooseTab(4); },
        [] {
            EXPECT_EQ(find<QLabel>("lblList")->text(), "Available Maps:");
            EXPECT_EQ(find<QTabBar>("tspMain")->currentIndex(), 4);
            auto* list = find<QListView>("lstList");
            EXPECT_EQ(list->model()->rowCount(), 2);
            EXPECT_EQ(list->model()->index(1, 0).data().toString(), "Ägypten");
            EXPECT_FALSE(find<QPushButton>("cmdExplore")->isEnabled());
            list->setCurrentIndex(list->model()->index(0, 0));
            key(list, Qt::Key_Space, " ");
        },
        [] { clickRow(1); },
        [] {
            auto* list = find<QListView>("lstList");
            EXPECT_EQ(list->model()->index(0, 0).data(Qt::CheckStateRole), Qt::Checked);
            EXPECT_EQ(find<QLineEdit>("txtSelMaps")->text(), "2 3rd Party Maps Selected");
            EXPECT_EQ(find<QPlainTextEdit>("txtAbout")->toPlainText(), "Schön\n");
            EXPECT_TRUE(find<QPushButton>("cmdExplore")->isEnabled());
            find<QPushButton>("cmdGo")->click();
        },
        [] {
            auto* box = find<QMessageBox>("messageBox");
            ASSERT_NE(box, nullptr);
            EXPECT_TRUE(box->text().startsWith("Both the \"New\" Map and the"));
            box->buttons().front()->click();
        },
        [] {
            auto* log = find<QPlainTextEdit>("txtReadme");
            EXPECT_TRUE(log->toPlainText().startsWith("Creating Needed Subdirectories...\nmaps\n"));
            EXPECT_TRUE(log->toPlainText().endsWith("Done"));
            EXPECT_FALSE(find<QPushButton>("cmdRevert")->isEnabled())
                << "the main window rests during the apply";
            key(log, Qt::Key_Return);
        },
    });
    EXPECT_FALSE(game.has("maps/A.OTA"));
    EXPECT_EQ(game.content("maps/a.ota"), "new");
    ASSERT_EQ(started.size(), 1U);
    EXPECT_EQ(started[0], game.folder() + test::shown("/totala.exe"));
}

TEST_F(WindowTest, the_rest_of_a_row_can_be_answered_alike) {
    for (const auto* name : {"a", "b", "c", "d", "e"}) {
        game.put(name, "game");
        game.put(std::string("Vexillum/Mod-New/") + name, "new");
    }
    const auto answer = [](bool offers, const char* caption, bool same) {
        auto* box = find<QMessageBox>("messageBox");
        ASSERT_NE(box, nullptr);
        EXPECT_EQ(box->checkBox() != nullptr, offers);
        if (same) {
            box->checkBox()->setChecked(true);
            box->findChild<QCheckBox*>("remember")->setChecked(true);
        }
        for (auto* button : box->buttons())
            if (button->text() == caption)
                button->click();
    };
    run({
        [] { chooseTab(3); },
        [] { clickRow(0); },
        [] { find<QWidget>("frmMain")->close(); },
        [&] { answer(false, "&Yes", false); },
        [&] { answer(false, "&No", false); },
        [&] { answer(true, "&No", true); },
    });
    EXPECT_EQ(game.content("a"), "new");
    for (const auto* name : {"b", "c", "d", "e"})
        EXPECT_EQ(game.content(name), "game");
    const auto remembered = game.content("Vexillum/VXL-Sel/Answers.txt").value_or("");
    for (const auto* name : {"a", "b", "c", "d", "e"})
        EXPECT_EQ(remembered.find(std::string("\n") + name + "\tTotal Conversion") !=
                      remembered.npos,
                  *name >= 'c')
            << "the answer for the rest is remembered for each of them";
    EXPECT_TRUE(started.empty());
}

TEST_F(WindowTest, menu_items_show_the_checks_that_the_logic_sets) {
    run({
        [] {
            auto* enable = find<QWidget>("frmMain")->findChild<QAction*>("mnuMMenable");
            auto* small = find<QWidget>("frmMain")->findChild<QAction*>("mnuMMsmall");
            EXPECT_EQ(enable->shortcut(), QKeySequence("Ctrl+M"));
            EXPECT_FALSE(small->isEnabled());
            enable->trigger();
        },
        [] {
            EXPECT_TRUE(find<QWidget>("frmMain")->findChild<QAction*>("mnuMMenable")->isChecked());
            auto* small = find<QWidget>("frmMain")->findChild<QAction*>("mnuMMsmall");
            EXPECT_TRUE(small->isEnabled());
            EXPECT_FALSE(small->isChecked());
            find<QWidget>("frmMain")->findChild<QAction*>("mnuFExitVXL")->trigger();
        },
    });
}

/// The rows that a person sees.
QStringList rowsOf(const QListView& list) {
    QStringList rows;
    for (int row = 0; row < list.model()->rowCount(); ++row)
        rows << list.model()->index(row, 0).data().toString();
    return rows;
}

QString badgeOf(int tab) {
    return qobject_cast<QLabel*>(find<QTabBar>("tspMain")->tabButton(tab, QTabBar::RightSide))
        ->text();
}

TEST_F(WindowTest, the_filter_hides_rows_and_changes_no_mark) {
    for (const auto* map : {"Ashap", "Great Divide", "Greenhaven", "Twin Lakes"})
        game.makeFolder(std::string("Vexillum/Map-") + map);
    auto* const& main = window;
    run({
        [] { chooseTab(4); },
        [] { clickRow(0); },
        [] {
            find<QLineEdit>("filter")->setText("GRE");
            EXPECT_EQ(rowsOf(*find<QListView>("lstList")),
                      QStringList({"Great Divide", "Greenhaven"}));
            EXPECT_FALSE(find<QListView>("lstList")->currentIndex().isValid())
                << "no other takes the place of the release that the panes show";
            key(find<QLineEdit>("filter"), Qt::Key_Return);
            auto* list = find<QListView>("lstList");
            EXPECT_EQ(list->currentIndex().row(), 0) << "Enter goes on in the list";
        },
        [] {
            auto* list = find<QListView>("lstList");
            EXPECT_EQ(find<QLabel>("lblAbout")->text(), "About Great Divide:");
            key(list, Qt::Key_Down);
            key(list, Qt::Key_Space, " ");
        },
        [&main] {
            EXPECT_EQ(main->lstList.count(), 4);
            EXPECT_TRUE(main->lstList.marked(0)) << "a hidden mark stays";
            EXPECT_TRUE(main->lstList.marked(2)) << "Space marks the item of the row";
            find<QLineEdit>("filter")->setText("nothing like it");
            EXPECT_EQ(find<QListView>("lstList")->model()->rowCount(), 0);
            key(find<QLineEdit>("filter"), Qt::Key_Escape);
            EXPECT_EQ(find<QListView>("lstList")->model()->rowCount(), 4);
            auto* list = find<QListView>("lstList");
            EXPECT_EQ(list->currentIndex().data().toString(), "Greenhaven") << "it is back";
            list->keyboardSearch("tw");
            EXPECT_EQ(list->currentIndex().data().toString(), "Twin Lakes");
            find<QLineEdit>("filter")->setText("Twin");
            chooseTab(5);
        },
        [] {
            EXPECT_EQ(find<QLineEdit>("filter")->text(), "") << "another tab shows all";
            find<QWidget>("frmMain")->close();
        },
    });
    EXPECT_TRUE(started.empty());
}

TEST_F(WindowTest, badges_count_what_is_marked_and_what_there_is) {
    game.put("Vexillum/Map-Misc/loose.ufo");
    game.put("Vexillum/Map-Misc/loose.txt");
    game.makeFolder("Vexillum/Map-Ashap");
    game.makeFolder("Vexillum/Mod-Misc");
    game.put("Vexillum/VXL-Sel/selMods.txt", "Misc\r\nGone\r\n");
    run({
        [] {
            EXPECT_EQ(badgeOf(0), "1 / 1");
            EXPECT_EQ(badgeOf(2), "0");
            EXPECT_EQ(badgeOf(3), "1 / 1") << "a release that is gone counts no more";
            EXPECT_EQ(badgeOf(4), "2");
            EXPECT_EQ(find<QTabBar>("tspMain")->tabText(4), "Maps");
            chooseTab(4);
        },
        [] { clickRow(1); },
        [] {
            EXPECT_EQ(badgeOf(4), "1 / 2");
            find<QPushButton>("cmdRevert")->click();
        },
        [] {
            EXPECT_EQ(badgeOf(4), "2");
            EXPECT_EQ(badgeOf(3), "1");
            find<QWidget>("frmMain")->close();
        },
    });
}

TEST_F(WindowTest, a_signal_to_end_applies_and_saves) {
    if (test::onWindows)
        GTEST_SKIP() << "the end of a session comes there as a message to the windows";
    game.put("Vexillum/Map-New/a.ufo", "new");
    game.put("a.ufo", "game");
    std::unique_ptr<views::SessionEnd> end;
    run({
        [&] {
            end = std::make_unique<views::SessionEnd>(*toolkit);
            chooseTab(4);
        },
        [] {
            auto* list = find<QListView>("lstList");
            list->setCurrentIndex(list->model()->index(0, 0));
            key(list, Qt::Key_Space, " ");
        },
        [] { find<QAction>("mnuHAboutVXL")->trigger(); },
        [] {
            EXPECT_TRUE(find<QWidget>("frmShowReadme")->isVisible()) << "a window stands over it";
            ::raise(SIGTERM);
        },
    });
    EXPECT_EQ(game.content("a.ufo"), "new");
    EXPECT_EQ(game.content("Vexillum/VXL-Sel/selMaps.txt"), "New\r\n");
    EXPECT_TRUE(started.empty());
}

TEST_F(WindowTest, nothing_is_started_any_more_once_the_session_ends) {
    if (test::onWindows)
        GTEST_SKIP() << "the end of a session comes there as a message to the windows";
    std::unique_ptr<views::SessionEnd> end;
    run({
        [&] {
            end = std::make_unique<views::SessionEnd>(*toolkit);
            find<QPushButton>("cmdAdd")->click();
        },
        [] {
            EXPECT_TRUE(find<QWidget>("frmAdd")->isVisible());
            ::raise(SIGTERM);
        },
    });
    EXPECT_TRUE(started.empty()) << "the question whether to restart has Yes as its default";
}

void pressShortcut(const QString& keys) {
    for (auto* shortcut : find<QWidget>("frmMain")->findChildren<QShortcut*>())
        if (shortcut->key() == QKeySequence(keys))
            Q_EMIT shortcut->activated();
}

TEST_F(WindowTest, keys_reach_tabs_and_buttons) {
    run({
        [] {
            auto* tabs = find<QTabBar>("tspMain");
            key(tabs, Qt::Key_Right);
        },
        [] {
            EXPECT_EQ(find<QLabel>("lblList")->text(), "Available AIs:");
            pressShortcut("Ctrl+Shift+Tab");
            pressShortcut("Ctrl+PgUp");
        },
        [] {
            EXPECT_EQ(find<QLabel>("lblList")->text(), "Available Units:");
            pressShortcut("Ctrl+Tab");
            pressShortcut("Ctrl+PgDown");
        },
        [] {
            EXPECT_EQ(find<QLabel>("lblList")->text(), "Available AIs:");
            find<QPushButton>("cmdHelp")->setFocus();
            key(find<QPushButton>("cmdHelp"), Qt::Key_Return);
        },
        [this] {
            ASSERT_EQ(started.size(), 1U) << "Enter presses the button that has the focus";
            EXPECT_TRUE(
                QString::fromStdString(started[0])
                    .endsWith(QString::fromStdString(test::shown("/VXL-Help/AI.html") + '"')));
            find<QPlainTextEdit>("txtAbout")->setFocus();
            key(find<QPlainTextEdit>("txtAbout"), Qt::Key_Return);
            find<QPushButton>("cmdGo")->setFocus();
            key(find<QPushButton>("cmdGo"), Qt::Key_Return);
        },
    });
    ASSERT_EQ(started.size(), 2U) << "and no other in its place";
    EXPECT_EQ(started[1], game.folder() + test::shown("/totala.exe"));
}

TEST_F(WindowTest, the_focus_comes_back_behind_work) {
    run({
        [] {
            find<QLineEdit>("filter")->setFocus();
            find<QWidget>("frmMain")->findChild<QAction*>("mnuUfilelister")->trigger();
        },
        [] { find<QWidget>("frmFList")->close(); },
        [] {
            EXPECT_EQ(find<QWidget>("frmMain")->focusWidget(), find<QLineEdit>("filter"));
            find<QWidget>("frmMain")->close();
        },
    });
}

TEST_F(WindowTest, keys_look_at_releases_and_only_space_and_enter_tick) {
    for (const auto* map : {"Ashap", "Greenhaven", "Twin Lakes"})
        game.put(std::string("Vexillum/Map-") + map + "/info.txt", map);
    const auto about = [] { return find<QPlainTextEdit>("txtAbout")->toPlainText(); };
    auto* const& main = window;
    run({
        [] { chooseTab(4); },
        [] {
            auto* list = find<QListView>("lstList");
            list->setCurrentIndex(list->model()->index(0, 0));
            key(list, Qt::Key_End);
        },
        [&] {
            EXPECT_EQ(about(), "Twin Lakes\n");
            EXPECT_TRUE(find<QPushButton>("lblRename")->isEnabled());
            key(find<QListView>("lstList"), Qt::Key_G, "g");
        },
        [&] {
            EXPECT_EQ(about(), "Greenhaven\n");
            EXPECT_EQ(main->lstList.markedCount(), 0);
            key(find<QListView>("lstList"), Qt::Key_Return);
        },
        [&] {
            EXPECT_TRUE(main->lstList.marked(1));
            auto* list = find<QListView>("lstList");
            test::click(list->viewport(), list->visualRect(list->model()->index(0, 0)).center(),
                        Qt::RightButton);
        },
        [&] {
            EXPECT_EQ(about(), "Ashap\n");
            EXPECT_EQ(main->lstList.markedCount(), 1);
            EXPECT_TRUE(find<QLabel>("lblTally")->text().startsWith("1 file, 5 bytes"));
            find<QWidget>("frmMain")->close();
        },
    });
    EXPECT_TRUE(started.empty()) << "Enter in the list launches nothing";
}

TEST_F(WindowTest, many_are_ticked_at_once_and_cleared_ticks_come_back) {
    for (const auto* map : {"Ashap", "Great Divide", "Greenhaven"})
        game.makeFolder(std::string("Vexillum/Map-") + map);
    game.put("Vexillum/TC-Cavedog TA/ccodes.txt", "TA\r\n");
    game.put("Vexillum/Map-Ashap/ccodes.txt", "Other\r\n");
    auto* const& main = window;
    const auto choose = [](const QString& caption) {
        for (auto* action : find<QMenu>("listMenu")->actions())
            if (action->text().remove('&') == caption)
                return action->trigger();
        ADD_FAILURE() << caption.toStdString();
    };
    run({
        [] { chooseTab(4); },
        [&] {
            find<QLineEdit>("filter")->setText("GRE");
            choose("Tick All That The Filter Shows");
        },
        [&] {
            EXPECT_EQ(main->lstList.markedCount(), 2);
            find<QLineEdit>("filter")->clear();
            choose("Tick All");
        },
        [&] {
            auto* box = find<QMessageBox>("messageBox");
            ASSERT_NE(box, nullptr);
            EXPECT_TRUE(box->text().startsWith("1 of the 1 Maps are not listed as compatible"));
            EXPECT_EQ(box->icon(), QMessageBox::Question);
            key(box, Qt::Key_Escape);
        },
        [&] {
            EXPECT_EQ(main->lstList.markedCount(), 3) << "Escape has said No";
            choose("Tick None");
        },
        [&] {
            EXPECT_EQ(main->lstList.markedCount(), 0);
            EXPECT_EQ(find<QLabel>("lblUndo")->text(), "3 ticks were cleared.");
            pressShortcut("Ctrl+Z");
        },
        [&] {
            EXPECT_EQ(main->lstList.markedCount(), 3);
            find<QPushButton>("cmdRevert")->click();
        },
        [&] {
            EXPECT_EQ(main->lstList.markedCount(), 0);
            find<QWidget>("frmMain")->close();
        },
    });
}

TEST_F(WindowTest, the_list_is_sorted_and_searched_as_wished) {
    using Order = views::MarkListView::Order;
    const std::vector<std::pair<const char*, int>> maps = {
        {"Ashap", 2}, {"Greenhaven", 3}, {"Twin", 1}};
    for (const auto& [map, age] : maps) {
        game.put(std::string("Vexillum/Map-") + map + "/info.txt", std::string("About ") + map);
        std::filesystem::last_write_time(game.folder() + "/Vexillum/Map-" + map + "/info.txt",
                                         std::filesystem::file_time_type::clock::now() -
                                             std::chrono::hours(age));
    }
    game.put("Vexillum/Map-Misc/zeta.ufo", "");
    const auto rows = [] { return rowsOf(*find<QListView>("lstList")); };
    run({
        [] { chooseTab(4); },
        [] { clickRow(3); },
        [&] {
            auto* list = find<views::MarkListView>("lstList");
            EXPECT_EQ(rows(), QStringList({"Ashap", "Greenhaven", "zeta.ufo", "Twin"}));
            list->setOrder(Order::byName);
            EXPECT_EQ(rows(), QStringList({"Ashap", "Greenhaven", "Twin", "zeta.ufo"}));
            list->setOrder(Order::tickedFirst);
            EXPECT_EQ(rows(), QStringList({"Twin", "Ashap", "Greenhaven", "zeta.ufo"}));
            list->setOrder(Order::newestFirst);
            EXPECT_EQ(rows(), QStringList({"zeta.ufo", "Twin", "Ashap", "Greenhaven"}));
            list->setOrder(Order::asListed);
            list->setFilter("about gre");
            EXPECT_EQ(rows(), QStringList());
            EXPECT_EQ(list->placeholder(), "No release here has this in its name.");
            list->setSearchesAbout(true);
            awaited = [&rows] { return !rows().empty(); };
        },
        [&] {
            EXPECT_EQ(rows(), QStringList("Greenhaven"));
            EXPECT_EQ(find<views::MarkListView>("lstList")->placeholder(),
                      "No release here has this in its name or its about text.");
            find<QWidget>("frmMain")->close();
        },
    });
}

TEST_F(WindowTest, places_are_remembered_and_no_window_is_larger_than_the_screen) {
    game.makeFolder("Vexillum/Map-Ashap");
    const auto notes = game.folder() + "/Vexillum/VXL-Misc/Windows.ini";
    const auto start = [&](std::vector<std::function<void()>> steps) {
        remembers = notes;
        run(std::move(steps));
    };
    int divider = 0;
    const auto screen = QApplication::primaryScreen()->availableGeometry().size();
    start({[&] {
               auto* main = find<QWidget>("frmMain");
               EXPECT_LE(main->minimumSizeHint().width(), 640);
               main->setGeometry(30, 40, 700, 500);
               find<QSplitter>("sides")->setSizes({300, 376});
               chooseTab(4);
           },
           [&] {
               // How far it can go is for the fonts to say.
               divider = find<QSplitter>("sides")->sizes().front();
               find<QWidget>("frmMain")->close();
           }});
    start({[] {
        EXPECT_EQ(find<QWidget>("frmMain")->geometry(), QRect(30, 40, 700, 500));
        find<QWidget>("frmMain")->close();
    }});
    start({[&] {
               EXPECT_EQ(find<QWidget>("frmMain")->geometry(), QRect(30, 40, 700, 500))
                   << "it does not wander";
               EXPECT_EQ(find<QSplitter>("sides")->sizes().front(), divider);
           },
           [] {
               EXPECT_EQ(find<QTabBar>("tspMain")->currentIndex(), 4);
               find<QWidget>("frmMain")->setGeometry(5000, 5000, 4000, 3000);
           },
           [] { find<QWidget>("frmMain")->close(); }});
    start({[&] {
        const auto* main = find<QWidget>("frmMain");
        EXPECT_LE(main->width(), screen.width());
        EXPECT_LE(main->height(), screen.height());
        EXPECT_TRUE(QRect(QPoint(), screen).contains(main->pos()));
        find<QWidget>("frmMain")->close();
    }});
}

QString tipOf(QWidget* widget) {
    QHelpEvent event(QEvent::ToolTip, {5, 5}, widget->mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(widget, &event);
    return QToolTip::text();
}

TEST_F(WindowTest, a_long_name_is_cut_where_it_stands_and_told_whole_by_a_tip) {
    const std::string name(120, 'w');
    game.makeFolder("Vexillum/TC-" + name);
    run({
        [] { clickRow(1); },
        [&name] {
            auto* main = find<QWidget>("frmMain");
            const auto* go = find<QPushButton>("cmdGo");
            EXPECT_LE(main->minimumSizeHint().width(), 640) << "it sets the width of nothing";
            EXPECT_LE(go->width(), main->width() / 3);
            const auto whole = QString::fromStdString(name);
            EXPECT_EQ(tipOf(find<QPushButton>("cmdGo")).remove('\n'),
                      "Apply Settingsand Launch" + whole);
            EXPECT_EQ(tipOf(find<QLabel>("lblAbout")).remove('\n'), "About " + whole + ":");
            for (const auto* tip : QApplication::topLevelWidgets()) {
                EXPECT_TRUE(!tip->inherits("QTipLabel") ||
                            tip->width() <= main->screen()->size().width());
            }
            main->close();
        },
    });
}

TEST_F(WindowTest, text_keys_stay_with_the_text) {
    run({[] {
        auto* main = find<QWidget>("frmMain");
        QKeyEvent all(QEvent::ShortcutOverride, Qt::Key_A, Qt::ControlModifier);
        all.ignore();
        QApplication::sendEvent(find<QPlainTextEdit>("txtAbout"), &all);
        EXPECT_TRUE(all.isAccepted());
        pressShortcut("F10");
        EXPECT_NE(find<QWidget>("frmMain")->findChild<QMenuBar*>()->activeAction(), nullptr);
        auto* filter = find<QLineEdit>("filter");
        for (const bool hasText : {false, true}) {
            if (hasText)
                key(filter, 0, "a");
            QKeyEvent undo(QEvent::ShortcutOverride, Qt::Key_Z, Qt::ControlModifier);
            undo.ignore();
            QApplication::sendEvent(filter, &undo);
            EXPECT_EQ(undo.isAccepted(), hasText) << "else it is for the ticks";
        }
        main->close();
    }});
}

TEST_F(WindowTest, progress_shows_before_anything_else_does) {
    views::QtToolkit qt;
    const auto disk = platform::makeDisk();
    headless::RecordedPrograms programs(*disk, [](const auto& /*event*/) {});
    windows::frmMain main({*disk, qt, programs, game.folder(), "", ""});
    main.setResting(true);
    qt.show(main);
    main.barWork.setDone(1, 3);
    main.barWork.setVisible(true);
    qt.show(main);
    const auto* view = find<QWidget>("frmMain");
    const auto* bar = find<QWidget>("barWork");
    EXPECT_FALSE(find<QWidget>("lstList")->isVisible());
    EXPECT_TRUE(bar->isVisible());
    EXPECT_TRUE(view->rect().contains(QRect(bar->mapTo(view, QPoint()), bar->size())));
}

TEST_F(WindowTest, every_control_has_its_widget_by_its_name) {
    run({[this] {
        for (const auto* control : window->controls()) {
            const auto name = QString::fromStdString(control->name());
            auto* main = find<QWidget>("frmMain");
            EXPECT_TRUE(main->findChild<QObject*>(name) != nullptr) << control->name();
        }
        find<QWidget>("frmMain")->close();
    }});
}

} // namespace
