// Paths and errors between the program's bytes and Windows.
#pragma once

#include <string>
#include <string_view>

namespace platform::windows {

std::wstring wide(std::string_view utf8);
std::string narrow(std::wstring_view text);

/// What the system says of an error number of its own.
std::string messageOf(unsigned long error);

} // namespace platform::windows
