// One step stands in the window at a time, below a line for each that is done; the buttons of all
// steps stand in one row, which shows those of the step at hand.
#include "wizard_views.h"

#include <algorithm>
#include <map>

#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QListWidget>
#include <QProgressBar>
#include <QStackedLayout>
#include <QTimer>
#include <QVBoxLayout>

namespace views {
namespace {

constexpr int gap = 10;
constexpr int smallGap = 6;
constexpr QSize wizardSize(660, 400);
constexpr int barWidth = 180;

class WizardView : public WindowView {
  public:
    WizardView(windows::Window& window, QtToolkit& toolkit) : WindowView(window, toolkit) {
        const windows::Control* frame = nullptr;
        for (const auto* control : window.controls()) {
            if (dynamic_cast<const windows::Frame*>(control) != nullptr)
                frame = control;
            frames_[control] = frame;
        }
        whole_->setContentsMargins(gap, gap, gap, gap);
        whole_->setSpacing(smallGap);
    }

  protected:
    /// The controls of a step that is done are as good as gone.
    bool shows(const windows::Control& control) const override {
        const auto* frame = frames_.at(&control);
        return control.visible() && (frame == nullptr || frame->enabled());
    }

    /// The lines for the steps that are done, and the room for the one at hand.
    void begin(std::initializer_list<windows::Label*> done) {
        for (auto* line : done) {
            auto* text = label(*line, true);
            text->setProperty("quiet", true);
            whole_->addWidget(text);
        }
        whole_->addLayout(steps_, 1);
    }

    /// Takes widgets and rows for one step, from top to bottom.
    QVBoxLayout* step(windows::Frame& frame) {
        auto* box = new QGroupBox(this);
        steps_->addWidget(box);
        bind(frame, box, [this, &frame, box] {
            box->setTitle(shown(frame.text()));
            if (!frame.enabled() || (steps_->currentWidget() == box && wasShown_))
                return;
            wasShown_ = true;
            steps_->setCurrentWidget(box);
            // The fields of the step follow in this same round of changes.
            QTimer::singleShot(0, box, [this, box] { focusFirst(box); });
        });
        auto* column = new QVBoxLayout(box);
        column->setContentsMargins(gap, smallGap, gap, smallGap);
        column->setSpacing(smallGap);
        return column;
    }

    /// What has the focus when the step begins: the first of them that can.
    void first(std::initializer_list<QWidget*> fields) {
        first_[steps_->widget(steps_->count() - 1)] = fields;
    }

