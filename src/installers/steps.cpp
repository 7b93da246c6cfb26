// One rule for both wizards.
#include "installers/steps.h"

#include <cstdlib>

namespace installers {

void tagBySteps(platform::Window& window) {
    int step = 0;
    for (auto* control : window.controls()) {
        if (dynamic_cast<platform::Frame*>(control) != nullptr)
            ++step;
        control->tag = std::to_string(step);
    }
}

void gotoStep(platform::Window& window, int stepNum) {
    for (auto* control : window.controls()) {
        const int tag = std::atoi(control->tag.c_str());
        if (tag == -1)
            continue;
        control->setEnabled(tag == stepNum);
        control->setVisible(tag <= stepNum);
    }
}

} // namespace installers
