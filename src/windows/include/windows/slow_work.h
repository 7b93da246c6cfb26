// Work that mostly is done at once, but not always: where it takes long, the working panel stands
// over the windows until it is over.
#pragma once

#include <chrono>

#include "platform/log.h"

namespace windows {

class frmMain;

class SlowWork final : public platform::Log {
  public:
    explicit SlowWork(frmMain& main) : main_(main) {}
    ~SlowWork() override;
    SlowWork(const SlowWork&) = delete;
    SlowWork& operator=(const SlowWork&) = delete;

    void stage(const std::string& /*text*/) override {}
    void line(const std::string& /*text*/) override {}
    void breathe() override;

    /// How long work may take before a person wonders.
    static constexpr auto isLong = std::chrono::milliseconds(500);

  private:
    frmMain& main_;
    bool showsPanel_ = false;
    std::chrono::steady_clock::time_point began_ = std::chrono::steady_clock::now();
};

} // namespace windows
