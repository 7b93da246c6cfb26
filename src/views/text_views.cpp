// A heading or a word of explanation, a text, and buttons along the foot.
#include "text_views.h"

#include <QFontDatabase>
#include <QHBoxLayout>
#include <QProgressBar>
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
        auto* conflicts = tight();
        conflicts->addWidget(label(window.lblConflicts, true), 1);
        conflicts->addWidget(checkBox(window.chkConflicts, 'O'));
        column->addLayout(conflicts);
        auto* text = textEdit(window.txtReadme);
        text->setAccessibleName("Text");
        column->addWidget(text, 1);
        auto* foot = tight();
        foot->addWidget(progressBar(window.barDone), 1);
        foot->addStretch();
        foot->addWidget(button(window.cmdCopy, 'Y'));
        foot->addWidget(button(window.cmdSave, 'S'));
        auto* done = button(window.cmdDone, 'C');
        done->setDefault(true);
        foot->addWidget(done);
        column->addLayout(foot);
        setMinimumSize(320, 200);
        resize(680, 440);
    }

  private:
    static QHBoxLayout* tight() {
        auto* row = new QHBoxLayout();
        row->setContentsMargins(0, 0, 0, 0);
        return row;
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
        buttons->addWidget(button(window.cmdClipboard, 'C'));
        buttons->addWidget(button(window.cmdDone, 'D'));
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
