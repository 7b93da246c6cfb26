// The text window on the screen, and which view belongs to which window.
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include "main_view.h"
#include "windows/frmFList.h"
#include "windows/frmShowReadme.h"
#include "wizard_views.h"
#include "working_view.h"

namespace views {
namespace {

class ShowReadmeView final : public WindowView {
  public:
    ShowReadmeView(windows::frmShowReadme& window, QtToolkit& toolkit)
        : WindowView(window, toolkit) {
        auto* column = new QVBoxLayout(this);
        column->setContentsMargins(8, 8, 8, 8);
        column->setSpacing(8);
        column->addWidget(label(window.lblWhat, true));
        auto* text = textEdit(window.txtReadme);
        text->setAccessibleName("Text");
        column->addWidget(text, 1);
        auto* done = button(window.cmdDone);
        done->setDefault(true);
        column->addWidget(done, 0, Qt::AlignRight);
        setMinimumSize(320, 200);
        resize(680, 440);
    }
};

class FileListView final : public WindowView {
  public:
    FileListView(windows::frmFList& window, QtToolkit& toolkit) : WindowView(window, toolkit) {
        auto* column = new QVBoxLayout(this);
        auto* info = label(window.lblInfo);
        info->setWordWrap(true);
        info->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Minimum);
        column->addWidget(info);
        auto* text = textEdit(window.txtFList);
        text->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
        text->setLineWrapMode(QPlainTextEdit::NoWrap);
        text->setAccessibleName("Files");
        column->addWidget(text, 1);
        auto* buttons = new QHBoxLayout();
        buttons->addStretch();
        buttons->addWidget(button(window.cmdClipboard));
        buttons->addWidget(button(window.cmdDone));
        column->addLayout(buttons);
        resize(720, 520);
    }
};

} // namespace

std::unique_ptr<WindowView> makeView(windows::Window& window, QtToolkit& toolkit) {
    if (auto* main = dynamic_cast<windows::frmMain*>(&window))
        return std::make_unique<MainView>(*main, toolkit);
    if (auto* readme = dynamic_cast<windows::frmShowReadme*>(&window))
        return std::make_unique<ShowReadmeView>(*readme, toolkit);
    if (auto* list = dynamic_cast<windows::frmFList*>(&window))
        return std::make_unique<FileListView>(*list, toolkit);
    if (auto* add = dynamic_cast<windows::frmAdd*>(&window))
        return makeAddView(*add, toolkit);
    if (auto* tam = dynamic_cast<windows::frmTAM*>(&window))
        return makeTamView(*tam, toolkit);
    return makeWorkingView(dynamic_cast<windows::frmWorking&>(window), toolkit);
}

} // namespace views
