// Text between the program's bytes and Windows. The program's are UTF-8, and lone surrogates, which
// Windows allows in names, are written as if they were letters, so that every name comes back.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace platform::windows {

/// Nothing for bytes that stand for no text of Windows.
std::optional<std::wstring> toWide(std::string_view utf8);
std::string narrow(std::wstring_view text);

/// For texts that are shown or handed on: bytes that stand for nothing become a mark for that.
std::wstring wide(std::string_view utf8);

/// What the system says of an error number of its own.
std::string messageOf(unsigned long error);

} // namespace platform::windows
