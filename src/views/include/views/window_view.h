// What the views of all windows share: widgets made for controls and tied to them.
#pragma once

#include <memory>
#include <vector>

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QTabBar>
#include <QWidget>

#include "views/binding.h"
#include "windows/actions.h"

class QComboBox;
class QListWidget;
class QProgressBar;

namespace views {

class DropHint;
class MarkListView;
class PictureView;
class QtToolkit;
class TreeView;

/// One window of the logic on the screen. Makes a widget for each control, named as the control is,
/// and passes what the user does to the toolkit, which hands it to the logic in its own time. A
/// resting window greys its controls, save those that have a wish.
class WindowView : public QWidget {
    Q_OBJECT

  public:
    WindowView(windows::Window& window, QtToolkit& toolkit);

    /// False while what it shows is not there yet.
    virtual bool isFilled() const { return true; }
    /// Goes where it was when it was open last, in this run of the program or an earlier one. False
    /// where that is not known.
    virtual bool takeOldPlace() { return false; }

  protected:
    QLabel* label(windows::Label& control, bool heading = false);
    QPushButton* link(windows::Label& control);
    /// With a letter, Alt and that key press it. It is underlined in the caption; one without it
    /// has the first letter instead.
    QPushButton* button(windows::Button& control, QChar letter = {});
    /// One whose text may be longer than there is room.
    QPushButton* elidedButton(windows::Button& control, QChar letter);
    QCheckBox* checkBox(windows::CheckBox& control, QChar letter = {});
    QLineEdit* lineEdit(windows::TextBox& control);
    QPlainTextEdit* textEdit(windows::TextBox& control);
    QTabBar* tabBar(windows::TabStrip& control);
    QComboBox* comboBox(windows::ComboBox& control);
    QListWidget* listBox(windows::ListBox& control);
    /// As large as it is to be at 96 dots an inch.
    PictureView* picture(windows::PictureBox& control, QSize size);
    QProgressBar* progressBar(windows::ProgressBar& control);
    MarkListView* markList(windows::MarkList& control);
    TreeView* treeList(windows::TreeList& control);
    void timer(windows::Timer& control);

    /// Ties a widget's text, state and visibility to a control's.
    void bind(windows::Control& control, QWidget* widget, std::function<void()> showText);
    void addBinding(windows::Element& element, std::function<void()> refresh);
    /// Hands on what the user did.
    void post(windows::Action action);
    /// Whether the control's widget is to look as if it could be used.
    bool takesInput(const windows::Control& control) const;
    /// Whether the control's widget is to be seen.
    virtual bool shows(const windows::Control& control) const { return control.visible(); }
    /// What stands over the window while files are dragged over it.
    virtual QString dropText() const { return "Drop files here"; }
    /// What Enter does where no button has the focus.
    virtual void pressDefaultButton();
    virtual void showRest(bool rests);
    /// A widget that is no control's and rests with the window.
    void restToo(QWidget* widget) { restToo_.push_back(widget); }

    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

    windows::Window& window_;
    QtToolkit& toolkit_;

  private:
    QPushButton* bindButton(windows::Button& control, QPushButton* widget, QChar letter);
    /// Tells the logic when the user leaves a box for another control.
    void watchLeaving(windows::TextBox& control, QWidget* widget);

    std::vector<std::unique_ptr<Binding>> bindings_;
    std::vector<QWidget*> restToo_;
    DropHint* dropHint_ = nullptr;
    QPointer<QWidget> hadFocus_; ///< before the window rested
    bool rests_ = false;
};

std::unique_ptr<WindowView> makeView(windows::Window& window, QtToolkit& toolkit);

} // namespace views
