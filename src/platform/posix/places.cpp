// Absolute paths, and where the running program lies.
#include <cerrno>
#include <filesystem>

#include <csignal>
#include <unistd.h>

#include "platform/disk.h"
#include "platform/text.h"
#include "system_path.h"

namespace platform {

std::string_view rootOf(std::string_view path) {
    return path.starts_with('/') ? path.substr(0, 1) : std::string_view();
}

bool processRuns(unsigned long number) {
    const auto process = static_cast<pid_t>(number);
    return process > 0 && (::kill(process, 0) == 0 || errno != ESRCH);
}

unsigned long processNumber() {
    return static_cast<unsigned long>(::getpid());
}

std::string shownPath(std::string_view path) {
    return replaceAll(path, "\\", "/");
}

std::string programFolder() {
    std::error_code error;
    const auto program = std::filesystem::read_symlink("/proc/self/exe", error);
    return error ? absoluteFolder(".") : program.parent_path().string();
}

std::string programName() {
    std::error_code error;
    // Said of a program whose file was replaced while it runs.
    constexpr std::string_view gone = " (deleted)";
    auto name = std::filesystem::read_symlink("/proc/self/exe", error).filename().string();
    if (name.ends_with(gone))
        name.resize(name.size() - gone.size());
    return name;
}

std::string absoluteFolder(const std::string& folder) {
    std::error_code error;
    auto path =
        std::filesystem::absolute(folder.empty() ? "." : folder, error).lexically_normal().string();
    if (error)
        return folder;
    while (path.size() > 1 && path.ends_with('/'))
        path.pop_back();
    return path;
}

} // namespace platform
