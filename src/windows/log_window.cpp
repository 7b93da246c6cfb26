// The first stage is the window's whole first text; all else is appended.
#include "windows/log_window.h"

#include <utility>

namespace windows {

void LogWindow::open(const std::string& title, const std::string& heading, Shows when) {
    window_.Form_Load();
    window_.setText(title);
    window_.lblWhat.setText(heading);
    window_.txtReadme.setText("");
    isOpen_ = true;
    hasText_ = false;
    hasProgress_ = false;
    if (when == Shows::withText)
        return;
    toolkit_.show(window_);
    toolkit_.doEvents();
}

void LogWindow::close() {
    isOpen_ = false;
    window_.barDone.setVisible(false);
    barElsewhere_.setVisible(false);
    toolkit_.hide(window_);
}

void LogWindow::stage(const std::string& text) {
    if (std::exchange(hasText_, true))
        return line(text);
    window_.setLogText(text);
    if (!window_.visible())
        toolkit_.show(window_);
    breathe();
    for (const auto& answered : std::exchange(answeredAlike_, {}))
        line(answered);
}

void LogWindow::line(const std::string& text) {
    window_.appendLogLine(text);
}

void LogWindow::breathe() {
    toolkit_.doEvents();
    if (!isOpen_ || !std::exchange(window_.closing.noted, false))
        return;
    toolkit_.hide(window_);
    barElsewhere_.setVisible(window_.barDone.visible());
}

/// Nobody sees more steps than there are dots.
void LogWindow::progress(std::size_t done, std::size_t all) {
    constexpr std::size_t steps = 500;
    if (!isOpen_ || (hasProgress_ && done % (all / steps + 1) != 0 && done != all))
        return;
    for (auto* bar : {&window_.barDone, &barElsewhere_})
        bar->setDone(done, all);
    if (std::exchange(hasProgress_, true))
        return;
    window_.barDone.setVisible(true);
    barElsewhere_.setVisible(!window_.visible());
}

void LogWindow::tellAnsweredAlike(const std::string& text) {
    if (isOpen_ && hasText_)
        line(text);
    else
        answeredAlike_.push_back(text);
}

} // namespace windows
