// A start as an event.
#include "headless/recorded_programs.h"

#include "platform/failure.h"
#include "platform/text.h"

namespace headless {
namespace {

class RunsForLooks final : public platform::RunningProgram {
  public:
    explicit RunsForLooks(int looks) : left_(looks) {}
    bool isRunning() override { return left_ > 0 && left_-- > 0; }

  private:
    int left_;
};

} // namespace

void RecordedPrograms::start(const platform::Command& command) {
    if (!failure.empty())
        throw platform::Failure("start", platform::shownPath(command.target), failure);
    constexpr const char* states[] = {"normal", "maximized", "minimized"};
    transcript_({{"event", "start"},
                 {"command", platform::toUtf8(shownCommand(command, disk_))},
                 {"window", states[static_cast<int>(command.window)]}});
}

std::unique_ptr<platform::RunningProgram>
RecordedPrograms::startWatched(const platform::Command& command) {
    start(command);
    return std::make_unique<RunsForLooks>(looksWhileWatched);
}

} // namespace headless
