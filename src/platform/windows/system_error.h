// Windows' error numbers as codes that compare with those of every system.
#pragma once

#include <system_error>

#include <windows.h>

namespace platform::windows {

/// ERROR_DIRECTORY_NOT_SUPPORTED, which not every header names.
inline constexpr DWORD errorIsFolder = 336;

std::error_code codeOf(DWORD error);

inline std::error_code lastError() {
    return codeOf(GetLastError());
}

/// What a call that gives back zero for a failure says.
inline std::error_code errorOf(BOOL result) {
    return result != 0 ? std::error_code() : lastError();
}

} // namespace platform::windows
