// A command line carried out in a test's game directory, told as a session is.
#pragma once

#include <string>

#include "support/play.h"

namespace test {

/// The line as a shell would take it apart: words between blanks, or whole in double quotes. Its
/// events are lines that were printed (`out`, `error`; blank ones left out), programs that were
/// started, and `exit` with what it ended with. Of `how` the toolkit has nothing to do.
Session playCommand(const Game& game, const std::string& commandLine, const Play& how);

} // namespace test
