// Tabs along the top, the list on the left, what is known of a release on the right, and the
// current setup with the launch button along the bottom.
#include "main_view.h"

#include <algorithm>
#include <utility>

#include <QAction>
#include <QActionGroup>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QMenu>
#include <QMenuBar>
#include <QProgressBar>
#include <QScrollArea>
#include <QSettings>
#include <QShortcut>
#include <QSplitter>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>

#include "mark_list_view.h"
#include "views/qt_toolkit.h"

namespace views {
namespace {

constexpr int gap = 8;
constexpr int margin = 12;
constexpr QSize smallest(420, 300);

template <typename Box>
Box* tight(QWidget* parent = nullptr) {
    auto* box = parent != nullptr ? new Box(parent) : new Box();
    box->setContentsMargins(0, 0, 0, 0);
    box->setSpacing(gap);
    return box;
}

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
    : WindowView(main, toolkit), main_(main), content_(new QWidget(this)),
      sides_(new QSplitter(Qt::Horizontal, this)) {
    auto* whole = new QVBoxLayout(this);
    whole->setContentsMargins(0, 0, 0, 0);
    whole->setSpacing(0);
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
    content->setContentsMargins(margin, 4, margin, margin);
    content->setSpacing(margin);
    content->addWidget(tabBar(main_.tspMain));
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
    content->addWidget(progressBar(main_.barWork));
    // Nothing stands there before it means something.
    content_->hide();
    timer(main_.tmrSleep);
    timer(main_.tmrTally);
    std::vector<windows::Control*> order = {
        &main_.tspMain,       &main_.lstList,   &main_.lblUndoLink, &main_.lblRename,
        &main_.lblEditAbout,  &main_.txtAbout,  &main_.cmdReadme,   &main_.cmdExplore,
        &main_.lblEditCCodes, &main_.txtCCodes, &main_.cmdAdd,      &main_.cmdHelp,
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

MainView::~MainView() {
    if (auto* memory = toolkit_.memory(); memory != nullptr && isFilled_) {
        memory->setValue("main/place", saveGeometry());
        memory->setValue("main/divider", sides_->saveState());
        memory->setValue("main/tab", main_.tspMain.index());
    }
}

void MainView::takeOldPlace() {
    if (const auto* memory = toolkit_.memory()) {
        restoreGeometry(memory->value("main/place").toByteArray());
        sides_->restoreState(memory->value("main/divider").toByteArray());
    }
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
        });
        connect(action, &QAction::triggered, this, [this, item, action] {
            // The logic turns the check over, not the click.
            action->setChecked(item->checked());
            post(windows::press(*item));
        });
    }
    auto* opens = new QShortcut(QKeySequence("F10"), this);
    connect(opens, &QShortcut::activated, bar, [bar] {
        bar->setFocus(Qt::MenuBarFocusReason);
        bar->setActiveAction(bar->actions().front());
    });
    return bar;
}

QWidget* MainView::listSide() {
    auto* side = new QWidget(this);
    auto* column = tight<QVBoxLayout>(side);
    auto* list = markList(main_.lstList);
    list->setMinimumSize(220, 80);
    list->setAccessibleName("Releases");
    list->setPlaceholders("There are no releases of this type yet.",
                          "No release here has this in its name.");
    column->addWidget(label(main_.lblList, true));
    auto* search = tight<QHBoxLayout>();
    search->addWidget(filterOf(list), 1);
    auto* more = new QToolButton(this);
    more->setObjectName("listMenuButton");
    more->setText("List");
    more->setAccessibleName("List");
    more->setToolTip("Tick many, sort, search in about texts");
    more->setPopupMode(QToolButton::InstantPopup);
    more->setFocusPolicy(Qt::StrongFocus);
    restToo(more);
    search->addWidget(more);
    column->addLayout(search);
    column->addWidget(list, 1);
    column->addLayout(undoBar());
    auto* tally = label(main_.lblTally);
    tally->setProperty("quiet", true);
    column->addWidget(tally);
    column->addWidget(link(main_.lblRename), 0, Qt::AlignLeft);
    auto* menu = listMenu(list);
    more->setMenu(menu);
    list->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(list, &QWidget::customContextMenuRequested, menu, [this, list, menu](const QPoint& at) {
        if (toolkit_.takesInput(main_))
            menu->popup(list->viewport()->mapToGlobal(at));
    });
    return side;
}

/// How many ticks were cleared, and the way back.
QLayout* MainView::undoBar() {
    auto* row = tight<QHBoxLayout>();
    row->addWidget(label(main_.lblUndo));
    auto* undo = link(main_.lblUndoLink);
    row->addWidget(undo);
    row->addStretch();
    auto* shortcut = new QShortcut(QKeySequence::Undo, this);
    connect(shortcut, &QShortcut::activated, this, [this] {
        if (main_.lblUndoLink.visible())
            post(windows::press(main_.lblUndoLink));
    });
    return row;
}

/// An item that does what a button or link does, and rests when that does.
QAction* MainView::commandOf(QMenu* menu, const QString& caption, windows::Control& control) {
    auto* button = findChild<QAbstractButton*>(QString::fromStdString(control.name()));
    auto* action = menu->addAction(caption, button, &QAbstractButton::click);
    class FollowsEnabled final : public QObject {
      public:
        FollowsEnabled(QAbstractButton* followed, QAction* follower)
            : QObject(follower), followed_(followed), follower_(follower) {
            followed->installEventFilter(this);
        }
        bool eventFilter(QObject* /*watched*/, QEvent* event) override {
            if (event->type() == QEvent::EnabledChange)
                follower_->setEnabled(followed_->isEnabled());
            return false;
        }

      private:
        QAbstractButton* followed_;
        QAction* follower_;
    };
    action->setEnabled(button->isEnabled());
    new FollowsEnabled(button, action);
    return action;
}

/// All that can be done with the list and the release that is looked at. The commands on one
/// release come later, with the buttons that they press.
QMenu* MainView::listMenu(MarkListView* list) {
    auto* menu = new QMenu(this);
    menu->setObjectName("listMenu");
    auto* tick = menu->addAction("&Tick", list, [list] {
        if (list->currentIndex().isValid())
            list->toggle(list->currentIndex().row());
    });
    menu->addSeparator();
    auto* all = menu->addAction("Tick &All", list, [list] { list->markAll(true); });
    auto* none = menu->addAction("Tick &None", list, [list] { list->markAll(false); });
    auto* some =
        menu->addAction("Tick All That The &Filter Shows", list, [list] { list->markShown(true); });
    menu->addSeparator();
    auto* orders = new QActionGroup(menu);
    using Order = MarkListView::Order;
    for (const auto& [caption, order] :
         {std::pair("In &Listed Order", Order::asListed), std::pair("By Na&me", Order::byName),
          std::pair("Ticked Fi&rst", Order::tickedFirst),
          std::pair("Ne&west First", Order::newestFirst)}) {
        auto* action =
            menu->addAction(caption, list, [list, wanted = order] { list->setOrder(wanted); });
        action->setCheckable(true);
        action->setChecked(order == Order::asListed);
        orders->addAction(action);
    }
    menu->addSeparator();
    auto* about = menu->addAction("Filter &Searches About Texts Too");
    about->setCheckable(true);
    connect(about, &QAction::toggled, list, &MarkListView::setSearchesAbout);
    connect(menu, &QMenu::aboutToShow, this, [this, list, tick, all, none, some] {
        const auto row = list->currentIndex();
        tick->setEnabled(row.isValid());
        tick->setText(row.isValid() && list->isMarked(row.row()) ? "Clear &Tick" : "&Tick");
        const bool isMany =
            !main_.summaries()[static_cast<std::size_t>(main_.tspMain.index())]->type.isSingle();
        for (auto* action : {all, none, some})
            action->setEnabled(isMany && main_.lstList.count() > 0);
    });
    return menu;
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
    commandOf(menu, "Rename &This...", main_.lblRename);
    commandOf(menu, "Remove This...", main_.cmdRemove);
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
