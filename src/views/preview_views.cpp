// A tree over who wants the place that is picked in it, and what can be done about that.
#include "preview_views.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QShortcut>
#include <QSplitter>
#include <QVBoxLayout>

#include "layouts.h"
#include "tree_view.h"

namespace views {
namespace {

void setColumns(TreeView* tree, std::initializer_list<int> widths) {
    int column = 0;
    for (const int width : widths)
        tree->header()->resizeSection(column++, width);
}

class PreviewView final : public WindowView {
  public:
    PreviewView(windows::frmPreview& window, QtToolkit& toolkit)
        : WindowView(window, toolkit), preview_(window) {
        auto* column = new QVBoxLayout(this);
        column->setContentsMargins(margin, margin, margin, margin);
        column->setSpacing(margin);
        auto* figures = label(window.lblFigures, true);
        column->addWidget(figures);
        auto* files = treeList(window.treFiles);
        files->setAccessibleName("Files");
        setColumns(files, {260, 220, 220});
        column->addLayout(searchRow(files));
        auto* halves = new QSplitter(Qt::Vertical, this);
        halves->setChildrenCollapsible(false);
        halves->setHandleWidth(margin);
        halves->addWidget(files);
        halves->addWidget(place());
        halves->setStretchFactor(0, 3);
        halves->setStretchFactor(1, 1);
        halves->handle(1)->setAccessibleName("Divider");
        column->addWidget(halves, 1);
        auto* foot = tight<QHBoxLayout>();
        foot->addWidget(button(window.cmdAnswers, 'A'));
        foot->addWidget(label(window.lblReports));
        foot->addWidget(link(window.lblReportsLink));
        foot->addStretch();
        auto* done = button(window.cmdDone, 'C');
        done->setDefault(true);
        foot->addWidget(done);
        column->addLayout(foot);
        setMinimumSize(480, 360);
        resize(900, 640);
        const char* order[] = {"filter",   "chkConflicts", "cmdRefresh",
                               "treFiles", "treRivals",    "cmdFile"};
        for (std::size_t i = 1; i < std::size(order); ++i)
            setTabOrder(findChild<QWidget*>(order[i - 1]), findChild<QWidget*>(order[i]));
        files->setFocus();
    }

  private:
    QLayout* searchRow(TreeView* files) {
        auto* row = tight<QHBoxLayout>();
        auto* filter = new QLineEdit(this);
        filter->setObjectName("filter");
        filter->setPlaceholderText("Filter (Ctrl+L)");
        filter->setAccessibleName("Filter");
        filter->setClearButtonEnabled(true);
        connect(filter, &QLineEdit::textChanged, files, &TreeView::setFilter);
        auto* find = new QShortcut(QKeySequence("Ctrl+L"), this);
        connect(find, &QShortcut::activated, filter, [filter] {
            filter->setFocus(Qt::ShortcutFocusReason);
            filter->selectAll();
        });
        row->addWidget(filter, 1);
        row->addWidget(checkBox(preview_.chkConflicts, 'N'));
        auto* refresh = button(preview_.cmdRefresh, 'R');
        refresh->setToolTip("F5");
        auto* again = new QShortcut(QKeySequence("F5"), this);
        connect(again, &QShortcut::activated, refresh, &QPushButton::click);
        row->addWidget(refresh);
        return row;
    }

    /// What is known of the place that is picked.
    QWidget* place() {
        auto* side = new QWidget(this);
        auto* column = tight<QVBoxLayout>(side);
        column->addWidget(label(preview_.lblPlace, true));
        auto* row = tight<QHBoxLayout>();
        auto* rivals = treeList(preview_.treRivals);
        rivals->setAccessibleName("Releases that want this place");
        rivals->setRootIsDecorated(false);
        rivals->setMinimumHeight(80);
        setColumns(rivals, {220});
        row->addWidget(rivals, 1);
        auto* commands = tight<QVBoxLayout>();
        commands->addWidget(button(preview_.cmdFile, 'F'));
        commands->addWidget(button(preview_.cmdFolder, 'O'));
        commands->addWidget(button(preview_.cmdEverywhere, 'W'));
        commands->addWidget(button(preview_.cmdAsk, 'L'));
        commands->addWidget(checkBox(preview_.chkRemember, 'M'));
        commands->addStretch();
        row->addLayout(commands);
        column->addLayout(row, 1);
        return side;
    }

    windows::frmPreview& preview_;
};

class AnswersView final : public WindowView {
  public:
    AnswersView(windows::frmAnswers& window, QtToolkit& toolkit) : WindowView(window, toolkit) {
        auto* column = new QVBoxLayout(this);
        column->setContentsMargins(margin, margin, margin, margin);
        column->setSpacing(margin);
        column->addWidget(label(window.lblAnswers, true));
        auto* answers = treeList(window.treAnswers);
        answers->setAccessibleName("Answers");
        answers->setRootIsDecorated(false);
        setColumns(answers, {200, 170, 170});
        column->addWidget(answers, 1);
        auto* foot = tight<QHBoxLayout>();
        foot->addWidget(button(window.cmdForget, 'F'));
        foot->addWidget(button(window.cmdForgetAll, 'A'));
        foot->addStretch();
        auto* done = button(window.cmdDone, 'C');
        done->setDefault(true);
        foot->addWidget(done);
        column->addLayout(foot);
        setMinimumSize(360, 240);
        resize(700, 400);
    }
};

} // namespace

std::unique_ptr<WindowView> makePreviewView(windows::frmPreview& window, QtToolkit& toolkit) {
    return std::make_unique<PreviewView>(window, toolkit);
}

std::unique_ptr<WindowView> makeAnswersView(windows::frmAnswers& window, QtToolkit& toolkit) {
    return std::make_unique<AnswersView>(window, toolkit);
}

} // namespace views
