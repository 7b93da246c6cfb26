// The "please wait" panel with a marker that circles its edge while something slow runs.
#pragma once

#include "windows/controls.h"
#include "windows/toolkit.h"

namespace windows {

/// Places are in twips. The marker moves only while the running work lets events run.
class frmWorking : public Window {
  public:
    static constexpr int innerWidth = 5895;
    static constexpr int innerHeight = 2325;

    explicit frmWorking(Toolkit& toolkit);
    ~frmWorking() override;
    frmWorking(const frmWorking&) = delete;
    frmWorking& operator=(const frmWorking&) = delete;

    Label lblWorking1{*this, "lblWorking1", "Working..."};
    Label lblWorking2{*this, "lblWorking2", "Please Wait."};
    Shape shpMove{*this, "shpMove", 120, 120, 255};
    Timer tmrMove{*this, "tmrMove", 1};

    void tmrMove_Timer();

  private:
    enum class Direction { right, down, left, up };

    Toolkit& toolkit_;
    Direction direction_ = Direction::right;
};

} // namespace windows
