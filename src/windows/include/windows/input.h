// What the user and the timers do, from the moment it is done until the logic hears of it. Every
// toolkit hands its events to an Input, so all of them keep and drop the same.
#pragma once

#include <deque>
#include <vector>

#include "windows/actions.h"

namespace windows {

class Input {
  public:
    /// What the program does while the user does something.
    enum class Moment { waiting, working };
    enum class Fate { kept, noted, refused };

    void opened(Window& window, bool modal);
    void closed(Window& window);
    /// The open windows, the topmost last.
    const std::vector<Window*>& open() const { return open_; }
    /// Whether the user can act on the window, and on the control if there is one.
    bool takes(const Window& window, const Control* control) const;

    /// While the program works, a wish is noted, whatever rests; that is all that comes of it. Else
    /// the action is refused where window or control takes no input, and kept where they do.
    Fate offer(Action action, Moment moment);
    /// Runs the oldest action kept that is wanted still, and drops those before it. False if there
    /// was none.
    bool runNext();

    /// A timer has at most one tick pending.
    void tick(Timer& timer);
    /// Runs the ticks that are pending, of timers that are enabled still. Does nothing while one of
    /// them runs. Tells whether there were any.
    bool runTicks();

    /// The window goes, and with it all that waits for it.
    void forget(Window& window);

  private:
    bool isBlocked(const Window& window) const;

    std::vector<Window*> open_;
    std::vector<const Window*> modal_;
    std::deque<Action> actions_;
    std::deque<Timer*> ticks_;
    bool ticking_ = false;
};

} // namespace windows
