// Tabs along the top, the list on the left, what is known of a release on the right, and the
// current setup with the launch button along the bottom.
#include "main_view.h"

#include <algorithm>
#include <utility>

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QMenu>
#include <QMenuBar>
#include <QShortcut>
#include <QSplitter>
#include <QToolButton>
#include <QVBoxLayout>

#include "mark_list_view.h"

namespace views {
namespace {

constexpr int gap = 8;
constexpr int margin = 12;

template <typename Box>
Box* tight(QWidget* parent = nullptr) {
    auto* box = parent != nullptr ? new Box(parent) : new Box();
    box->setContentsMargins(0, 0, 0, 0);
    box->setSpacing(gap);
    return box;
}

/// Escape gives up the filter, Down and Enter go on in the list.
class FilterEdit final : public QLineEdit {
  public:
    FilterEdit(QListView* list, QWidget* parent) : QLineEdit(parent), list_(list) {
        setObjectName("filter");
        setPlaceholderText("Filter (Ctrl+L)");
        setAccessibleName("Filter");
        setClearButtonEnabled(true);
        if (auto* clearButton = findChild<QToolButton*>())
            clearButton->setAccessibleName("Clear the filter");
    }

  protected:
    void keyPressEvent(QKeyEvent* event) override {
        switch (event->key()) {
        case Qt::Key_Escape:
            clear();
            return;
        case Qt::Key_Down:
        case Qt::Key_Return:
        case Qt::Key_Enter:
            list_->setFocus(Qt::OtherFocusReason);
            if (!list_->currentIndex().isValid())
                list_->setCurrentIndex(list_->model()->index(0, 0));
            return;
        default:
            QLineEdit::keyPressEvent(event);
        }
    }

