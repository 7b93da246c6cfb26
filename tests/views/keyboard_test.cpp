// What keys lead to: in the list and its filter, in the menus, in the wizards, and where the focus
// is behind them.
#include <thread>

#include <QAbstractButton>
#include <QAction>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QShortcut>

#include "mark_list_view.h"
#include "support/core.h"
#include "views/support/window_test.h"
#include "windows/frmShowReadme.h"

namespace {

using test::find;
using test::key;
using test::WindowTest;

constexpr int maps = 4;
constexpr int units = 5;

views::MarkListView* list() {
    return find<views::MarkListView>("lstList");
}

QString currentText() {
    return list()->currentIndex().data().toString();
}

bool isInView(const QModelIndex& row) {
    return list()->viewport()->rect().contains(list()->visualRect(row));
}

void pressShortcut(const QString& keys) {
    for (auto* shortcut : find<QWidget>("frmMain")->findChildren<QShortcut*>())
        if (shortcut->key() == QKeySequence(keys))
            Q_EMIT shortcut->activated();
}

void answerBox() {
    auto* box = find<QMessageBox>("messageBox");
    ASSERT_NE(box, nullptr);
    box->buttons().front()->click();
}

TEST_F(WindowTest, keys_show_the_first_row_and_a_single_match) {
    for (const auto* map : {"Ashap", "Greenhaven", "Twin Lakes"})
        game.makeFolder(std::string("Vexillum/Map-") + map);
    const struct {
        const char* from;
        int key;
        const char* filter;
        const char* shown;
    } rows[] = {
        {"lstList", Qt::Key_Down, "", "Ashap"},
        {"lstList", Qt::Key_Home, "", "Ashap"},
        {"lstList", Qt::Key_Return, "", "Ashap"},
        {"lstList", Qt::Key_Space, "", "Ashap"},
        {"lstList", Qt::Key_End, "", "Twin Lakes"},
        {"lstList", Qt::Key_Down, "gre", "Greenhaven"},
        {"filter", Qt::Key_Down, "gre", "Greenhaven"},
        {"filter", Qt::Key_Return, "", "Ashap"},
    };
    std::vector<std::function<void()>> steps;
    for (const auto& row : rows) {
        steps.emplace_back([] { chooseTab(units); });
        steps.emplace_back([] {
            chooseTab(maps);
            find<QWidget>("frmMain")->activateWindow();
        });
        steps.emplace_back([row] {
            find<QLineEdit>("filter")->setText(row.filter);
            find<QTabBar>("tspMain")->setFocus();
            find<QWidget>(row.from)->setFocus(Qt::TabFocusReason);
            EXPECT_FALSE(list()->currentIndex().isValid()) << "to come there picks nothing";
            key(find<QWidget>(row.from), row.key);
        });
        steps.emplace_back([row, this] {
            EXPECT_EQ(find<QLabel>("lblAbout")->text(), "About " + QString(row.shown) + ":")
                << row.from << row.key << row.filter;
            EXPECT_EQ(currentText(), row.shown);
            EXPECT_TRUE(list()->hasFocus());
            EXPECT_EQ(window->lstList.markedCount(), 0) << row.key;
        });
    }
    steps.emplace_back([] { find<QWidget>("frmMain")->close(); });
    run(steps);
}

TEST_F(WindowTest, a_blank_in_a_name_that_is_typed_ticks_nothing) {
    constexpr int longer = 5000;
    const int usual = QApplication::keyboardInputInterval();
    for (const auto* map : {"Ashap", "Great Divide", "Great Lakes", "Greenhaven"})
        game.makeFolder(std::string("Vexillum/Map-") + map);
    run({
        [] { chooseTab(maps); },
        [&] {
            QApplication::setKeyboardInputInterval(longer);
            for (const QChar letter : QString("great l"))
                key(list(), letter == ' ' ? Qt::Key_Space : 0, letter);
        },
        [&] {
            EXPECT_EQ(currentText(), "Great Lakes");
            EXPECT_EQ(window->lstList.markedCount(), 0);
            QApplication::setKeyboardInputInterval(1);
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
            key(list(), Qt::Key_Space, " ");
            QApplication::setKeyboardInputInterval(usual);
        },
        [this] {
            EXPECT_TRUE(window->lstList.marked(2)) << "behind the search it ticks again";
            find<QWidget>("frmMain")->close();
        },
    });
}

TEST_F(WindowTest, what_the_filter_finds_is_in_view) {
    constexpr int many = 200;
    for (int i = 0; i < many; ++i)
        game.makeFolder("Vexillum/Map-" + std::to_string(1000 + i));
    run({
        [] { chooseTab(maps); },
        [] { list()->moveTo(many - 1); },
        [] {
            auto* filter = find<QLineEdit>("filter");
            filter->setText("10");
            EXPECT_TRUE(isInView(list()->model()->index(0, 0)));
            filter->setText("11");
            EXPECT_EQ(currentText(), "1199");
            EXPECT_TRUE(isInView(list()->currentIndex()));
            list()->scrollToTop();
            filter->clear();
            EXPECT_EQ(currentText(), "1199");
            EXPECT_TRUE(isInView(list()->currentIndex()));
            find<QWidget>("frmMain")->close();
        },
    });
}

TEST_F(WindowTest, the_focus_is_back_behind_the_menus) {
    run({[] { find<QWidget>("frmMain")->activateWindow(); },
         [] {
             auto* filter = find<QLineEdit>("filter");
             filter->setFocus();
             pressShortcut("F10");
             ASSERT_NE(QApplication::activePopupWidget(), nullptr);
             key(QApplication::activePopupWidget(), Qt::Key_Escape);
             key(find<QWidget>("frmMain")->findChild<QMenuBar*>(), Qt::Key_Escape);
             EXPECT_TRUE(filter->hasFocus());
             find<QWidget>("frmMain")->close();
         }});
}

TEST_F(WindowTest, the_list_menu_opens_at_the_row_by_either_key) {
    for (const auto* map : {"Ashap", "Greenhaven"})
        game.makeFolder(std::string("Vexillum/Map-") + map);
    const auto expectAtRow = [](const char* what) {
        auto* menu = find<QMenu>("listMenu");
        EXPECT_TRUE(menu->isVisible()) << what;
        const auto at = list()->viewport()->mapFromGlobal(menu->pos());
        const auto row = list()->visualRect(list()->currentIndex());
        EXPECT_TRUE(row.adjusted(0, 0, 0, 2).contains(at)) << what << at.x() << "," << at.y();
        menu->close();
    };
    run({
        [] { chooseTab(maps); },
        [] { list()->moveTo(1); },
        [&] {
            const auto middle = list()->rect().center();
            QContextMenuEvent menuKey(QContextMenuEvent::Keyboard, middle,
                                      list()->mapToGlobal(middle));
            QApplication::sendEvent(list(), &menuKey);
            expectAtRow("the menu key");
            QKeyEvent other(QEvent::KeyPress, Qt::Key_F10, Qt::ShiftModifier);
            QApplication::sendEvent(list(), &other);
            expectAtRow("Shift+F10");
            find<QWidget>("frmMain")->close();
        },
    });
}

TEST_F(WindowTest, a_wizard_leads_to_the_field_that_is_wrong) {
    const auto go = [](const char* wizard) { key(find<QWidget>(wizard), Qt::Key_Return); };
    const auto expectFocus = [](const char* wizard, const char* field) {
        const auto* focus = find<QWidget>(wizard)->focusWidget();
        EXPECT_EQ(focus == nullptr ? "" : focus->objectName().toStdString(), field);
    };
    const auto pick = [](const char* name) { Q_EMIT find<QComboBox>(name)->activated(0); };
    run({
        [] { find<QWidget>("frmMain")->findChild<QAction*>("mnuUconverter")->trigger(); },
        answerBox,
        [&] { go("frmTAM"); },
        answerBox,
        [&] {
            expectFocus("frmTAM", "cbo1TAMtype");
            pick("cbo1TAMtype");
        },
        [&] { go("frmTAM"); },
        answerBox,
        [&] {
            expectFocus("frmTAM", "cbo1VXLtype");
            pick("cbo1VXLtype");
        },
        [&] { go("frmTAM"); },
        [&] {
            expectFocus("frmTAM", "txt2Loc");
            go("frmTAM");
        },
        answerBox,
        [&] {
            expectFocus("frmTAM", "txt2Loc");
            find<QWidget>("frmTAM")->close();
        },
        [] { find<QPushButton>("cmdAdd")->click(); },
        [&] { go("frmAdd"); },
        answerBox,
        [&] {
            expectFocus("frmAdd", "txt1Name");
            find<QLineEdit>("txt1Name")->setText("a?");
            find<QWidget>("frmAdd")->findChild<QPushButton*>("cmd1Next")->setFocus();
            go("frmAdd");
        },
        answerBox,
        [&] {
            expectFocus("frmAdd", "txt1Name");
            find<QWidget>("frmAdd")->close();
        },
        answerBox,
    });
}

TEST_F(WindowTest, questions_about_files_stand_over_the_wizard_that_copies_them) {
    game.put("outside/a.ufo", "new");
    game.put("Vexillum/Unit-Crane/a.ufo", "old");
    run({
        [] { find<QPushButton>("cmdAdd")->click(); },
        [] {
            find<QComboBox>("cbo1Type")->setCurrentText("Unit");
            Q_EMIT find<QComboBox>("cbo1Type")
                ->activated(find<QComboBox>("cbo1Type")->currentIndex());
            find<QLineEdit>("txt1Name")->setText("Crane");
        },
        [] { key(find<QWidget>("frmAdd"), Qt::Key_Return); },
        [this] {
            QApplication::setActiveWindow(find<QWidget>("frmMain"));
            test::drop(
                *find<QWidget>("frmAdd"),
                {QUrl::fromLocalFile(QString::fromStdString(game.folder() + "/outside/a.ufo"))});
        },
        [] {
            auto* box = find<QMessageBox>("messageBox");
            ASSERT_NE(box, nullptr);
            EXPECT_EQ(box->parentWidget(), find<QWidget>("frmAdd"));
            EXPECT_EQ(box->buttons().front()->text(), "&Yes") << "in the order of all boxes";
            EXPECT_EQ(box->defaultButton()->text(), "&No");
            key(box, Qt::Key_Escape);
        },
        [] { find<QWidget>("frmAdd")->close(); },
        answerBox,
    });
    EXPECT_EQ(game.content("Vexillum/Unit-Crane/a.ufo"), "old");
}

/// A line for each command that can be given now and has no letter, or one that another has too.
QStringList wrongLetters(const QList<QPair<QString, QString>>& commands) {
    QStringList wrong;
    QMap<QChar, QString> owners;
    for (const auto& [text, where] : commands) {
        const auto plain = QString(text).replace("&&", "");
        const auto at = plain.indexOf('&');
        if (at < 0) {
            wrong << where + ": " + text + " has none";
            continue;
        }
        const auto letter = plain[at + 1].toUpper();
        if (owners.contains(letter))
            wrong << where + ": " + text + " has that of " + owners[letter];
        owners[letter] = text;
    }
    return wrong;
}

void expectLetters(const QWidget* window) {
    const auto name = window->objectName();
    QList<QPair<QString, QString>> commands;
    for (const auto* bar : window->findChildren<QMenuBar*>())
        for (const auto* menu : bar->actions())
            commands << qMakePair(menu->text(), name);
    for (const auto* button : window->findChildren<QAbstractButton*>())
        if (button->isVisible() && !button->text().isEmpty() && !button->property("link").toBool())
            commands << qMakePair(button->text(), name);
    EXPECT_EQ(wrongLetters(commands), QStringList());
    for (const auto* menu : window->findChildren<QMenu*>()) {
        QList<QPair<QString, QString>> items;
        for (const auto* action : menu->actions())
            // What says only what is so, and can never be chosen, has no letter.
            if (!action->isSeparator() && (action->isEnabled() || action->text().contains('&')))
                items << qMakePair(action->text(), name + "/" + menu->objectName());
        EXPECT_EQ(wrongLetters(items), QStringList());
    }
}

TEST_F(WindowTest, every_command_has_a_letter_of_its_own) {
    const auto expectIn = [](const char* name) {
        return [name] { expectLetters(find<QWidget>(name)); };
    };
    const auto close = [](const char* name) { return [name] { find<QWidget>(name)->close(); }; };
    const auto go = [](const char* name) {
        return [name] { key(find<QWidget>(name), Qt::Key_Return); };
    };
    const auto choose = [](const char* item) {
        return [item] { find<QWidget>("frmMain")->findChild<QAction*>(item)->trigger(); };
    };
    run({
        expectIn("frmMain"),
        choose("mnuFPreview"),
        expectIn("frmPreview"),
        [] { find<QPushButton>("cmdAnswers")->click(); },
        expectIn("frmAnswers"),
        close("frmAnswers"),
        close("frmPreview"),
        choose("mnuSSwitch"),
        expectIn("frmSets"),
        close("frmSets"),
        choose("mnuUfilelister"),
        expectIn("frmFList"),
        close("frmFList"),
        choose("mnuHAboutVXL"),
        expectIn("frmShowReadme"),
        close("frmShowReadme"),
        choose("mnuUconverter"),
        expectIn("messageBox"),
        answerBox,
        expectIn("frmTAM"),
        [] {
            for (const auto* name : {"cbo1TAMtype", "cbo1VXLtype"})
                Q_EMIT find<QComboBox>(name)->activated(3);
        },
        go("frmTAM"),
        expectIn("frmTAM"),
        close("frmTAM"),
        [] { find<QPushButton>("cmdAdd")->click(); },
        [] {
            expectLetters(find<QWidget>("frmAdd"));
            find<QLineEdit>("txt1Name")->setText("New");
        },
        go("frmAdd"),
        expectIn("frmAdd"),
        [] { find<QWidget>("frmAdd")->findChild<QPushButton*>("cmd2Next")->click(); },
        expectIn("frmAdd"),
        close("frmAdd"),
        answerBox,
    });
}

TEST(Letters, of_a_report_and_of_a_question_in_a_row_are_each_of_one_command) {
    views::QtToolkit toolkit;
    windows::frmShowReadme report(toolkit);
    test::ScriptedAnswers none;
    QTimer::singleShot(50, [] {
        expectLetters(find<QWidget>("frmShowReadme"));
        find<QWidget>("frmShowReadme")->close();
    });
    report.showReport("Weapon IDs", "", {"1 a b", "1 conflict: ID 1", "1 a b"}, none);
    QTimer::singleShot(0, [] {
        auto* box = find<QMessageBox>("messageBox");
        expectLetters(box);
        key(box, Qt::Key_Escape);
    });
    toolkit.showMessage({"Go on?", "", {"Yes", "No"}, true, 0, "", false, true});
}

} // namespace
