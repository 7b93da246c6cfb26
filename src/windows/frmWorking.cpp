// The marker's way round the panel, clockwise, 120 ticks a lap.
#include "windows/frmWorking.h"

namespace windows {
namespace {
constexpr int step = 120;
constexpr int rightEnd = 5520;
constexpr int bottomEnd = 1920;
constexpr int nearEnd = 240;
} // namespace

frmWorking::frmWorking(Toolkit& toolkit) : Window("frmWorking", ""), toolkit_(toolkit) {
    tmrMove.setEnabled(true);
    tmrMove.onTick = [this] { tmrMove_Timer(); };
}

frmWorking::~frmWorking() {
    toolkit_.unload(*this);
}

void frmWorking::tmrMove_Timer() {
    switch (direction_) {
    case Direction::right:
        shpMove.moveTo(shpMove.left() + step, shpMove.top());
        if (shpMove.left() >= rightEnd)
            direction_ = Direction::down;
        break;
    case Direction::down:
        shpMove.moveTo(shpMove.left(), shpMove.top() + step);
        if (shpMove.top() >= bottomEnd)
            direction_ = Direction::left;
        break;
    case Direction::left:
        shpMove.moveTo(shpMove.left() - step, shpMove.top());
        if (shpMove.left() < nearEnd)
            direction_ = Direction::up;
        break;
    case Direction::up:
        shpMove.moveTo(shpMove.left(), shpMove.top() - step);
        if (shpMove.top() < nearEnd)
            direction_ = Direction::right;
        break;
    }
    toolkit_.doEvents();
}

} // namespace windows
