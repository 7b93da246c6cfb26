// Every program has its standard streams. Whoever reads them may be gone before the work is done.
#include "platform/console.h"

#include <csignal>

namespace platform {

void useConsoleOfCaller() {
    std::signal(SIGPIPE, SIG_IGN);
}

} // namespace platform
