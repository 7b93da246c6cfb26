// What the views of all windows share: widgets made for controls and tied to them.
#pragma once

#include <memory>
#include <vector>

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabBar>
#include <QWidget>

#include "windows/controls.h"
#include "views/binding.h"

class QComboBox;
class QListWidget;
class QProgressBar;

namespace views {

class MarkListView;
class QtToolkit;

/// One window of the logic on the screen. Makes a widget for each control, named as the control is,
/// and passes what the user does to the toolkit, which hands it to the logic in its own time.
class WindowView : public QWidget {
    Q_OBJECT

  public:
    WindowView(platform::Window& window, QtToolkit& toolkit);

  protected:
    QLabel* label(platform::Label& control, bool heading = false);
    QPushButton* link(platform::Label& control);
    QPushButton* button(platform::Button& control);
    QLineEdit* lineEdit(platform::TextBox& control);
    QPlainTextEdit* textEdit(platform::TextBox& control);
    QTabBar* tabBar(platform::TabStrip& control);
    QComboBox* comboBox(platform::ComboBox& control);
    QListWidget* listBox(platform::ListBox& control);
    QProgressBar* progressBar(platform::ProgressBar& control);
    MarkListView* markList(platform::MarkList& control);
    void timer(platform::Timer& control);

    /// Ties a widget's text, state and visibility to a control's.
    void bind(platform::Control& control, QWidget* widget, std::function<void()> showText);
    void addBinding(platform::Element& element, std::function<void()> refresh);
    /// Hands an action of the user to the logic, if the control takes input then.
    void post(platform::Control& control, std::function<void()> action);

    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

    platform::Window& window_;
    QtToolkit& toolkit_;

  private:
    /// Tells the logic when the user leaves a box for another control.
    void watchLeaving(platform::TextBox& control, QWidget* widget);
    void pressDefaultButton();

    std::vector<std::unique_ptr<Binding>> bindings_;
};

std::unique_ptr<WindowView> makeView(platform::Window& window, QtToolkit& toolkit);

} // namespace views
