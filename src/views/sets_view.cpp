// The sets on the left, what is in the one at hand on the right, the buttons along the foot.
#include "sets_view.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include "choice_view.h"
#include "layouts.h"

namespace views {
namespace {

class SetsView final : public ChoiceView {
  public:
    SetsView(windows::frmSets& window, QtToolkit& toolkit) : ChoiceView(window, toolkit) {
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
    }

  private:
    QLayout* listSide(windows::frmSets& window) {
        auto* column = tight<QVBoxLayout>();
        auto* heading = label(window.lblSets, true);
        auto* list = choices(window.lstSets, heading, "Sets", "No set has been saved yet.");
        column->addWidget(heading);
        column->addWidget(list, 1);
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
};

} // namespace

std::unique_ptr<WindowView> makeSetsView(windows::frmSets& window, QtToolkit& toolkit) {
    return std::make_unique<SetsView>(window, toolkit);
}

} // namespace views
