// The wizards through their widgets: typing, leaving a box, dropping files, picking rows.
#include <QAction>
#include <QComboBox>
#include <QFileDialog>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>

#include "support/system.h"
#include "views/support/window_test.h"

namespace {

using test::find;
using test::key;
using test::WindowTest;

void typeInto(const char* name, const QString& text) {
    auto* edit = find<QLineEdit>(name);
    edit->setFocus();
    for (const auto letter : text)
        key(edit, 0, letter);
}

TEST_F(WindowTest, a_release_is_added_by_typing_leaving_and_dropping) {
    // Its text is in an encoding that is no UTF-8, and must stay so unless the user changes it.
    game.put("Vexillum/Map-Old/info.txt", "Sch\xF6n");
    game.put("drüben/maps/a.ota", "a");
    run({
        [] { chooseTab(4); },
        [] { find<QPushButton>("cmdAdd")->click(); },
        [] {
            auto* wizard = find<QWidget>("frmAdd");
            ASSERT_NE(wizard, nullptr);
            EXPECT_EQ(wizard->windowTitle(), "Add A Map");
            EXPECT_EQ(find<QComboBox>("cbo1Type")->currentText(), "Map");
            EXPECT_FALSE(find<QGroupBox>("fraS2")->isVisible());
            for (const auto& [label, field] :
                 {std::pair("lbl1Type", "cbo1Type"), std::pair("lbl1Name", "txt1Name")})
                EXPECT_NEAR(find<QLabel>(label)->geometry().center().y(),
                            find<QWidget>(field)->geometry().center().y(), 1);
            typeInto("txt1Name", "Old");
            EXPECT_EQ(find<QPlainTextEdit>("txt1About")->toPlainText(), "");
            find<QPlainTextEdit>("txt1About")->setFocus();
        },
        [] {
            EXPECT_EQ(find<QPlainTextEdit>("txt1About")->toPlainText(), "Schön\n");
            key(find<QLineEdit>("txt1Name"), Qt::Key_Return);
        },
        [this] {
            EXPECT_TRUE(find<QGroupBox>("fraS2")->isVisible());
            EXPECT_FALSE(find<QGroupBox>("fraS1")->isVisible()) << "what is done is a line";
            EXPECT_EQ(find<QLabel>("lbl1Done")->text(), "Step 1: Map \"Old\", with an about text");
            EXPECT_TRUE(find<QPushButton>("cmd2Files")->hasFocus());
            EXPECT_EQ(find<QLineEdit>("txt2Where")->text().toStdString(),
                      game.folder() + test::shown("/Vexillum/Map-Old"));
            awaited = [] { return find<QLabel>("lbl2Files")->text().endsWith("copied."); };
            test::drop(
                *find<QWidget>("frmAdd"),
                {QUrl::fromLocalFile(QString::fromStdString(game.folder() + "/drüben/maps"))});
        },
        [] {
            EXPECT_EQ(find<QLabel>("lbl2Files")->text(), "1 file copied.");
            ASSERT_EQ(find<QListWidget>("lst2Files")->count(), 1);
            EXPECT_EQ(find<QListWidget>("lst2Files")->item(0)->text().toStdString(),
                      test::shown("maps/a.ota"));
            key(find<QWidget>("frmAdd"), Qt::Key_Escape);
        },
        [] {
            auto* box = find<QMessageBox>("messageBox");
            ASSERT_NE(box, nullptr) << "something was made";
            key(box, Qt::Key_Escape);
        },
        [] {
            EXPECT_TRUE(find<QWidget>("frmAdd")->isVisible()) << "Escape has said No";
            find<QPushButton>("cmdCancel")->click();
        },
        [] { find<QMessageBox>("messageBox")->buttons().front()->click(); },
        [] {
            auto* box = find<QMessageBox>("messageBox");
            ASSERT_NE(box, nullptr);
            box->buttons().front()->click();
        },
    });
    EXPECT_EQ(game.content("Vexillum/Map-Old/info.txt"), "Sch\xF6n\r\n\r\n");
    EXPECT_EQ(game.content("Vexillum/Map-Old/maps/a.ota"), "a");
}

TEST_F(WindowTest, a_tam_release_is_imported) {
    game.put("pack/small.pac", "Small\r\nText\r\nunit\r\n");
    run({
        [] { find<QWidget>("frmMain")->findChild<QAction*>("mnuUconverter")->trigger(); },
        [] { find<QMessageBox>("messageBox")->buttons().front()->click(); },
        [] {
            for (const auto& [name, label] : {std::pair("cbo1TAMtype", "lbl1TAMtype"),
                                              std::pair("cbo1VXLtype", "lbl1VXLtype")}) {
                auto* combo = find<QComboBox>(name);
                EXPECT_EQ(combo->currentText(), "");
                EXPECT_EQ(find<QLabel>(label)->buddy(), combo) << "which is told for the box";
                combo->setCurrentIndex(5);
                Q_EMIT combo->activated(5);
            }
            find<QWidget>("frmTAM")->findChild<QPushButton*>("cmd1Next")->click();
        },
        [] {
            EXPECT_EQ(find<QLineEdit>("txt2Loc")->placeholderText(), "TAM Unit Pack (*.pac)");
            EXPECT_EQ(find<QLineEdit>("txt2Loc")->text(), "");
            find<QPushButton>("cmd2Browse")->click();
        },
        [this] {
            auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            EXPECT_EQ(dialog->windowTitle(), "Select TAM Unit Pack Data File:");
            EXPECT_EQ(dialog->nameFilters(), QStringList("TAM Unit Pack (*.pac)"));
            dialog->findChild<QLineEdit*>("fileNameEdit")
                ->setText(QString::fromStdString(game.folder() + "/pack/small.pac"));
            static_cast<QDialog*>(dialog)->accept();
        },
        [] { find<QWidget>("frmTAM")->findChild<QPushButton*>("cmd2Next")->click(); },
        [] {
            auto* list = find<QListWidget>("lst3files");
            ASSERT_EQ(list->count(), 2);
            EXPECT_EQ(list->item(1)->text(), "\\Vexillum\\Unit-Small\\unit.ufo   (not found)");
            find<QWidget>("frmTAM")->findChild<QPushButton*>("cmd3next")->click();
        },
        [] { find<QWidget>("frmMain")->close(); },
    });
    EXPECT_EQ(game.content("Vexillum/Unit-Small/info.txt"), "Text\r\n");
}

} // namespace
