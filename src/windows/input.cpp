// Keeps what may run later and drops what nobody means any more.
#include "windows/input.h"

#include <algorithm>
#include <utility>

namespace windows {
namespace {

template <typename List, typename Value>
bool has(const List& list, const Value& value) {
    return std::find(list.begin(), list.end(), value) != list.end();
}

/// The widget may look as if the action had been done: a tab bar turns to the tab at once.
void showAsItIs(const Action& action) {
    const Element& element = action.control != nullptr ? static_cast<Element&>(*action.control)
                                                       : static_cast<Element&>(*action.window);
    if (element.view != nullptr)
        element.view->changed();
}

} // namespace

void Input::opened(Window& window, bool modal) {
    closed(window);
    open_.push_back(&window);
    if (modal)
        modal_.push_back(&window);
}

void Input::closed(Window& window) {
    std::erase(open_, &window);
    std::erase(modal_, &window);
}

bool Input::isBlocked(const Window& window) const {
    for (auto above = open_.rbegin(); above != open_.rend() && *above != &window; ++above)
        if (has(modal_, *above))
            return true;
    return false;
}

bool Input::takes(const Window& window, const Control* control) const {
    return window.visible() && window.enabled() && !window.resting() && !isBlocked(window) &&
           (control == nullptr || (control->enabled() && control->visible()));
}

Input::Fate Input::offer(Action action, Moment moment) {
    if (moment == Moment::working && action.wish != nullptr) {
        action.wish->noted = true;
        return Fate::noted;
    }
    if (!takes(*action.window, action.control)) {
        showAsItIs(action);
        return Fate::refused;
    }
    actions_.push_back(std::move(action));
    return Fate::kept;
}

bool Input::runNext() {
    while (!actions_.empty()) {
        const auto action = std::move(actions_.front());
        actions_.pop_front();
        if (takes(*action.window, action.control) && (!action.stillMeant || action.stillMeant())) {
            action.run();
            return true;
        }
        showAsItIs(action);
    }
    return false;
}

void Input::tick(Timer& timer) {
    if (!has(ticks_, &timer))
        ticks_.push_back(&timer);
}

bool Input::runTicks() {
    if (ticking_ || ticks_.empty())
        return false;
    struct Ticking {
        bool& flag;
        explicit Ticking(bool& is) : flag(is) { flag = true; }
        ~Ticking() { flag = false; }
    } const ticking(ticking_);
    // A tick that lets events run may bring the next one of a fast timer, which is for next time.
    for (auto pending = ticks_.size(); pending > 0 && !ticks_.empty(); --pending) {
        const auto* timer = ticks_.front();
        ticks_.pop_front();
        const auto onTick = timer->onTick;
        if (timer->enabled() && onTick)
            onTick();
    }
    return true;
}

void Input::forget(Window& window) {
    closed(window);
    std::erase_if(actions_, [&](const Action& action) { return action.window == &window; });
    std::erase_if(ticks_, [&](const Timer* timer) { return &timer->window() == &window; });
}

} // namespace windows
