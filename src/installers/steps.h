// The wizards' rule of steps: earlier ones stay in view, greyed; later ones are hidden.
#pragma once

#include "windows/controls.h"

namespace installers {

/// Tags the controls, which stand in the order of their steps, each step led by its frame.
void tagBySteps(platform::Window& window);

/// A control's tag is the number of its step; one with the tag "-1" takes no part.
void gotoStep(platform::Window& window, int stepNum);

} // namespace installers
