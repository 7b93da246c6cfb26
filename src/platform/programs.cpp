// How a command reads.
#include "platform/programs.h"

#include <filesystem>
#include <fstream>

#include "platform/disk.h"

namespace platform {

#ifdef _WIN32
constexpr auto opener = "open";
#else
constexpr auto opener = "xdg-open";
#endif

bool needsWine(const std::string& systemPath) {
#ifdef _WIN32
    static_cast<void>(systemPath);
    return false;
#else
    std::error_code error;
    if (!std::filesystem::is_regular_file(systemPath, error))
        return false;
    std::ifstream file(systemPath, std::ios::binary);
    std::string head(2, ' ');
    return file.read(head.data(), 2) && head == "MZ";
#endif
}

std::string shownCommand(const Command& command, Disk& disk) {
    const auto path = shownPath(command.target);
    if (command.kind == Command::Kind::open)
        return std::string(opener) + " \"" + path + "\"";
    auto text = command.wrapper.empty() ? "" : command.wrapper + " ";
    text += (needsWine(disk.systemPath(command.target)) ? "wine " : "") + path;
    for (const auto& word : command.words)
        text += word.find(' ') == std::string::npos ? " " + word : " \"" + word + "\"";
    return text + (command.arguments.empty() ? "" : " " + command.arguments);
}

} // namespace platform
