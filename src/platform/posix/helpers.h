// The commands that programs are started with, and the packages that bring them.
#pragma once

#include <string>

namespace platform::posix {

/// Whether a command can be found as a shell would find it.
bool isInstalled(const std::string& command);

/// What people are told of a command that is not: where it is known, with the package that brings
/// it.
std::string whatToInstall(const std::string& command);

/// Whether it is known that a command of this name runs another one.
bool isKnownWrapper(const std::string& command);

} // namespace platform::posix
