// The commands, a file each. They throw Stop, WrongUse and Failure, and give back `done` or
// `failed`.
#pragma once

#include "commandline/commands.h"
#include "workspace.h"

namespace commandline {

ExitCode list(Workspace& work);
ExitCode plan(Workspace& work);
ExitCode apply(Workspace& work);
ExitCode launch(Workspace& work);
ExitCode reset(Workspace& work);
ExitCode add(Workspace& work);
ExitCode remove(Workspace& work);
ExitCode set(Workspace& work);
ExitCode check(Workspace& work);

// Without a game directory that is ready.
ExitCode setUp(const Machine& machine, const CommandLine& line);
ExitCode directories(const Machine& machine, const CommandLine& line);

} // namespace commandline
