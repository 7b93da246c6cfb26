// The left side of the main window: the list, what stands around it, and all that can be done with
// it.
#include <utility>

#include <QAction>
#include <QActionGroup>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QMenu>
#include <QSettings>
#include <QShortcut>
#include <QToolButton>
#include <QVBoxLayout>

#include "layouts.h"
#include "main_view.h"
#include "mark_list_view.h"
#include "views/qt_toolkit.h"

namespace views {
namespace {

/// Escape gives up the filter, Down and Enter go on in the list.
class FilterEdit final : public QLineEdit {
  public:
    FilterEdit(MarkListView* list, QWidget* parent) : QLineEdit(parent), list_(list) {
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
            if (!list_->currentIndex().isValid())
                list_->moveTo(0);
            list_->setFocus(Qt::OtherFocusReason);
            return;
        default:
            QLineEdit::keyPressEvent(event);
        }
    }

    /// With nothing of its own to take back, Ctrl+Z is for the ticks.
    bool event(QEvent* event) override {
        if (event->type() == QEvent::ShortcutOverride && !isUndoAvailable() &&
            static_cast<QKeyEvent*>(event)->matches(QKeySequence::Undo)) {
            event->ignore();
            return false;
        }
        return QLineEdit::event(event);
    }

  private:
    MarkListView* list_;
};

} // namespace

QWidget* MainView::listSide() {
    auto* side = new QWidget(this);
    auto* column = tight<QVBoxLayout>(side);
    auto* list = markList(main_.lstList);
    list->setMinimumSize(220, 80);
    list->setAccessibleName("Releases");
    list->setPlaceholders({"There are no releases of this type yet.",
                           "No release here has this in its name.",
                           "No release here has this in its name or its about text."});
    column->addWidget(label(main_.lblList, true));
    auto* search = tight<QHBoxLayout>();
    search->addWidget(filterOf(list), 1);
    auto* more = new QToolButton(this);
    more->setObjectName("listMenuButton");
    more->setText("L&ist");
    more->setAccessibleName("List");
    more->setToolTip("Tick many, sort, search in about texts");
    more->setPopupMode(QToolButton::InstantPopup);
    more->setFocusPolicy(Qt::StrongFocus);
    // As high as the field beside it.
    more->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Ignored);
    restToo(more);
    search->addWidget(more);
    column->addLayout(search);
    column->addWidget(list, 1);
    column->addLayout(undoBar());
    auto* tally = label(main_.lblTally);
    tally->setProperty("quiet", true);
    column->addWidget(tally);
    auto* contents = label(main_.lblContents);
    contents->setProperty("quiet", true);
    column->addWidget(contents);
    column->addWidget(link(main_.lblRename), 0, Qt::AlignLeft);
    auto* menu = listMenu(list);
    more->setMenu(menu);
    list->onMenu = [this, menu](const QPoint& at) {
        if (toolkit_.takesInput(main_))
            menu->popup(at);
    };
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
          std::pair("Ne&west First", Order::newestFirst),
          std::pair("By &Players", Order::byPlayers), std::pair("By Si&ze", Order::bySize)}) {
        auto* action =
            menu->addAction(caption, list, [list, wanted = order] { list->setOrder(wanted); });
        action->setCheckable(true);
        action->setChecked(order == Order::asListed);
        orders->addAction(action);
    }
    menu->addSeparator();
    auto* about = menu->addAction("Filter &Searches About Texts Too");
    about->setObjectName("searchesAbout");
    about->setCheckable(true);
    connect(about, &QAction::toggled, list, &MarkListView::setSearchesAbout);
    addTilesItem(menu, list);
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

/// Maps and units have pictures; the switch stays as it is for the others.
void MainView::addTilesItem(QMenu* menu, MarkListView* list) {
    auto* tiles = menu->addAction("Show Pict&ures");
    tiles->setObjectName("showsPictures");
    tiles->setCheckable(true);
    tiles->setShortcut(QKeySequence("Ctrl+T"));
    addAction(tiles);
    showTiles_ = [this, tiles, list] {
        const auto type =
            main_.summaries()[static_cast<std::size_t>(main_.tspMain.index())]->type.type;
        list->setTiles(tiles->isChecked() &&
                       (type == releases::ReleaseType::map || type == releases::ReleaseType::unit));
    };
    connect(tiles, &QAction::toggled, this, [this](bool shows) {
        showTiles_();
        if (auto* memory = toolkit_.memory(); memory != nullptr)
            memory->setValue("main/tiles", shows);
    });
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
        showTiles_();
    };
    auto* shortcut = new QShortcut(QKeySequence("Ctrl+L"), this);
    connect(shortcut, &QShortcut::activated, filter, [filter] {
        filter->setFocus(Qt::ShortcutFocusReason);
        filter->selectAll();
    });
    return filter;
}

} // namespace views
