// Programs that are told of and never started.
#pragma once

#include <memory>
#include <string>
#include <utility>

#include "headless/transcript.h"
#include "platform/disk.h"
#include "platform/programs.h"

namespace headless {

/// Records what would be started.
class RecordedPrograms final : public platform::Programs {
  public:
    RecordedPrograms(platform::Disk& disk, Transcript transcript)
        : disk_(disk), transcript_(std::move(transcript)) {}
    void start(const platform::Command& command) override;
    std::unique_ptr<platform::RunningProgram>
    startWatched(const platform::Command& command) override;
    bool isRunning(const std::string& /*program*/) override {
        return looksWhileRunning > 0 && looksWhileRunning-- > 0;
    }

    /// How many looks still find the game running.
    int looksWhileRunning = 0;
    /// How many looks find a program running that is waited for.
    int looksWhileWatched = 0;
    /// Why none can be started; empty where they can.
    std::string failure;

  private:
    platform::Disk& disk_;
    Transcript transcript_;
};

} // namespace headless
