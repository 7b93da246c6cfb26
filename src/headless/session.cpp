// What the user does goes straight to the controls.
#include "headless/session.h"

#include <utility>

#include "headless/gesture.h"

namespace headless {

using windows::Input;
using windows::Window;

SessionToolkit::SessionToolkit(Script& script, Transcript transcript)
    : user_(script, std::move(transcript)) {}

void SessionToolkit::load(Window& window) {
    loaded_.insert(&window);
}

void SessionToolkit::unload(Window& window) {
    loaded_.erase(&window);
    input_.forget(window);
}

void SessionToolkit::open(Window& window, bool modal) {
    input_.opened(window, modal);
    window.setVisible(true);
    user_.tell(showEvent(window, modal));
}

void SessionToolkit::show(Window& window) {
    open(window, false);
}

void SessionToolkit::hide(Window& window) {
    if (!window.visible())
        return;
    window.setVisible(false);
    input_.closed(window);
    user_.tell(hideEvent(window));
}

void SessionToolkit::minimize(Window& window) {
    user_.tell(minimizeEvent(window));
    user_.beginsToPlay();
}

void SessionToolkit::restore(Window& window) {
    user_.tell(restoreEvent(window));
}

void SessionToolkit::showModal(Window& window) {
    open(window, true);
    while (window.visible())
        waitForUser();
}

windows::MessageAnswer SessionToolkit::showMessage(const windows::MessageBox& box) {
    const auto answer = user_.choose(box);
    user_.tellOfBox(messageEvent(box, answer));
    return answer;
}

std::optional<std::string> SessionToolkit::askForText(const windows::InputBox& box) {
    auto answer = user_.chooseText();
    user_.tellOfBox(inputEvent(box, answer));
    return answer;
}

std::optional<std::string> SessionToolkit::askForFile(const windows::FileDialog& dialog) {
    auto answer = user_.chooseText();
    user_.tellOfBox(fileDialogEvent(dialog, answer));
    return answer;
}

std::vector<std::string> SessionToolkit::askForFiles(const windows::FileDialog& dialog) {
    if (auto file = askForFile(dialog))
        return {std::move(*file)};
    return {};
}

/// Asked for and not written.
std::string SessionToolkit::saveText(const windows::FileDialog& dialog, const std::string& /*name*/,
                                     const std::string& /*text*/) {
    askForFile(dialog);
    return {};
}

void SessionToolkit::setClipboard(const std::string& text) {
    user_.tell(clipboardEvent(text));
}

void SessionToolkit::doEvents() {
    for (const auto& line : user_.takeMeanwhile()) {
        const auto action = actionOf(meanwhileGesture(line, input_.open()));
        if (input_.offer(action, Input::Moment::working) == Input::Fate::refused)
            user_.tell(refusedEvent(line));
    }
}

void SessionToolkit::waitForUser() {
    if (!input_.runNext())
        carryOut(user_.nextLine());
}

void SessionToolkit::waitForTimer() {
    doEvents();
    for (auto* window : loaded_)
        for (auto* control : window->controls())
            if (auto* timer = dynamic_cast<windows::Timer*>(control); timer && timer->enabled())
                input_.tick(*timer);
    input_.runTicks();
}

void SessionToolkit::logged(const std::string& line) {
    user_.tell(logEvent(line));
}

void SessionToolkit::carryOut(const std::string& line) {
    const auto& open = input_.open();
    if (line == "dump")
        return user_.tell(stateEvent(open));
    if (line == "wait")
        return waitForTimers([&] { return open; }, [this] { waitForTimer(); });
    if (open.empty())
        throw BadLine(line);
    const auto gesture = gestureOf(line, {open.back()});
    if (!input_.takes(*gesture.window, gesture.control))
        throw BadLine(line);
    actionOf(gesture).run();
}

} // namespace headless
