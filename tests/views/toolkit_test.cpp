// When what is done to the widgets reaches the logic: never in the middle of a procedure, never by
// a row that has become another, never by a window that is gone.
#include <chrono>
#include <thread>

#include <QAction>
#include <QCheckBox>
#include <QClipboard>
#include <QDir>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTimer>

#include "support/core.h"
#include "support/system.h"
#include "views/support/window_test.h"
#include "windows/frmShowReadme.h"
#include "windows/frmWorking.h"

namespace {

using test::find;
using test::WindowTest;

/// Longer than doEvents lets pass between two looks at the windows.
constexpr auto aWhile = std::chrono::milliseconds(30);

/// Lets Qt run by itself, as it does below a message box.
void letQtRun() {
    const auto end = std::chrono::steady_clock::now() + aWhile;
    while (std::chrono::steady_clock::now() < end)
        QApplication::processEvents();
}

class Ticks : public testing::Test {
  protected:
    Ticks() {
        panel->tmrMove.onTick = [this] { ++ticks; };
        toolkit.load(*panel);
        toolkit.show(*panel);
        letQtRun();
    }

    views::QtToolkit toolkit;
    std::unique_ptr<windows::frmWorking> panel = std::make_unique<windows::frmWorking>(toolkit);
    int ticks = 0;
};

TEST_F(Ticks, do_not_pile_up_while_a_box_stands_over_the_panel) {
    std::this_thread::sleep_for(aWhile);
    toolkit.doEvents();
    EXPECT_EQ(ticks, 1);
}

TEST_F(Ticks, are_dropped_with_the_panel) {
    panel.reset();
    std::this_thread::sleep_for(aWhile);
    toolkit.doEvents();
    EXPECT_EQ(ticks, 0);
}

TEST(Log, shows_every_line_when_the_work_pauses_however_fast_they_came) {
    views::QtToolkit toolkit;
    windows::frmShowReadme log(toolkit);
    log.Form_Load();
    log.setLogText("first");
    toolkit.show(log);
    std::string all = "first";
    const auto* shown = find<QPlainTextEdit>("txtReadme");
    for (const int burst : {3000, 3000, 1}) {
        for (int i = 0; i < burst; ++i) {
            const auto line = "line " + std::to_string(i);
            log.appendLogLine(line);
            all += "\n" + line;
        }
        std::this_thread::sleep_for(aWhile);
        toolkit.doEvents();
        EXPECT_TRUE(
            shown->toPlainText().endsWith(QString::fromStdString(all.substr(all.size() - 200))));
    }
    EXPECT_LT(shown->toPlainText().size(), static_cast<qsizetype>(all.size()))
        << "nobody can read that fast";
    QTimer::singleShot(0, [] {});
    toolkit.waitForTimer();
    EXPECT_EQ(shown->toPlainText().toStdString(), all);
}

TEST(Wishes, are_noted_while_the_program_works_also_where_the_window_rests) {
    views::QtToolkit toolkit;
    windows::frmShowReadme log(toolkit);
    windows::Wish stop;
    windows::Wish leave;
    log.cmdDone.wish = &stop;
    log.closeWish = &leave;
    toolkit.load(log);
    log.setResting(true);
    toolkit.show(log);
    EXPECT_FALSE(find<QWidget>("txtReadme")->isEnabled());
    auto* done = find<QPushButton>("cmdDone");
    test::click(done, done->rect().center());
    EXPECT_TRUE(stop.noted);
    EXPECT_FALSE(leave.noted);
    find<QWidget>("frmShowReadme")->close();
    EXPECT_TRUE(leave.noted);
    EXPECT_TRUE(log.visible());
    EXPECT_TRUE(find<QWidget>("frmShowReadme")->isVisible());
}

TEST_F(WindowTest, a_second_tab_waits_until_the_first_is_filled) {
    std::string order;
    run({
        [&] {
            window->tspMain.onClick = [&] {
                order += "(" + window->tspMain.caption();
                if (window->tspMain.caption() == "Maps")
                    QTimer::singleShot(0, [] { chooseTab(5); });
                std::this_thread::sleep_for(aWhile);
                toolkit->doEvents();
                order += ")";
            };
            chooseTab(4);
        },
        [] { find<QWidget>("frmMain")->close(); },
    });
    EXPECT_EQ(order, "(Maps)(Units)");
}

TEST_F(WindowTest, a_click_on_a_row_of_the_last_tab_marks_nothing_on_the_next) {
    game.makeFolder("Vexillum/Map-New");
    game.makeFolder("Vexillum/TC-New");
    run({
        [] {
            chooseTab(4);
            clickRow(1);
        },
        [this] {
            EXPECT_EQ(window->lstList.itemText(0), "New");
            EXPECT_EQ(window->lstList.markedCount(), 0);
            window->lstList.clear();
            window->lstList.add("Newer");
            // The widget has not followed yet.
            clickRow(0);
        },
        [this] {
            EXPECT_EQ(window->lstList.index(), -1);
            find<QWidget>("frmMain")->close();
        },
    });
}

TEST_F(WindowTest, a_tab_that_came_to_nothing_is_not_shown_as_chosen) {
    run({
        [this] {
            // A click in the middle of a procedure that ends in a modal window is dropped there.
            window->cmdHelp.onClick = [this] {
                auto* tabs = find<QTabBar>("tspMain");
                test::click(tabs, tabs->tabRect(3).center());
                EXPECT_EQ(tabs->currentIndex(), 3);
                windows::frmShowReadme text(*toolkit);
                toolkit->showModal(text);
            };
            find<QPushButton>("cmdHelp")->click();
        },
        [] {
            EXPECT_EQ(find<QTabBar>("tspMain")->currentIndex(), 0);
            QApplication::activeModalWidget()->findChild<QPushButton*>("cmdDone")->click();
        },
        [this] {
            EXPECT_EQ(window->tspMain.index(), 0);
            find<QWidget>("frmMain")->close();
        },
    });
}

TEST_F(WindowTest, a_resting_window_greys_menus_and_filter_too) {
    run({
        [this] { window->setResting(true); },
        [this] {
            EXPECT_FALSE(find<QWidget>("frmMain")->findChild<QAction*>("mnuFLaunch")->isEnabled());
            EXPECT_FALSE(find<QWidget>("filter")->isEnabled());
            EXPECT_FALSE(find<QListView>("lstList")->isEnabled());
            window->setResting(false);
        },
        [] {
            EXPECT_TRUE(find<QWidget>("frmMain")->findChild<QAction*>("mnuFLaunch")->isEnabled());
            EXPECT_FALSE(find<QWidget>("frmMain")->findChild<QAction*>("mnuMMsmall")->isEnabled());
            EXPECT_TRUE(find<QWidget>("filter")->isEnabled());
            find<QWidget>("frmMain")->close();
        },
    });
}

TEST(Reports, are_saved_as_they_are_shown_and_dialogs_begin_where_the_last_one_ended) {
    const test::Game disk;
    disk.makeFolder("reports");
    views::QtToolkit toolkit;
    windows::frmShowReadme window(toolkit);
    test::ScriptedAnswers answers;
    QString folder;
    const auto saveAs = [&](const std::string& name) {
        QTimer::singleShot(0, [&, name] {
            auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            EXPECT_EQ(dialog->windowTitle(), "Save Weapon IDs");
            folder = dialog->directory().path();
            dialog->findChild<QLineEdit*>("fileNameEdit")
                ->setText(QString::fromStdString(disk.folder() + name));
            static_cast<QDialog*>(dialog)->accept();
        });
        find<QPushButton>("cmdSave")->click();
    };
    std::vector<std::function<void()>> steps = {
        [&] {
            EXPECT_EQ(find<QLabel>("lblConflicts")->text(), "1 conflict: ID 3");
            saveAs("/reports/all.txt");
        },
        [] { find<QCheckBox>("chkConflicts")->click(); },
        [&] {
            EXPECT_EQ(find<QPlainTextEdit>("txtReadme")->toPlainText(), "3 a b");
            saveAs("/reports/some.txt");
        },
        [&] { saveAs("/reports/bare"); },
        [&] { saveAs("/none/all.txt"); },
        [] { find<QPushButton>("cmdCopy")->click(); },
        [] { find<QWidget>("frmShowReadme")->close(); },
    };
    std::size_t next = 0;
    QTimer clock;
    QObject::connect(&clock, &QTimer::timeout, [&] {
        if (qobject_cast<QFileDialog*>(QApplication::activeModalWidget()) == nullptr &&
            next < steps.size())
            steps[next++]();
    });
    clock.start(40);
    window.showReport("Weapon IDs", "Heading", {"1 -\r\n3 a b", "1 conflict: ID 3", "3 a b"},
                      answers);
    EXPECT_EQ(disk.content("reports/all.txt"), "1 conflict: ID 3\r\n\r\n1 -\r\n3 a b");
    EXPECT_EQ(disk.content("reports/some.txt"), "1 conflict: ID 3\r\n\r\n3 a b");
    EXPECT_EQ(disk.content("reports/bare.txt"), "1 conflict: ID 3\r\n\r\n3 a b");
    EXPECT_EQ(QDir::toNativeSeparators(folder).toStdString(),
              disk.folder() + test::shown("/reports"));
    EXPECT_EQ(QApplication::clipboard()->text(), "3 a b");
    ASSERT_EQ(answers.asked.size(), 1U);
    EXPECT_TRUE(answers.asked[0].starts_with("The report could not be saved.")) << answers.asked[0];
}

TEST(MessageBoxes, show_the_reason_below_and_begin_at_their_default_button) {
    views::QtToolkit toolkit;
    QTimer::singleShot(0, [] {
        auto* box = find<QMessageBox>("messageBox");
        ASSERT_NE(box, nullptr);
        EXPECT_EQ(box->text(), "Go on?");
        EXPECT_EQ(box->informativeText(), "The disk is full.");
        test::key(box, Qt::Key_Return);
    });
    EXPECT_EQ(
        toolkit.showMessage({"Go on?", "", {"Yes", "No"}, false, 1, "The disk is full."}).button,
        1U);
}

} // namespace
