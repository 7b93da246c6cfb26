// A program and all that it started, told apart by a variable in their environment. Children
// inherit it whatever becomes of their parents, and whether they leave their session or not. To
// adopt orphans instead (PR_SET_CHILD_SUBREAPER) would mix them with those of editors and file
// managers.
#pragma once

#include <map>
#include <string>
#include <vector>

#include <sys/types.h>

#include "platform/programs.h"

namespace platform::posix {

class WatchedProgram final : public RunningProgram {
  public:
    WatchedProgram();

    /// What the program's environment must hold, as NAME=VALUE. No two programs have the same.
    const std::string& mark() const { return mark_; }
    void started(pid_t process);
    bool isRunning() override;

  private:
    struct Process {
        pid_t number;
        pid_t parent;
        unsigned long long start; ///< in ticks of the system; with the number it is unique
        std::string name;
    };
    using Known = std::map<pid_t, unsigned long long>;

    static std::vector<Process> processesSince(unsigned long long start);
    bool look();
    bool isOurs(const Process& process, const Known& ours) const;

    std::string mark_;
    pid_t first_ = 0;
    unsigned long long since_ = 0;
    /// By the last look. Whoever clears its environment is known by its parent.
    Known known_;
};

} // namespace platform::posix
