// Absolute paths in Windows' three forms: below a drive, on a share, and raw, which has no limit of
// 260 characters and no names that mean something else.
#pragma once

#include <string>
#include <string_view>

namespace platform::windows {

/// "C:\games" and "\\server\share" out of "\\?\C:\games" and "\\?\UNC\server\share".
std::wstring plainForm(std::wstring_view path);

/// The other way round. Slashes become backslashes; a path that names no drive and no share gets
/// the drive of the current folder. Empty for bytes that are no text.
std::wstring rawForm(std::string_view path);

} // namespace platform::windows
