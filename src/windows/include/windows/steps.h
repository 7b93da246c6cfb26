// The wizards' rule of steps: earlier ones stay in view, greyed; later ones are hidden.
#pragma once

#include <string>
#include <vector>

#include "platform/questions.h"
#include "windows/controls.h"

namespace windows {

class Steps {
  public:
    /// Takes the window's controls in their order: each step begins with its frame. What stands
    /// ahead of the first frame, and a file dialog, takes no part.
    explicit Steps(const Window& window);

    /// Steps count from 1.
    void goTo(int stepNum);

  private:
    std::vector<std::vector<Control*>> steps_;
};

/// Tells of something that is wrong in a field, and leads the user there.
void tellOf(platform::Questions& questions, Control& field, const std::string& text);

} // namespace windows
