// Programs that are told of and never started.
#pragma once

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
    bool isRunning(const std::string& /*program*/) override {
        return looksWhileRunning > 0 && looksWhileRunning-- > 0;
    }

    /// How many looks still find the game running.
    int looksWhileRunning = 0;

  private:
    platform::Disk& disk_;
    Transcript transcript_;
};

} // namespace headless
