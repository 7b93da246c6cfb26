// The panel comes out of the work's own breath, for nothing else runs meanwhile.
#include "windows/slow_work.h"

#include "windows/frmMain.h"

namespace windows {

SlowWork::~SlowWork() {
    if (showsPanel_)
        main_.hideWorking();
}

void SlowWork::breathe() {
    if (!showsPanel_ && !main_.isWorkingShown() &&
        std::chrono::steady_clock::now() - began_ > isLong) {
        showsPanel_ = true;
        main_.showWorking();
    }
    main_.machine().toolkit.doEvents();
}

} // namespace windows
