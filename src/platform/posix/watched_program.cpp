// Looks through /proc, where other people's processes show no environment.
#include "watched_program.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <sstream>
#include <string_view>
#include <utility>

#include <unistd.h>

#include "platform/text.h"

namespace platform::posix {
namespace {

/// What wine leaves running behind a program for the next one.
constexpr std::string_view wineServer = "wineserver";
constexpr std::string_view wineFolder = ":\\windows\\";
constexpr std::string_view wineHelpers[] = {
    "services.exe", "winedevice.exe", "explorer.exe", "plugplay.exe", "svchost.exe",
    "rpcss.exe",    "tabtip.exe",     "spoolsv.exe",  "mscorsvw.exe", "winemenubuilder.exe"};

std::string contentOf(pid_t process, const char* file) {
    std::ifstream stream("/proc/" + std::to_string(process) + "/" + file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

std::vector<std::string> stringsOf(pid_t process, const char* file) {
    std::istringstream content(contentOf(process, file));
    std::vector<std::string> strings;
    for (std::string each; std::getline(content, each, '\0');)
        strings.push_back(each);
    return strings;
}

/// Before wine has set a program up, its own loaders stand ahead of the program.
bool isWineHelper(pid_t process, const std::string& name) {
    if (name.starts_with(wineServer))
        return true;
    for (const auto& argument : stringsOf(process, "cmdline")) {
        const auto path = foldCase(argument);
        if (!path.ends_with(".exe"))
            continue;
        return path.find(wineFolder) == 1 &&
               std::any_of(std::begin(wineHelpers), std::end(wineHelpers),
                           [&](auto helper) { return path.ends_with("\\" + std::string(helper)); });
    }
    return false;
}

} // namespace

WatchedProgram::WatchedProgram() {
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    mark_ =
        "VEXILLUM_WATCHES_" + std::to_string(::getpid()) + "_" + std::to_string(now.count()) + "=1";
}

void WatchedProgram::started(pid_t process) {
    first_ = process;
    for (const auto& each : processesSince(0))
        if (each.number == process) {
            since_ = each.start;
            known_[process] = each.start;
        }
}

/// A child that comes while its parent goes can slip through one look.
bool WatchedProgram::isRunning() {
    std::error_code error;
    if (!std::filesystem::exists("/proc/self/stat", error))
        return ::kill(first_, 0) == 0;
    return look() || look();
}

bool WatchedProgram::look() {
    const auto processes = processesSince(since_);
    Known ours;
    bool isRunning = false;
    for (bool more = true; std::exchange(more, false);)
        for (const auto& process : processes)
            if (!ours.contains(process.number) && isOurs(process, ours)) {
                ours[process.number] = process.start;
                isRunning = isRunning || !isWineHelper(process.number, process.name);
                more = true;
            }
    known_ = std::move(ours);
    return isRunning;
}

bool WatchedProgram::isOurs(const Process& process, const Known& ours) const {
    const auto known = known_.find(process.number);
    if (ours.contains(process.parent) || (known != known_.end() && known->second == process.start))
        return true;
    const auto environment = stringsOf(process.number, "environ");
    return std::find(environment.begin(), environment.end(), mark_) != environment.end();
}

/// Those that have ended and were not asked how are passed over.
std::vector<WatchedProgram::Process> WatchedProgram::processesSince(unsigned long long start) {
    constexpr int fieldsBetween = 17; // from the parent to the start
    std::vector<Process> processes;
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator("/proc", error)) {
        const auto number = entry.path().filename().string();
        Process process{};
        const auto* end = number.data() + number.size();
        if (std::from_chars(number.data(), end, process.number).ptr != end)
            continue;
        // The name may hold anything, also brackets.
        const auto text = contentOf(process.number, "stat");
        const auto open = text.find('(');
        const auto close = text.rfind(')');
        if (open == std::string::npos || close == std::string::npos)
            continue;
        process.name = text.substr(open + 1, close - open - 1);
        std::istringstream fields(text.substr(close + 1));
        char state = 'X';
        fields >> state >> process.parent;
        std::string passedOver;
        for (int i = 0; i < fieldsBetween; ++i)
            fields >> passedOver;
        fields >> process.start;
        if (fields && state != 'Z' && state != 'X' && process.start >= start)
            processes.push_back(std::move(process));
    }
    return processes;
}

} // namespace platform::posix
