// The user of a scripted session: what he does next, what he answers, what he does while the
// program works. Whatever windows a session is played on, its user is this one.
#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "headless/script.h"
#include "headless/transcript.h"

namespace headless {

/// The program shows one box after the other without end.
struct TooManyBoxes {};

inline constexpr int mostBoxesInARow = 10'000;

/// What a script line `wait` does: lets timers tick, by the call, until none of these windows runs
/// one. Throws BadLine where that takes longer than anybody would wait.
void waitForTimers(const std::function<std::vector<windows::Window*>()>& windows,
                   const std::function<void()>& tick);

class ScriptedUser {
  public:
    ScriptedUser(Script& script, Transcript transcript);

    /// What he does next where the program waits for him; answers, `meanwhile` and `playing` lines
    /// on the way are put aside. Throws ScriptEnd.
    std::string nextLine();

    /// The lines that he does while the program works, without their `meanwhile`. Each is given
    /// once. Until the program has waited for him, those that the script goes on with are among
    /// them. Costs next to nothing where there are none.
    std::vector<std::string> takeMeanwhile();

    /// The game runs and he sits before it: `playing` lines are done the next time that the program
    /// lets events run.
    void beginsToPlay();

    /// His answer to a box. Throws BadLine for one that the box does not know.
    windows::MessageAnswer choose(const windows::MessageBox& box);
    /// Nothing where he cancels.
    std::optional<std::string> chooseText();

    void tell(const Event& event) const { transcript_(event); }
    /// Tells of a box. Throws TooManyBoxes.
    void tellOfBox(const Event& event);

  private:
    std::optional<std::string> nextAnswer();

    Script& script_;
    Transcript transcript_;
    std::deque<std::string> answers_;
    std::vector<std::string> meanwhile_;
    std::vector<std::string> playing_;
    bool wasWaitedFor_ = false;
    int boxes_ = 0;
};

} // namespace headless
