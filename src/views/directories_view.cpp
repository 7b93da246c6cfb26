// The directories above, what is known of the one at hand below, the buttons along the foot.
#include "directories_view.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QTimer>
#include <QVBoxLayout>

#include "layouts.h"
#include "mark_list_view.h"

namespace views {
namespace {

class DirectoriesView final : public WindowView {
  public:
    DirectoriesView(windows::frmDirectories& window, QtToolkit& toolkit)
        : WindowView(window, toolkit), window_(window) {
        auto* whole = new QVBoxLayout(this);
        whole->setContentsMargins(margin, margin, margin, margin);
        whole->setSpacing(gap);
        auto* heading = label(window.lblDirectories, true);
        list_ = markList(window.lstDirectories);
        list_->setAccessibleName("Game Directories");
        list_->setPlaceholders({"No game directory was found.", "", ""});
        list_->installEventFilter(this);
        heading->setBuddy(list_);
        connect(list_, &QListView::doubleClicked, this, [this] { pressDefaultButton(); });
        auto* text = textEdit(window.txtDirectory);
        text->setAccessibleName("About This Directory");
        whole->addWidget(heading);
        whole->addWidget(list_, 3);
        whole->addWidget(text, 2);
        whole->addLayout(foot(window));
        setMinimumSize(420, 240);
        resize(600, 380);
        // The list follows in this same round of changes.
        QTimer::singleShot(0, this, [this] { beginInList(); });
    }

  protected:
    /// Enter takes a directory, as it does in the list of a file dialog; Space marks it.
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() != QEvent::KeyPress)
            return WindowView::eventFilter(watched, event);
        const auto key = static_cast<QKeyEvent*>(event)->key();
        if (key != Qt::Key_Return && key != Qt::Key_Enter)
            return WindowView::eventFilter(watched, event);
        pressDefaultButton();
        return true;
    }

    /// It stands alone at a first start, where Escape leads out of it as well.
    void keyPressEvent(QKeyEvent* event) override {
        if (event->key() == Qt::Key_Escape)
            post(windows::escape(window_));
        else
            WindowView::keyPressEvent(event);
    }

  private:
    QLayout* foot(windows::frmDirectories& window) {
        auto* row = tight<QHBoxLayout>();
        row->addWidget(button(window.cmdAdd, 'A'));
        row->addWidget(button(window.cmdForget, 'F'));
        row->addStretch();
        auto* take = button(window.cmdSwitch, QChar::fromLatin1(window.cmdSwitch.text().front()));
        take->setDefault(true);
        row->addWidget(take);
        row->addWidget(button(window.cmdClose, QChar::fromLatin1(window.cmdClose.text().front())));
        return row;
    }

    void beginInList() {
        list_->setFocus(Qt::OtherFocusReason);
        for (int row = 0; row < list_->model()->rowCount(); ++row)
            if (list_->isMarked(row))
                list_->setCurrentIndex(list_->model()->index(row, 0));
    }

    windows::frmDirectories& window_;
    MarkListView* list_ = nullptr;
};

} // namespace

std::unique_ptr<WindowView> makeDirectoriesView(windows::frmDirectories& window,
                                                QtToolkit& toolkit) {
    return std::make_unique<DirectoriesView>(window, toolkit);
}

} // namespace views
