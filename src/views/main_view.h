// The main window on the screen.
#pragma once

#include <functional>

#include "views/window_view.h"
#include "windows/frmMain.h"

class QAction;
class QLayout;
class QMenu;
class QMenuBar;
class QSplitter;
class QTabBar;

namespace views {

class MainView final : public WindowView {
    Q_OBJECT

  public:
    MainView(windows::frmMain& main, QtToolkit& toolkit);
    ~MainView() override;

    bool isFilled() const override { return isFilled_; }
    bool takeOldPlace() override;

  protected:
    void showRest(bool rests) override;
    /// A launch is the launch button, its key, or the menu.
    void pressDefaultButton() override {}
    QString dropText() const override { return "Drop files, folders or archives to add a release"; }

  private:
    QMenuBar* menuBar();
    QWidget* listSide();
    void addTabKeys(QTabBar* tabs);
    QLineEdit* filterOf(MarkListView* list);
    QWidget* infoSide();
    QWidget* contentsPane();
    QWidget* setupFrame();
    QLayout* undoBar();
    QMenu* listMenu(MarkListView* list);
    void addTilesItem(QMenu* menu, MarkListView* list);
    QAction* commandOf(QMenu* menu, const QString& caption, windows::Control& control);
    void setTabOrderOf(const std::vector<windows::Control*>& controls);

    windows::frmMain& main_;
    QWidget* content_;
    QSplitter* sides_;
    std::function<void()> showTiles_; ///< or rows, as tab and switch want it
    bool isFilled_ = false;
};

} // namespace views
