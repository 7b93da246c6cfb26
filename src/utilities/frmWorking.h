// The "please wait" panel with a marker that circles its edge while something slow runs.
#pragma once

#include "windows/controls.h"
#include "windows/toolkit.h"

namespace utilities {

/// Places are in twips. The marker moves only while the running work lets events run.
class frmWorking : public platform::Window {
  public:
    static constexpr int innerWidth = 5895;
    static constexpr int innerHeight = 2325;

    explicit frmWorking(platform::Toolkit& toolkit);
    ~frmWorking() override;
    frmWorking(const frmWorking&) = delete;
    frmWorking& operator=(const frmWorking&) = delete;

    platform::Label lblWorking1{*this, "lblWorking1", "Working..."};
    platform::Label lblWorking2{*this, "lblWorking2", "Please Wait."};
    platform::Shape shpMove{*this, "shpMove", 120, 120, 255};
    platform::Timer tmrMove{*this, "tmrMove", 1};

    void tmrMove_Timer();

  private:
    platform::Toolkit& toolkit_;
};

} // namespace utilities
