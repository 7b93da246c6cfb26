// In a handler next to nothing is allowed but to write to a pipe.
#include "platform/termination.h"

#include <array>
#include <cerrno>
#include <csignal>

#include <fcntl.h>
#include <unistd.h>

namespace platform {
namespace {

std::array<int, 2> ends = {-1, -1};

extern "C" void note(int /*signal*/) {
    const int error = errno;
    const char wish = 1;
    // A full pipe holds wishes enough.
    [[maybe_unused]] const auto written = ::write(ends[1], &wish, 1);
    errno = error;
}

} // namespace

int watchTermination() {
    if (ends[0] != -1)
        return ends[0];
    if (::pipe(ends.data()) != 0)
        return -1;
    for (const int end : ends) {
        ::fcntl(end, F_SETFD, FD_CLOEXEC);
        ::fcntl(end, F_SETFL, O_NONBLOCK);
    }
    struct sigaction action {};
    action.sa_handler = note;
    action.sa_flags = SA_RESTART;
    for (const int signal : {SIGTERM, SIGHUP, SIGINT})
        ::sigaction(signal, &action, nullptr);
    return ends[0];
}

} // namespace platform
