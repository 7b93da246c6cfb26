// What differs between the systems in an absolute path, and the number of the running process.
#pragma once

#include <string_view>

namespace platform {

/// The head of an absolute path that is no name of an entry; empty if the path is not absolute.
std::string_view rootOf(std::string_view path);

inline constexpr char systemSeparator =
#ifdef _WIN32
    '\\';
#else
    '/';
#endif

unsigned long processNumber();
/// Whether a process of that number runs; true where the system does not tell.
bool processRuns(unsigned long number);

} // namespace platform
