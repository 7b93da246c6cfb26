// A start as an event.
#include "headless/recorded_programs.h"

#include "platform/text.h"

namespace headless {

void RecordedPrograms::start(const platform::Command& command) {
    constexpr const char* states[] = {"normal", "maximized", "minimized"};
    transcript_({{"event", "start"},
                 {"command", platform::toUtf8(shownCommand(command, disk_))},
                 {"window", states[static_cast<int>(command.window)]}});
}

} // namespace headless
