// The directories above, what is known of the one at hand below, the buttons along the foot.
#include "directories_view.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include "choice_view.h"
#include "layouts.h"

namespace views {
namespace {

class DirectoriesView final : public ChoiceView {
  public:
    DirectoriesView(windows::frmDirectories& window, QtToolkit& toolkit)
        : ChoiceView(window, toolkit), window_(window) {
        auto* whole = new QVBoxLayout(this);
        whole->setContentsMargins(margin, margin, margin, margin);
        whole->setSpacing(gap);
        auto* heading = label(window.lblDirectories, true);
        auto* list = choices(window.lstDirectories, heading, "Game Directories",
                             "No game directory was found.");
        auto* text = textEdit(window.txtDirectory);
        text->setAccessibleName("About This Directory");
        whole->addWidget(heading);
        whole->addWidget(list, 3);
        whole->addWidget(text, 2);
        whole->addLayout(foot(window));
        setMinimumSize(420, 240);
        resize(600, 380);
    }

  protected:
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

    windows::frmDirectories& window_;
};

} // namespace

std::unique_ptr<WindowView> makeDirectoriesView(windows::frmDirectories& window,
                                                QtToolkit& toolkit) {
    return std::make_unique<DirectoriesView>(window, toolkit);
}

} // namespace views
