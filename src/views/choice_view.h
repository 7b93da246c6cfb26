// A window in which one item of a list is chosen: the list has the focus, Enter and a double click
// take the item at hand as the default button does, Space marks it.
#pragma once

#include <QKeyEvent>
#include <QTimer>

#include "mark_list_view.h"
#include "views/window_view.h"

namespace views {

class ChoiceView : public WindowView {
  public:
    using WindowView::WindowView;

  protected:
    /// The list, below its heading.
    MarkListView* choices(windows::MarkList& control, QLabel* heading, const QString& name,
                          const QString& noItems) {
        list_ = markList(control);
        list_->setAccessibleName(name);
        list_->setPlaceholders({noItems, "", ""});
        list_->installEventFilter(this);
        heading->setBuddy(list_);
        connect(list_, &QListView::doubleClicked, this, [this] { pressDefaultButton(); });
        // The list is filled in this same round of changes.
        QTimer::singleShot(0, this, [this] { beginInList(); });
        return list_;
    }

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
    void beginInList() {
        list_->setFocus(Qt::OtherFocusReason);
        for (int row = 0; row < list_->model()->rowCount(); ++row)
            if (list_->isMarked(row))
                list_->setCurrentIndex(list_->model()->index(row, 0));
    }

    MarkListView* list_ = nullptr;
};

} // namespace views
