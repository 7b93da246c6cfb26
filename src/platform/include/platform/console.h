// Where a command of the program writes.
#pragma once

namespace platform {

/// Lets the standard streams of a program with windows reach the console that it was started from,
/// where the system gives it none of its own. Streams that lead into a file or a pipe stay.
/// A reader that goes away makes writing fail, and does not end the program in the middle of a
/// move.
void useConsoleOfCaller();

} // namespace platform
