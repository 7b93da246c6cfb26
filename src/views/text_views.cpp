// A heading or a word of explanation, a text, and buttons along the foot.
#include "text_views.h"

#include <QFontDatabase>
#include <QHBoxLayout>
#include <QVBoxLayout>

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

std::unique_ptr<WindowView> makeShowReadmeView(windows::frmShowReadme& window, QtToolkit& toolkit) {
    return std::make_unique<ShowReadmeView>(window, toolkit);
}

std::unique_ptr<WindowView> makeFileListView(windows::frmFList& window, QtToolkit& toolkit) {
    return std::make_unique<FileListView>(window, toolkit);
}

} // namespace views
