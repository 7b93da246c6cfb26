// Scanners, indexers and editors hold a file for a moment; who asks again gets it.
#pragma once

#include <atomic>
#include <chrono>
#include <system_error>
#include <thread>

#include "system_error.h"

namespace platform::windows {

/// Whether the error may be gone in a moment.
bool mayPass(std::error_code error);

/// Tries a call again for up to two seconds. Where waiting was in vain over and over, as in a
/// folder that is closed to the user, it waits no more for a while.
class Patience {
  public:
    template <typename Call>
    std::error_code with(Call&& call) {
        using namespace std::chrono_literals;
        auto error = call();
        if (!mayPass(error) || isSpent())
            return error;
        const auto start = Clock::now();
        for (auto step = shortest; mayPass(error) && Clock::now() - start < longest;
             step = std::min<std::chrono::milliseconds>(2 * step, longestStep)) {
            std::this_thread::sleep_for(step);
            error = call();
        }
        if (mayPass(error))
            noteVain(Clock::now() - start);
        return error;
    }

  private:
    using Clock = std::chrono::steady_clock;
    static constexpr std::chrono::milliseconds shortest{10};
    static constexpr std::chrono::milliseconds longestStep{100};
    static constexpr std::chrono::seconds longest{2};
    static constexpr std::chrono::seconds mostInVain{10};
    static constexpr std::chrono::seconds untilNewHope{60};

    bool isSpent() const {
        return inVain_.load() >= Clock::duration(mostInVain).count() &&
               Clock::now().time_since_epoch().count() - lastVain_.load() <
                   Clock::duration(untilNewHope).count();
    }

    void noteVain(Clock::duration waited) {
        const auto now = Clock::now().time_since_epoch().count();
        if (now - lastVain_.exchange(now) >= Clock::duration(untilNewHope).count())
            inVain_ = 0;
        inVain_ += waited.count();
    }

    std::atomic<Clock::rep> inVain_ = 0;
    std::atomic<Clock::rep> lastVain_ = 0;
};

} // namespace platform::windows