  private:
    QListView* list_;
};

} // namespace

MainView::MainView(windows::frmMain& main, QtToolkit& toolkit)
    : WindowView(main, toolkit), main_(main) {
    auto* whole = new QVBoxLayout(this);
    whole->setContentsMargins(0, 0, 0, 0);
    whole->setSpacing(0);
    whole->setMenuBar(menuBar());

    auto* content = new QVBoxLayout();
    content->setContentsMargins(margin, 4, margin, margin);
    content->setSpacing(margin);
    whole->addLayout(content);
    content->addWidget(tabBar(main_.tspMain));
    auto* sides = new QSplitter(Qt::Horizontal, this);
    sides->setHandleWidth(margin);
    sides->setChildrenCollapsible(false);
    sides->addWidget(listSide());
    sides->addWidget(infoSide());
    // The splitter has put the second one below the first, which is where screen readers begin.
    sides->widget(0)->lower();
    sides->handle(1)->setAccessibleName("Divider");
    sides->setStretchFactor(0, 2);
    sides->setStretchFactor(1, 3);
    content->addWidget(sides, 1);
    content->addWidget(setupFrame());
    timer(main_.tmrSleep);
    std::vector<windows::Control*> order = {
        &main_.tspMain,   &main_.lstList,   &main_.lblRename,  &main_.lblEditAbout,
        &main_.txtAbout,  &main_.cmdReadme, &main_.cmdExplore, &main_.lblEditCCodes,
        &main_.txtCCodes, &main_.cmdAdd,    &main_.cmdHelp,    &main_.cmdRemove};
    for (const auto& summary : main_.summaries())
        order.push_back(&summary->box);
    order.insert(order.end(), {&main_.cmdRevert, &main_.cmdClean, &main_.cmdGo});
    setTabOrderOf(order);
    setTabOrder(findChild<QWidget*>("tspMain"), findChild<QWidget*>("filter"));
    resize(920, 680);
}

void MainView::setTabOrderOf(const std::vector<windows::Control*>& controls) {
    QWidget* before = nullptr;
    for (const auto* control : controls) {
        auto* widget = findChild<QWidget*>(QString::fromStdString(control->name()));
        if (before != nullptr)
            setTabOrder(before, widget);
        before = widget;
    }
}

QMenuBar* MainView::menuBar() {
    auto* bar = new QMenuBar(this);
    bar->setAccessibleName("Menus");
    std::map<const windows::Menu*, QMenu*> menus;
    for (auto* control : main_.controls()) {
        if (const auto* menu = dynamic_cast<windows::Menu*>(control)) {
            menus[menu] = bar->addMenu(shown(menu->text()));
            menus[menu]->setObjectName(QString::fromStdString(menu->name()));
            continue;
        }
        auto* item = dynamic_cast<windows::MenuItem*>(control);
        if (item == nullptr)
            continue;
        auto* action = menus.at(&item->menu())->addAction(shown(item->text()).trimmed());
        action->setObjectName(QString::fromStdString(item->name()));
        action->setShortcut(QKeySequence(shown(item->shortcut())));
        action->setCheckable(item->checkable());
        addBinding(*item, [this, item, action] {
            action->setEnabled(takesInput(*item));
            action->setChecked(item->checked());
        });
        connect(action, &QAction::triggered, this, [this, item, action] {
            // The logic turns the check over, not the click.
            action->setChecked(item->checked());
            post(windows::press(*item));
        });
    }
    return bar;
}

QWidget* MainView::listSide() {
    auto* side = new QWidget(this);
    auto* column = tight<QVBoxLayout>(side);
    auto* list = markList(main_.lstList);
    list->setMinimumWidth(220);
    list->setAccessibleName("Releases");
    list->setPlaceholders("There are no releases of this type yet.",
                          "No release here has this in its name.");
    column->addWidget(label(main_.lblList, true));
    column->addWidget(filterOf(list));
    column->addWidget(list, 1);
    column->addWidget(link(main_.lblRename), 0, Qt::AlignLeft);
    return side;
}

/// Hides rows and changes nothing else: marks stay, and the logic sees all items.
QLineEdit* MainView::filterOf(MarkListView* list) {
    auto* filter = new FilterEdit(list, this);
    restToo(filter);
    connect(filter, &QLineEdit::textChanged, list, &MarkListView::setFilter);
    // Another tab shows all of its releases at first.
    list->onRefilled = [this, filter, tab = main_.tspMain.index()]() mutable {
        if (std::exchange(tab, main_.tspMain.index()) != tab)
            filter->clear();
    };
    auto* shortcut = new QShortcut(QKeySequence("Ctrl+L"), this);
    connect(shortcut, &QShortcut::activated, filter, [filter] {
        filter->setFocus(Qt::ShortcutFocusReason);
        filter->selectAll();
    });
    return filter;
}

QWidget* MainView::infoSide() {
    auto* side = new QWidget(this);
    auto* column = tight<QVBoxLayout>(side);
    const auto headed = [&](windows::Label& heading, windows::Label& edit) {
        auto* row = tight<QHBoxLayout>();
        row->addWidget(label(heading, true), 1);
        row->addWidget(link(edit));
        column->addLayout(row);
    };
    const auto buttons = [&](std::initializer_list<windows::Button*> controls) {
        auto* row = tight<QHBoxLayout>();
        for (auto* control : controls)
            row->addWidget(button(*control), 1);
        column->addLayout(row);
    };
    headed(main_.lblAbout, main_.lblEditAbout);
    auto* about = textEdit(main_.txtAbout);
    about->setAccessibleName("Information");
    column->addWidget(about, 1);
    buttons({&main_.cmdReadme, &main_.cmdExplore});
    headed(main_.lblCCodes, main_.lblEditCCodes);
    auto* codes = lineEdit(main_.txtCCodes);
    codes->setAccessibleName("Compatibility Codes");
    column->addWidget(codes);
    buttons({&main_.cmdAdd, &main_.cmdHelp, &main_.cmdRemove});
    return side;
}

QWidget* MainView::setupFrame() {
    auto* frame = new QGroupBox(this);
    bind(main_.fraCurrSetup, frame,
         [this, frame] { frame->setTitle(shown(main_.fraCurrSetup.text())); });
    auto* grid = new QGridLayout(frame);
    grid->setHorizontalSpacing(gap);
    grid->setVerticalSpacing(gap);
    // Types with one choice stand on the left with the buttons below them, all others on the right.
    int left = 0;
    int right = 0;
    for (const auto& summary : main_.summaries()) {
        const bool isSingle = summary->type.isSingle();
        auto* edit = lineEdit(summary->box);
        edit->setAccessibleName(shown(summary->label.text()));
        const int line = isSingle ? left++ : right++;
        const int column = isSingle ? 0 : 2;
        grid->addWidget(label(summary->label), line, column);
        grid->addWidget(edit, line, column + 1);
    }
    for (auto* command : {&main_.cmdRevert, &main_.cmdClean})
        grid->addWidget(button(*command), left++, 0, 1, 2);
    auto* go = button(main_.cmdGo);
    go->setDefault(true);
    go->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Expanding);
    go->setMinimumWidth(190);
    const int lines = std::max(left, right);
    grid->addWidget(go, 0, 4, lines, 1);
    auto* missing = label(main_.lblGo);
    missing->setWordWrap(true);
    missing->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Minimum);
    grid->addWidget(missing, lines, 4);
    grid->setColumnStretch(1, 2);
    grid->setColumnStretch(3, 2);
    grid->setColumnStretch(4, 1);
    return frame;
}

} // namespace views
