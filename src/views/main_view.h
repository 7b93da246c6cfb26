// The main window on the screen.
#pragma once

#include "views/window_view.h"
#include "windows/frmMain.h"

class QLayout;
class QMenuBar;

namespace views {

class MainView final : public WindowView {
    Q_OBJECT

  public:
    MainView(windows::frmMain& main, QtToolkit& toolkit);

  private:
    QMenuBar* menuBar();
    QWidget* listSide();
    QLineEdit* filterOf(MarkListView* list);
    QWidget* infoSide();
    QWidget* setupFrame();
    void setTabOrderOf(const std::vector<windows::Control*>& controls);

    windows::frmMain& main_;
};

} // namespace views
