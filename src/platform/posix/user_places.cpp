// By the variables that desktops agree on.
#include "platform/user_places.h"

#include <cerrno>
#include <cstdlib>
#include <filesystem>

#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/disk.h"
#include "platform/failure.h"

namespace platform {
namespace {

std::string variable(const char* name) {
    const auto* value = std::getenv(name);
    return value == nullptr ? "" : value;
}

/// A relative one counts as none: it would be another one in each folder.
std::string folderBy(const char* name) {
    auto folder = variable(name);
    return folder.starts_with('/') ? absoluteFolder(folder) : "";
}

std::string homeFolder() {
    if (auto home = folderBy("HOME"); !home.empty())
        return home;
    const auto* user = ::getpwuid(::getuid());
    return user == nullptr ? "" : user->pw_dir;
}

std::string below(const std::string& folder, const char* path) {
    return folder.empty() ? "" : folder + "/" + path;
}

} // namespace

UserPlaces userPlaces() {
    UserPlaces places;
    places.current = absoluteFolder(".");
    places.home = homeFolder();
    const auto settings = folderBy("XDG_CONFIG_HOME");
    places.settings =
        below(settings.empty() ? below(places.home, ".config") : settings, "vexillum");
    places.data = folderBy("XDG_DATA_HOME");
    if (places.data.empty())
        places.data = below(places.home, ".local/share");
    places.winePrefix = folderBy("WINEPREFIX");
    return places;
}

std::string stockFolder() {
    auto folder = folderBy("VEXILLUM_STOCK");
    if (folder.empty())
        folder = absoluteFolder(programFolder() + "/" VEXILLUM_STOCK_FOLDER);
    std::error_code error;
    return std::filesystem::is_directory(folder, error) ? folder : "";
}

void makeFolders(const std::string& folder) {
    std::error_code error;
    if (std::filesystem::is_directory(folder, error))
        return;
    const auto above = std::filesystem::path(folder).parent_path().string();
    if (above != folder)
        makeFolders(above);
    if (::mkdir(folder.c_str(), S_IRWXU) != 0 && errno != EEXIST)
        throw Failure("mkdir", folder, std::error_code(errno, std::generic_category()));
}

std::string realFolder(const std::string& folder) {
    std::error_code error;
    const auto real = std::filesystem::canonical(folder, error);
    return error ? folder : real.string();
}

} // namespace platform
