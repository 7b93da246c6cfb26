// Which paths may be followed below the game directory.
#include "platform/paths.h"

#include <algorithm>

#include "platform/relative_path.h"

namespace platform {

bool isDrive(std::string_view part) {
    const auto letter = part.empty() ? ' ' : static_cast<char>(part.front() | 0x20);
    return part.size() == 2 && part[1] == ':' && letter >= 'a' && letter <= 'z';
}

std::vector<std::string> splitPath(std::string_view path) {
    std::vector<std::string> parts;
    while (!path.empty()) {
        const auto end = path.find('\\');
        if (end != 0)
            parts.emplace_back(path.substr(0, end));
        path.remove_prefix(end == std::string_view::npos ? path.size() : end + 1);
    }
    return parts;
}

bool leadsAway(std::string_view part) {
    if (part == "." || part == "..")
        return true;
    return std::any_of(part.begin(), part.end(), [](char c) {
#ifdef _WIN32
        return c == '/' || c == '\0' || c == ':';
#else
        return c == '/' || c == '\0';
#endif
    });
}

bool isBelow(std::string_view path, std::string_view gameDirectory) {
    return !gameDirectory.empty() && path.starts_with(gameDirectory) &&
           (path.size() == gameDirectory.size() || path[gameDirectory.size()] == '\\');
}

bool isPlainPathBelow(std::string_view path, std::string_view gameDirectory) {
    if (!isBelow(path, gameDirectory))
        return false;
    path.remove_prefix(std::min(gameDirectory.size() + 1, path.size()));
    return RelativePath::accepts(path, PathRules::own());
}

} // namespace platform
