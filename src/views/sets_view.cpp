// The sets on the left, what is in the one at hand on the right, the buttons along the foot.
#include "sets_view.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QTimer>
#include <QVBoxLayout>

#include "layouts.h"
#include "mark_list_view.h"

namespace views {
namespace {

class SetsView final : public WindowView {
  public:
    SetsView(windows::frmSets& window, QtToolkit& toolkit) : WindowView(window, toolkit) {
        auto* whole = new QVBoxLayout(this);
        whole->setContentsMargins(margin, margin, margin, margin);
        whole->setSpacing(gap);
        auto* sides = tight<QHBoxLayout>();
        sides->addLayout(listSide(window), 2);
        sides->addLayout(contentSide(window), 3);
        whole->addLayout(sides, 1);
        whole->addLayout(foot(window));
        setMinimumSize(420, 220);
        resize(680, 400);
        // The list follows in this same round of changes.
        QTimer::singleShot(0, this, [this] { beginInList(); });
    }

  protected:
    /// Enter takes a set, as it does in the list of a file dialog; Space marks it.
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() != QEvent::KeyPress)
            return WindowView::eventFilter(watched, event);
        const auto key = static_cast<QKeyEvent*>(event)->key();
        if (key != Qt::Key_Return && key != Qt::Key_Enter)
            return WindowView::eventFilter(watched, event);
        pressDefaultButton();
        return true;
    }

  private:
    QLayout* listSide(windows::frmSets& window) {
        auto* column = tight<QVBoxLayout>();
        auto* heading = label(window.lblSets, true);
        list_ = markList(window.lstSets);
        list_->setAccessibleName("Sets");
        list_->setPlaceholders({"No set has been saved yet.", "", ""});
        list_->installEventFilter(this);
        heading->setBuddy(list_);
        connect(list_, &QListView::doubleClicked, this, [this] { pressDefaultButton(); });
        column->addWidget(heading);
        column->addWidget(list_, 1);
        return column;
    }

    QLayout* contentSide(windows::frmSets& window) {
        auto* column = tight<QVBoxLayout>();
        auto* text = textEdit(window.txtSet);
        text->setAccessibleName("What Is In This Set");
        column->addWidget(label(window.lblSet, true));
        column->addWidget(text, 1);
        return column;
    }

    QLayout* foot(windows::frmSets& window) {
        auto* row = tight<QHBoxLayout>();
        row->addWidget(button(window.cmdRename, 'R'));
        row->addWidget(button(window.cmdDelete, 'D'));
        row->addWidget(button(window.cmdExport, 'E'));
        row->addWidget(button(window.cmdList, 'L'));
        row->addStretch();
        auto* take = button(window.cmdSwitch, 'S');
        take->setDefault(true);
        row->addWidget(take);
        row->addWidget(button(window.cmdClose, 'C'));
        return row;
    }

    void beginInList() {
        list_->setFocus(Qt::OtherFocusReason);
        for (int row = 0; row < list_->model()->rowCount(); ++row)
            if (list_->isMarked(row))
                list_->setCurrentIndex(list_->model()->index(row, 0));
    }

    MarkListView* list_ = nullptr;
};

} // namespace

std::unique_ptr<WindowView> makeSetsView(windows::frmSets& window, QtToolkit& toolkit) {
    return std::make_unique<SetsView>(window, toolkit);
}

} // namespace views
