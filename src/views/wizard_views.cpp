// Steps stand one above the other; each is a group with its buttons along its foot.
#include "views/wizard_views.h"

#include <QComboBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QListWidget>
#include <QProgressBar>
#include <QVBoxLayout>

#include "platform/files.h"

namespace views {
namespace {

constexpr int gap = 8;
constexpr int wizardWidth = 600;

class WizardView : public WindowView {
  public:
    using WindowView::WindowView;

  protected:
    /// Takes widgets and rows for one step, from top to bottom.
    QVBoxLayout* step(platform::Frame& frame) {
        auto* box = new QGroupBox(this);
        bind(frame, box, [&frame, box] { box->setTitle(shown(frame.text())); });
        whole()->addWidget(box);
        auto* column = new QVBoxLayout(box);
        column->setSpacing(gap);
        return column;
    }

    /// A field with its label above it.
    template <typename Field>
    Field* field(QVBoxLayout* column, platform::Label& name, Field* widget) {
        auto* caption = label(name);
        caption->setBuddy(widget);
        widget->setAccessibleName(shown(name.text()));
        column->addWidget(caption);
        column->addWidget(widget);
        return widget;
    }

    void buttons(QVBoxLayout* column, platform::Button& back, platform::Button& next) {
        auto* row = new QHBoxLayout();
        row->addStretch();
        auto* backButton = button(back);
        auto* nextButton = button(next);
        nextButton->setDefault(true);
        row->addWidget(backButton);
        row->addWidget(nextButton);
        column->addLayout(row);
        // Forward is what is wanted more often.
        setTabOrder(nextButton, backButton);
    }

    void closeUp() {
        whole()->addStretch();
        resize(wizardWidth, sizeHint().height());
    }

  private:
    QVBoxLayout* whole() {
        if (layout() == nullptr)
            (new QVBoxLayout(this))->setSpacing(gap);
        return static_cast<QVBoxLayout*>(layout());
    }
};

class AddView final : public WizardView {
  public:
    AddView(installers::frmAdd& window, QtToolkit& toolkit) : WizardView(window, toolkit) {
        auto* first = step(window.fraS1);
        auto* type = field(first, window.lbl1Type, comboBox(window.cbo1Type));
        auto* name = field(first, window.lbl1Name, lineEdit(window.txt1Name));
        auto* about = field(first, window.lbl1About, textEdit(window.txt1About));
        about->setMinimumHeight(90);
        buttons(first, window.cmd1Prev, window.cmd1Next);
        setTabOrder(type, name);
        setTabOrder(name, about);
        setTabOrder(about, findChild<QWidget*>("cmd1Next"));

        auto* second = step(window.fraS2);
        auto* where = pathEdit(window.txt2Where);
        field(second, window.lbl2Where, where);
        findChild<QLabel*>("lbl2Where")->setWordWrap(true);
        auto* tools = new QHBoxLayout();
        tools->addWidget(button(window.cmd2Files));
        auto* drop = new QLabel("or drop files, folders and .zip archives here", this);
        tools->addWidget(drop, 1);
        tools->addWidget(link(window.lbl2Copy));
        second->addLayout(tools);
        second->addWidget(progressBar(window.bar2Files));
        second->addWidget(label(window.lbl2Files));
        buttons(second, window.cmd2Prev, window.cmd2Next);

        auto* third = step(window.fraS3);
        auto* readme = field(third, window.lbl3ReadMe, lineEdit(window.txt3ReadMe));
        auto* row = new QHBoxLayout();
        third->removeWidget(readme);
        row->addWidget(readme, 1);
        row->addWidget(button(window.cmd3Browse));
        third->addLayout(row);
        field(third, window.lbl3CCodes, lineEdit(window.txt3CCodes));
        buttons(third, window.cmd3prev, window.cmd3next);
        closeUp();
    }
};

class TamView final : public WizardView {
  public:
    TamView(installers::frmTAM& window, QtToolkit& toolkit) : WizardView(window, toolkit) {
        auto* first = step(window.fra1step);
        field(first, window.lbl1TAMtype, comboBox(window.cbo1TAMtype));
        field(first, window.lbl1VXLtype, comboBox(window.cbo1VXLtype));
        buttons(first, window.cmd1Prev, window.cmd1Next);

        auto* second = step(window.fra2step);
        auto* row = new QHBoxLayout();
        auto* location = lineEdit(window.txt2Loc);
        location->setAccessibleName("TAM Data File");
        row->addWidget(location, 1);
        row->addWidget(button(window.cmd2Browse));
        second->addLayout(row);
        buttons(second, window.cmd2Prev, window.cmd2Next);

        auto* third = step(window.fra3step);
        field(third, window.lbl3info, listBox(window.lst3files));
        buttons(third, window.cmd3prev, window.cmd3next);
        closeUp();
    }
};

} // namespace

std::unique_ptr<WindowView> makeAddView(installers::frmAdd& window, QtToolkit& toolkit) {
    return std::make_unique<AddView>(window, toolkit);
}

std::unique_ptr<WindowView> makeTamView(installers::frmTAM& window, QtToolkit& toolkit) {
    return std::make_unique<TamView>(window, toolkit);
}

} // namespace views
