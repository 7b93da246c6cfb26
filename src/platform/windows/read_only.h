// Files that were copied from a CD are still locked against writing.
#pragma once

#include <string>
#include <system_error>

#include "system_error.h"

namespace platform::windows {

/// Makes a call that the lock of the entry at `path` may forbid. Where the call fails without it
/// too, the entry gets its lock back.
template <typename Call>
std::error_code despiteReadOnly(const std::wstring& path, Call&& call) {
    const auto error = call();
    if (error != std::errc::permission_denied)
        return error;
    const auto attributes = GetFileAttributesW(path.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_READONLY) == 0 ||
        SetFileAttributesW(path.c_str(), attributes & ~DWORD{FILE_ATTRIBUTE_READONLY}) == 0)
        return error;
    const auto again = call();
    if (again)
        SetFileAttributesW(path.c_str(), attributes);
    return again;
}

} // namespace platform::windows
