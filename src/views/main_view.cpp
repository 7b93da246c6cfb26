// Tabs along the top, the list on the left, what is known of a release on the right, and the
// current setup with the launch button along the bottom.
#include "main_view.h"

#include <algorithm>
#include <utility>

#include <QAction>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QMenu>
#include <QMenuBar>
#include <QProgressBar>
#include <QScrollArea>
#include <QSettings>
#include <QShortcut>
#include <QSplitter>
#include <QTimer>
#include <QVBoxLayout>

#include "layouts.h"
#include "mark_list_view.h"
#include "views/qt_toolkit.h"

namespace views {
namespace {

constexpr QSize smallest(420, 300);
constexpr int smallGap = 4;

/// Two menus may ask for one letter: the second gets its next one. The caption stays.
QString withOwnLetter(QString caption, QString& taken) {
    const auto mark = caption.indexOf('&');
    if (mark < 0)
        return caption;
    auto at = mark;
    caption.remove(mark, 1);
    while (at < caption.size() &&
           (!caption[at].isLetter() || taken.contains(caption[at], Qt::CaseInsensitive)))
        ++at;
    if (at == caption.size())
        return caption;
    taken += caption[at];
    return caption.insert(at, '&');
}

} // namespace

MainView::MainView(windows::frmMain& main, QtToolkit& toolkit)
    : WindowView(main, toolkit), main_(main), content_(new QWidget(this)),
      sides_(new QSplitter(Qt::Horizontal, this)) {
    auto* whole = new QVBoxLayout(this);
    whole->setContentsMargins(margin, 0, margin, margin);
    whole->setSpacing(gap);
    whole->setMenuBar(menuBar());
    // On a screen that is too small for all of it, it can be scrolled.
    auto* scrolls = new QScrollArea(this);
    scrolls->setObjectName("content");
    scrolls->setFrameShape(QFrame::NoFrame);
    scrolls->setWidgetResizable(true);
    scrolls->setFocusPolicy(Qt::NoFocus);
    scrolls->setWidget(content_);
    whole->addWidget(scrolls);

    auto* content = new QVBoxLayout(content_);
    content->setContentsMargins(0, smallGap, 0, 0);
    content->setSpacing(gap);
    auto* tabs = tabBar(main_.tspMain);
    addTabKeys(tabs);
    content->addWidget(tabs);
    sides_->setObjectName("sides");
    sides_->setHandleWidth(margin);
    sides_->setChildrenCollapsible(false);
    sides_->addWidget(listSide());
    sides_->addWidget(infoSide());
    // The splitter has put the second one below the first, which is where screen readers begin.
    sides_->widget(0)->lower();
    sides_->handle(1)->setAccessibleName("Divider");
    sides_->setStretchFactor(0, 2);
    sides_->setStretchFactor(1, 3);
    content->addWidget(sides_, 1);
    content->addWidget(setupFrame());
    // Nothing stands there before it means something, but for the progress of what comes first.
    content_->hide();
    whole->addWidget(progressBar(main_.barWork));
    timer(main_.tmrSleep);
    timer(main_.tmrTally);
    timer(main_.tmrContents);
    std::vector<windows::Control*> order = {
        &main_.tspMain,       &main_.lstList,     &main_.lblUndoLink, &main_.lblRename,
        &main_.lblEditAbout,  &main_.picContents, &main_.cmdPrevious, &main_.cmdNext,
        &main_.treUnits,      &main_.txtAbout,    &main_.cmdReadme,   &main_.cmdExplore,
        &main_.lblEditCCodes, &main_.txtCCodes,   &main_.cmdAdd,      &main_.cmdHelp,
        &main_.cmdRemove};
    for (const auto& summary : main_.summaries())
        order.push_back(&summary->box);
    order.insert(order.end(), {&main_.cmdRevert, &main_.cmdClean, &main_.cmdGo});
    setTabOrderOf(order);
    setTabOrder(findChild<QWidget*>("tspMain"), findChild<QWidget*>("filter"));
    setTabOrder(findChild<QWidget*>("filter"), findChild<QWidget*>("listMenuButton"));
    setMinimumSize(smallest);
    resize(920, 680);
}

/// From wherever the focus is, round and round.
void MainView::addTabKeys(QTabBar* tabs) {
    for (const auto& [keys, step] : {std::pair("Ctrl+Tab", 1), std::pair("Ctrl+PgDown", 1),
                                     std::pair("Ctrl+Shift+Tab", -1), std::pair("Ctrl+PgUp", -1)}) {
        auto* shortcut = new QShortcut(QKeySequence(keys), this);
        connect(shortcut, &QShortcut::activated, tabs, [tabs, to = step] {
            tabs->setCurrentIndex((tabs->currentIndex() + to + tabs->count()) % tabs->count());
        });
    }
}

MainView::~MainView() {
    if (auto* memory = toolkit_.memory(); memory != nullptr && isFilled_) {
        memory->setValue("main/place", saveGeometry());
        memory->setValue("main/divider", sides_->saveState());
        memory->setValue("main/tab", main_.tspMain.index());
    }
}

bool MainView::takeOldPlace() {
    const auto* memory = toolkit_.memory();
    if (memory == nullptr)
        return false;
    sides_->restoreState(memory->value("main/divider").toByteArray());
    return restoreGeometry(memory->value("main/place").toByteArray());
}

/// The start is over when the window rests no more for the first time.
void MainView::showRest(bool rests) {
    WindowView::showRest(rests);
    if (rests || std::exchange(isFilled_, true))
        return;
    content_->show();
    // The list follows in this same round of changes.
    QTimer::singleShot(0, this, [this] { findChild<QWidget*>("lstList")->setFocus(); });
    const auto& tabs = main_.tspMain.captions();
    const auto* memory = toolkit_.memory();
    if (memory != nullptr && memory->value("main/tiles").toBool())
        findChild<QAction*>("showsPictures")->setChecked(true);
    const auto tab = memory == nullptr ? 0U : memory->value("main/tab").toUInt();
    if (tab > 0 && tab < tabs.size())
        post(windows::choose(main_.tspMain, tabs[tab]));
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
    QString letters;
    std::map<const windows::Menu*, QMenu*> menus;
    for (auto* control : main_.controls()) {
        if (const auto* menu = dynamic_cast<windows::Menu*>(control)) {
            menus[menu] = bar->addMenu(withOwnLetter(shown(menu->text()), letters));
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
            action->setVisible(item->visible());
        });
        connect(action, &QAction::triggered, this, [this, item, action] {
            // The logic turns the check over, not the click.
            action->setChecked(item->checked());
            post(windows::press(*item));
        });
    }
    auto* opens = new QShortcut(QKeySequence("F10"), this);
    // The bar takes the focus when the menu is left, and knows then whose it was.
    connect(opens, &QShortcut::activated, bar,
            [bar] { bar->setActiveAction(bar->actions().front()); });
    return bar;
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
    struct Lettered {
        windows::Button* control;
        char letter;
    };
    const auto buttons = [&](std::initializer_list<Lettered> controls) {
        auto* row = tight<QHBoxLayout>();
        for (const auto& [control, letter] : controls)
            row->addWidget(button(*control, QChar::fromLatin1(letter)), 1);
        column->addLayout(row);
    };
    headed(main_.lblAbout, main_.lblEditAbout);
    column->addWidget(contentsPane());
    auto* about = textEdit(main_.txtAbout);
    about->setAccessibleName("Information");
    about->setMinimumHeight(40);
    column->addWidget(about, 1);
    buttons({{&main_.cmdReadme, 'D'}, {&main_.cmdExplore, 'V'}});
    headed(main_.lblCCodes, main_.lblEditCCodes);
    auto* codes = lineEdit(main_.txtCCodes);
    codes->setAccessibleName("Compatibility Codes");
    column->addWidget(codes);
    buttons({{&main_.cmdAdd, 'A'}, {&main_.cmdHelp, 'W'}, {&main_.cmdRemove, 'R'}});
    auto* menu = findChild<QMenu*>("listMenu");
    menu->addSeparator();
    commandOf(menu, "Rea&dme", main_.cmdReadme);
    commandOf(menu, "&View Files", main_.cmdExplore);
    commandOf(menu, "&Edit About Text", main_.lblEditAbout);
    commandOf(menu, "Edit &CCodes", main_.lblEditCCodes);
    commandOf(menu, "Rename T&his...", main_.lblRename);
    commandOf(menu, "Rem&ove This...", main_.cmdRemove);
    return side;
}

QWidget* MainView::setupFrame() {
    auto* frame = new QGroupBox(this);
    bind(main_.fraCurrSetup, frame,
         [this, frame] { frame->setTitle(shown(main_.fraCurrSetup.text())); });
    auto* grid = new QGridLayout(frame);
    grid->setHorizontalSpacing(gap);
    // A low screen has its room for the list and the texts above.
    grid->setVerticalSpacing(smallGap);
    grid->setContentsMargins(0, 0, 0, 0);
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
    grid->addWidget(button(main_.cmdRevert, 'T'), left++, 0, 1, 2);
    grid->addWidget(button(main_.cmdClean, 'N'), left++, 0, 1, 2);
    auto* go = elidedButton(main_.cmdGo, 'L');
    go->setDefault(true);
    go->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Expanding);
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
