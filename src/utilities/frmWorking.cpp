// The marker's way round the panel, clockwise, 120 ticks a lap.
#include "utilities/frmWorking.h"

namespace utilities {
namespace {
constexpr int step = 120;
constexpr int rightEnd = 5520;
constexpr int bottomEnd = 1920;
constexpr int nearEnd = 240;
} // namespace

frmWorking::frmWorking(platform::Toolkit& toolkit) : Window("frmWorking", ""), toolkit_(toolkit) {
    tmrMove.tag = "1";
    tmrMove.setEnabled(true);
    tmrMove.onTick = [this] { tmrMove_Timer(); };
}

frmWorking::~frmWorking() {
    toolkit_.unload(*this);
}

void frmWorking::tmrMove_Timer() {
    auto& direction = tmrMove.tag;
    if (direction == "1") {
        shpMove.moveTo(shpMove.left() + step, shpMove.top());
        if (shpMove.left() >= rightEnd)
            direction = "2";
    } else if (direction == "2") {
        shpMove.moveTo(shpMove.left(), shpMove.top() + step);
        if (shpMove.top() >= bottomEnd)
            direction = "3";
    } else if (direction == "3") {
        shpMove.moveTo(shpMove.left() - step, shpMove.top());
        if (shpMove.left() < nearEnd)
            direction = "4";
    } else if (direction == "4") {
        shpMove.moveTo(shpMove.left(), shpMove.top() - step);
        if (shpMove.top() < nearEnd)
            direction = "1";
    }
    toolkit_.doEvents();
}

} // namespace utilities
