// The main window on the screen.
#pragma once

#include "engine/frmMain.h"
#include "views/window_view.h"

class QLayout;
class QMenuBar;

namespace views {

class MainView final : public WindowView {
    Q_OBJECT

  public:
    MainView(engine::frmMain& main, QtToolkit& toolkit);

  private:
    QMenuBar* menuBar();
    QWidget* listSide();
    QLineEdit* filterOf(MarkListView* list);
    QWidget* infoSide();
    QWidget* setupFrame();
    void setTabOrderOf(std::initializer_list<windows::Control*> controls);

    engine::frmMain& main_;
};

} // namespace views
