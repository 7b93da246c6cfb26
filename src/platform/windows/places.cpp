// Absolute paths, and where the running program lies.
#include <windows.h>

#include "platform/disk.h"
#include "platform/paths.h"
#include "system_path.h"
#include "system_text.h"

namespace platform {

using windows::narrow;
using windows::wide;

std::string_view rootOf(std::string_view path) {
    constexpr std::size_t rootLength = 3;
    const bool isAbsolute = path.size() >= rootLength && isDrive(path.substr(0, 2)) &&
                            (path[2] == '\\' || path[2] == '/');
    return isAbsolute ? path.substr(0, rootLength) : std::string_view();
}

bool processRuns(unsigned long number) {
    HANDLE process = OpenProcess(SYNCHRONIZE, FALSE, number);
    if (process == nullptr)
        return GetLastError() != ERROR_INVALID_PARAMETER;
    const bool runs = WaitForSingleObject(process, 0) != WAIT_OBJECT_0;
    CloseHandle(process);
    return runs;
}

unsigned long processNumber() {
    return GetCurrentProcessId();
}

std::string shownPath(std::string_view path) {
    return std::string(path);
}

namespace {

std::wstring programPath() {
    std::wstring path(32768, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    return path;
}

} // namespace

std::string programFolder() {
    const auto path = programPath();
    return narrow(path.substr(0, path.rfind(L'\\')));
}

std::string programName() {
    const auto path = programPath();
    return narrow(path.substr(path.rfind(L'\\') + 1));
}

std::string absoluteFolder(const std::string& folder) {
    std::wstring path(32768, L'\0');
    path.resize(GetFullPathNameW(wide(folder).c_str(), static_cast<DWORD>(path.size()), path.data(),
                                 nullptr));
    while (path.size() > 3 && path.back() == L'\\')
        path.pop_back();
    return narrow(path);
}

} // namespace platform
