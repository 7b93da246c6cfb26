// Steps stand one above the other; each is a group with its buttons along its foot.
#include "wizard_views.h"

#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QListWidget>
#include <QProgressBar>
#include <QScreen>
#include <QTimer>
#include <QVBoxLayout>

namespace views {
namespace {

constexpr int gap = 8;
constexpr int smallGap = 6;
constexpr int wizardWidth = 640;
/// All three steps are to have room on a small screen.
constexpr int aboutHeight = 76;
constexpr int barWidth = 140;

class WizardView : public WindowView {
  public:
    WizardView(windows::Window& window, QtToolkit& toolkit) : WindowView(window, toolkit) {
        resize(wizardWidth, 0);
    }

  protected:
    /// Takes widgets and rows for one step, from top to bottom.
    QVBoxLayout* step(windows::Frame& frame) {
        auto* box = new QGroupBox(this);
        bind(frame, box, [this, &frame, box] {
            box->setTitle(shown(frame.text()));
            // The other controls of the step follow in this same round of changes.
            if (box->isVisibleTo(this) != frame.visible())
                QTimer::singleShot(0, this, [this] { fitHeight(); });
        });
        whole()->addWidget(box);
        auto* column = new QVBoxLayout(box);
        column->setContentsMargins(gap, 2, gap, 2);
        column->setSpacing(smallGap);
        return column;
    }

    /// Rows of a label and a field beside it.
    QFormLayout* form(QVBoxLayout* column) {
        auto* rows = new QFormLayout();
        rows->setSpacing(smallGap);
        rows->setLabelAlignment(Qt::AlignLeft);
        column->addLayout(rows);
        return rows;
    }
    template <typename Field>
    Field* field(QFormLayout* rows, windows::Label& name, Field* widget) {
        widget->setAccessibleName(shown(name.text()));
        rows->addRow(label(name), widget);
        return widget;
    }

    /// A field with its label above it.
    template <typename Field>
    Field* field(QVBoxLayout* column, windows::Label& name, Field* widget) {
        auto* caption = label(name);
        caption->setBuddy(widget);
        widget->setAccessibleName(shown(name.text()));
        column->addWidget(caption);
        column->addWidget(widget);
        return widget;
    }

    /// Beside them there is room for news of the step.
    QHBoxLayout* buttons(QVBoxLayout* column, windows::Button& back, windows::Button& next) {
        auto* row = new QHBoxLayout();
        auto* news = new QHBoxLayout();
        news->addStretch();
        row->addLayout(news, 1);
        auto* backButton = button(back);
        auto* nextButton = button(next);
        nextButton->setDefault(true);
        row->addWidget(backButton);
        row->addWidget(nextButton);
        column->addLayout(row);
        // Forward is what is wanted more often.
        setTabOrder(nextButton, backButton);
        return news;
    }

  private:
    void fitHeight() {
        resize(width(), sizeHint().height());
        const int below = frameGeometry().bottom() - screen()->availableGeometry().bottom();
        if (below > 0)
            move(x(), std::max(screen()->availableGeometry().top(), y() - below));
    }

    QVBoxLayout* whole() {
        if (layout() == nullptr)
            (new QVBoxLayout(this))->setSpacing(gap);
        return static_cast<QVBoxLayout*>(layout());
    }
};

class AddView final : public WizardView {
  public:
    AddView(windows::frmAdd& window, QtToolkit& toolkit) : WizardView(window, toolkit) {
        auto* first = step(window.fraS1);
        auto* rows = form(first);
        auto* type = field(rows, window.lbl1Type, comboBox(window.cbo1Type));
        auto* name = field(rows, window.lbl1Name, lineEdit(window.txt1Name));
        auto* about = field(rows, window.lbl1About, textEdit(window.txt1About));
        about->setFixedHeight(aboutHeight);
        buttons(first, window.cmd1Prev, window.cmd1Next);
        setTabOrder(type, name);
        setTabOrder(name, about);
        setTabOrder(about, findChild<QWidget*>("cmd1Next"));

        auto* second = step(window.fraS2);
        auto* where = lineEdit(window.txt2Where);
        field(second, window.lbl2Where, where);
        findChild<QLabel*>("lbl2Where")->setWordWrap(true);
        auto* tools = new QHBoxLayout();
        tools->addWidget(button(window.cmd2Files));
        tools->addWidget(button(window.cmd2Folder));
        auto* drop = new QLabel("or drop files and .zip archives here", this);
        tools->addWidget(drop, 1);
        tools->addWidget(link(window.lbl2Copy));
        second->addLayout(tools);
        auto* news = buttons(second, window.cmd2Prev, window.cmd2Next);
        auto* copied = label(window.lbl2Files);
        copied->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
        news->addWidget(copied, 1);
        auto* bar = progressBar(window.bar2Files);
        bar->setMaximumWidth(barWidth);
        news->addWidget(bar);

        auto* third = step(window.fraS3);
        auto* readme = field(third, window.lbl3ReadMe, lineEdit(window.txt3ReadMe));
        auto* row = new QHBoxLayout();
        third->removeWidget(readme);
        row->addWidget(readme, 1);
        row->addWidget(button(window.cmd3Browse));
        third->addLayout(row);
        field(third, window.lbl3CCodes, lineEdit(window.txt3CCodes));
        buttons(third, window.cmd3prev, window.cmd3next);
    }
};

class TamView final : public WizardView {
  public:
    TamView(windows::frmTAM& window, QtToolkit& toolkit) : WizardView(window, toolkit) {
        auto* first = step(window.fra1step);
        auto* rows = form(first);
        field(rows, window.lbl1TAMtype, comboBox(window.cbo1TAMtype));
        field(rows, window.lbl1VXLtype, comboBox(window.cbo1VXLtype));
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
    }
};

} // namespace

std::unique_ptr<WindowView> makeAddView(windows::frmAdd& window, QtToolkit& toolkit) {
    return std::make_unique<AddView>(window, toolkit);
}

std::unique_ptr<WindowView> makeTamView(windows::frmTAM& window, QtToolkit& toolkit) {
    return std::make_unique<TamView>(window, toolkit);
}

} // namespace views
