// What a program is started with, taken apart as a shell would.
#pragma once

#include <string>
#include <vector>

namespace platform::posix {

struct Wrapper {
    std::vector<std::string> variables; ///< NAME=VALUE
    std::vector<std::string> words;     ///< the command and its arguments; none where it is empty
};

/// Blanks set words off, outside quotes; a backslash takes the next letter as it is. Nothing is
/// expanded. Throws Failure for a quote that is open at the end.
Wrapper wrapperOf(const std::string& text);

/// The first of its commands that is not installed, as far as they are known to be commands; empty
/// where all are.
std::string missingCommand(const Wrapper& wrapper);

} // namespace platform::posix
