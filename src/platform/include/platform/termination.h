// The system's wish that the program end: a signal, as the end of a session or a person sends it.
#pragma once

namespace platform {

/// From the first call on such a wish ends the program no more; a byte can be read for each from
/// the descriptor that is given back, for as long as the program runs. -1 where the system has
/// nothing of the kind, or could not set it up.
int watchTermination();

} // namespace platform
