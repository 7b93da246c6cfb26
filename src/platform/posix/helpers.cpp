// Helpers have the names of commands, which need not be those of packages.
#include "helpers.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <sstream>
#include <string_view>

#include <unistd.h>

#include "platform/programs.h"

namespace platform {
namespace {

struct Helper {
    std::string_view command;
    std::string_view purpose;
    std::string_view package;
    bool isWrapper = false;
};

constexpr Helper helpers[] = {
    {"wine", "which runs programs of Windows", "wine"},
    {"xdg-open", "which opens folders and texts", "xdg-utils"},
    {"gamemoderun", "which speeds the computer up for a game", "gamemode", true},
    {"prime-run", "which gives a game the faster graphics card", "nvidia-prime", true},
    {"mangohud", "which shows figures over a game", "mangohud", true},
    {"gamescope", "which gives a game a screen of its own", "gamescope", true},
    {"firejail", "which keeps a program from the rest of the computer", "firejail", true},
    {"optirun", "which gives a game the faster graphics card", "bumblebee", true},
    {"primusrun", "which gives a game the faster graphics card", "primus", true},
    {"taskset", "which keeps a program on some processors", "util-linux", true},
};

const Helper* helperOf(std::string_view command) {
    const auto* helper = std::find_if(std::begin(helpers), std::end(helpers),
                                      [&](const auto& each) { return each.command == command; });
    return helper == std::end(helpers) ? nullptr : helper;
}

bool isFolder(const std::filesystem::path& path) {
    std::error_code error;
    return std::filesystem::is_directory(path, error);
}

/// Of a prefix that wine has not filled yet the drive alone is there.
std::filesystem::path prefixAbove(std::filesystem::path path) {
    for (; path.has_relative_path(); path = path.parent_path()) {
        std::error_code error;
        if (isFolder(path / "dosdevices") ||
            std::filesystem::is_regular_file(path / "system.reg", error))
            return path;
        if (path.filename() == "drive_c" && isFolder(path))
            return path.parent_path();
    }
    return {};
}

} // namespace

std::string winePrefixOf(const std::string& systemPath) {
    const auto prefix = prefixAbove(systemPath);
    std::error_code error;
    return prefix.empty()
               ? prefixAbove(std::filesystem::weakly_canonical(systemPath, error)).string()
               : prefix.string();
}

namespace posix {

bool isInstalled(const std::string& command) {
    const auto canBeRun = [](const std::string& path) {
        return !isFolder(path) && ::access(path.c_str(), X_OK) == 0;
    };
    if (command.find('/') != std::string::npos)
        return canBeRun(command);
    const auto* path = std::getenv("PATH");
    std::istringstream folders(path == nullptr ? "/bin:/usr/bin" : path);
    for (std::string folder; std::getline(folders, folder, ':');)
        if (canBeRun((folder.empty() ? "." : folder) + "/" + command))
            return true;
    return false;
}

std::string whatToInstall(const std::string& command) {
    const auto* helper = helperOf(command);
    if (helper == nullptr)
        return "There is no command \"" + command + "\".";
    return "\"" + command + "\", " + std::string(helper->purpose) +
           ", is not installed. Please install it: the package is called \"" +
           std::string(helper->package) + "\".";
}

bool isKnownWrapper(const std::string& command) {
    const auto* helper = helperOf(command);
    return helper != nullptr && helper->isWrapper;
}

} // namespace posix
} // namespace platform
