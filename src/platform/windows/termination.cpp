// The end of a session comes to the windows as a message of their own.
#include "platform/termination.h"

namespace platform {

int watchTermination() {
    return -1;
}

} // namespace platform