    /// Rows of a label and a field beside it.
    QFormLayout* form(QVBoxLayout* column) {
        auto* rows = new QFormLayout();
        rows->setSpacing(smallGap);
        rows->setLabelAlignment(Qt::AlignLeft | Qt::AlignVCenter);
        column->addLayout(rows, 1);
        return rows;
    }
    template <typename Field>
    Field* field(QFormLayout* rows, windows::Label& name, Field* widget) {
        auto* caption = label(name);
        caption->setBuddy(widget);
        const bool isHigh = qobject_cast<QPlainTextEdit*>(widget) != nullptr;
        // A form lets a label grow a little only, and puts it at the top of what is left.
        widget->ensurePolished();
        if (!isHigh)
            caption->setMinimumHeight(widget->sizeHint().height());
        widget->setAccessibleName(shown(name.text()));
        rows->addRow(caption, widget);
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

    struct Pair {
        windows::Button& back;
        windows::Button& next;
        char backLetter = 'P'; ///< of its access key
    };
    /// The one row of buttons, with news of the work on its left.
    void foot(std::initializer_list<QWidget*> news, windows::Button& cancel,
              std::initializer_list<Pair> steps) {
        auto* row = new QHBoxLayout();
        for (auto* widget : news)
            row->addWidget(widget, 1);
        row->addStretch();
        auto* cancelButton = button(cancel, 'C');
        row->addWidget(cancelButton);
        for (const auto& [back, next, letter] : steps) {
            auto* backButton = button(back, QChar::fromLatin1(letter));
            // Most go on, the last one finishes.
            auto* nextButton = button(next, next.text().front());
            nextButton->setDefault(true);
            row->addWidget(backButton);
            row->addWidget(nextButton);
            // Forward is what is wanted more often.
            setTabOrder(nextButton, backButton);
            setTabOrder(backButton, cancelButton);
        }
        whole_->addLayout(row);
        resize(wizardSize.expandedTo(sizeHint()));
    }

    void focusFirst(QWidget* box) {
        for (auto* field : first_[box])
            if (field->isEnabled() && field->isVisible()) {
                field->setFocus(Qt::OtherFocusReason);
                return;
            }
    }

  private:
    std::map<const windows::Control*, const windows::Control*> frames_;
    std::map<QWidget*, std::vector<QWidget*>> first_;
    QVBoxLayout* whole_ = new QVBoxLayout(this);
    QStackedLayout* steps_ = new QStackedLayout();
    bool wasShown_ = false;
};

class AddView final : public WizardView {
  public:
    AddView(windows::frmAdd& window, QtToolkit& toolkit)
        : WizardView(window, toolkit), wizard_(window) {
        begin({&window.lbl1Done, &window.lbl2Done});
        auto* rows = form(step(window.fraS1));
        auto* type = field(rows, window.lbl1Type, comboBox(window.cbo1Type));
        auto* name = field(rows, window.lbl1Name, lineEdit(window.txt1Name));
        auto* about = field(rows, window.lbl1About, textEdit(window.txt1About));
        first({name});

        auto* second = step(window.fraS2);
        auto* where = lineEdit(window.txt2Where);
        field(second, window.lbl2Where, where);
        findChild<QLabel*>("lbl2Where")->setWordWrap(true);
        auto* tools = new QHBoxLayout();
        auto* files = button(window.cmd2Files, 'F');
        tools->addWidget(files);
        tools->addWidget(button(window.cmd2Folder, 'A'));
        tools->addStretch();
        tools->addWidget(link(window.lbl2Copy));
        second->addLayout(tools);
        auto* drop = new QLabel("Files, folders and .zip archives can also be dropped here.", this);
        drop->setProperty("quiet", true);
        second->addWidget(drop);
        auto* list = listBox(window.lst2Files);
        list->setAccessibleName("Copied files");
        second->addWidget(list, 1);
        auto* news = new QHBoxLayout();
        auto* copied = label(window.lbl2Files);
        copied->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
        news->addWidget(copied, 1);
        auto* bar = progressBar(window.bar2Files);
        bar->setMaximumWidth(barWidth);
        news->addWidget(bar);
        second->addLayout(news);
        first({files});

        auto* third = step(window.fraS3);
        auto* readme = field(third, window.lbl3ReadMe, lineEdit(window.txt3ReadMe));
        auto* row = new QHBoxLayout();
        third->removeWidget(readme);
        row->addWidget(readme, 1);
        row->addWidget(button(window.cmd3Browse, 'B'));
        third->addLayout(row);
        auto* codes = field(third, window.lbl3CCodes, lineEdit(window.txt3CCodes));
        third->addStretch();
        first({readme, codes});

        foot({label(window.lblFiles, true)}, window.cmdCancel,
             {{window.cmd1Prev, window.cmd1Next},
              {window.cmd2Prev, window.cmd2Next},
              {window.cmd3prev, window.cmd3next}});
        setTabOrder(type, name);
        setTabOrder(name, about);
        setTabOrder(about, findChild<QWidget*>("cmd1Next"));
    }

  protected:
    QString dropText() const override {
        return wizard_.fraS3.enabled() ? "Files can be dropped in steps 1 and 2"
                                       : "Drop files to copy them into the release";
    }

  private:
    windows::frmAdd& wizard_;
};

class TamView final : public WizardView {
  public:
    TamView(windows::frmTAM& window, QtToolkit& toolkit) : WizardView(window, toolkit) {
        begin({&window.lbl1Done, &window.lbl2Done});
        auto* firstStep = step(window.fra1step);
        auto* rows = form(firstStep);
        auto* tam = field(rows, window.lbl1TAMtype, comboBox(window.cbo1TAMtype));
        field(rows, window.lbl1VXLtype, comboBox(window.cbo1VXLtype));
        first({tam});

        auto* second = step(window.fra2step);
        auto* row = new QHBoxLayout();
        auto* location = lineEdit(window.txt2Loc);
        location->setAccessibleName("TAM Data File");
        row->addWidget(location, 1);
        row->addWidget(button(window.cmd2Browse, 'B'));
        second->addLayout(row);
        second->addStretch();
        first({location});

        auto* third = step(window.fra3step);
        auto* files = field(third, window.lbl3info, listBox(window.lst3files));
        third->setStretchFactor(files, 1);

        foot({}, window.cmdCancel,
             {{window.cmd1Prev, window.cmd1Next},
              {window.cmd2Prev, window.cmd2Next, 'K'},
              {window.cmd3prev, window.cmd3next, 'K'}});
        first({findChild<QWidget*>("cmd3next")});
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
