// One rule for both wizards.
#include "windows/steps.h"

namespace windows {

Steps::Steps(const Window& window) {
    for (auto* control : window.controls()) {
        if (dynamic_cast<Frame*>(control) != nullptr)
            steps_.emplace_back();
        if (!steps_.empty() && dynamic_cast<FilePicker*>(control) == nullptr)
            steps_.back().push_back(control);
    }
}

void Steps::goTo(int stepNum) {
    int number = 0;
    for (const auto& step : steps_) {
        ++number;
        for (auto* control : step) {
            control->setEnabled(number == stepNum);
            control->setVisible(number <= stepNum);
        }
    }
}

void tellOf(platform::Questions& questions, Control& field, const std::string& text) {
    questions.tell(text);
    field.window().leadTo(field);
}

} // namespace windows
