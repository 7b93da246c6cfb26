// Absolute paths, and where the running program lies.
#include <windows.h>

#include "paths.h"
#include "platform/disk.h"
#include "platform/paths.h"
#include "system_path.h"
#include "system_text.h"

namespace platform {

using windows::narrow;
using windows::wide;

namespace {

constexpr std::size_t driveRootSize = 3;
constexpr std::size_t driveSize = 2;
constexpr std::string_view separators = "\\/";
/// What the system takes at most.
constexpr std::size_t longestPath = 32768;

bool isSeparator(char c) {
    return separators.find(c) != std::string_view::npos;
}

/// "\\server\share\" out of a path on a share.
std::string_view shareOf(std::string_view path) {
    const auto server = path.find_first_of(separators, driveSize);
    if (server == std::string_view::npos || server == driveSize)
        return {};
    const auto share = std::min(path.find_first_of(separators, server + 1), path.size());
    if (share == server + 1)
        return {};
    return path.substr(0, std::min(share + 1, path.size()));
}

std::wstring programPath() {
    std::wstring path(longestPath, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    return windows::plainForm(path);
}

} // namespace

std::string_view rootOf(std::string_view path) {
    if (path.empty())
        return {};
    if (isSeparator(path[0])) {
        const bool isOnShare = path.size() > 1 && isSeparator(path[1]);
        return isOnShare ? shareOf(path) : path.substr(0, 1);
    }
    const bool isAbsolute =
        path.size() >= driveRootSize && isDrive(path.substr(0, driveSize)) && isSeparator(path[2]);
    return isAbsolute ? path.substr(0, driveRootSize) : std::string_view();
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

std::string programFolder() {
    const auto path = programPath();
    return narrow(path.substr(0, path.rfind(L'\\')));
}

std::string programName() {
    const auto path = programPath();
    return narrow(path.substr(path.rfind(L'\\') + 1));
}

std::string absoluteFolder(const std::string& folder) {
    std::wstring path(longestPath, L'\0');
    path.resize(GetFullPathNameW(folder.empty() ? L"." : wide(folder).c_str(),
                                 static_cast<DWORD>(path.size()), path.data(), nullptr));
    if (path.empty())
        return folder;
    path = windows::plainForm(path);
    while (path.ends_with(L'\\'))
        path.pop_back();
    return narrow(path);
}

} // namespace platform
