// A program in a job of its own, which all that it starts belong to.
#pragma once

#include <string>

#include "handle.h"
#include "platform/programs.h"

namespace platform::windows {

class WatchedProgram final : public RunningProgram {
  public:
    /// Starts it, with `commandLine` (the program ahead) in `folder`. Gives back why Windows does
    /// not, or ERROR_SUCCESS.
    DWORD start(const std::wstring& program, std::wstring commandLine, const std::wstring& folder,
                WORD showCommand);
    /// Watches one that runs already, without those that it starts.
    void watch(HANDLE process) { process_ = Handle(process); }
    bool isRunning() override;

  private:
    Handle job_;
    Handle process_;
};

} // namespace platform::windows
