// Programs on a POSIX desktop: Windows programs run through wine, all else that is not a program is
// opened by the desktop.
#include "platform/programs.h"

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <vector>

#include <fcntl.h>
#include <spawn.h>
#include <unistd.h>

#include "platform/disk.h"
#include "platform/failure.h"
#include "platform/text.h"
#include "watched_program.h"

// NOLINTNEXTLINE(readability-redundant-declaration): not every C library declares it
extern char** environ;

namespace platform {
namespace {

const std::string handedOverVariable = "VEXILLUM_HANDED_OVER";
/// What Linux lets one variable have, and a little less.
constexpr std::size_t longestVariable = 120'000;

/// The helpers have the names of commands, which need not be those of packages.
std::string whatToInstall(const std::string& command) {
    if (command == "wine")
        return "\"wine\", which runs programs of Windows, is not installed. Please install it: the "
               "package is called \"wine\".";
    if (command == "xdg-open")
        return "\"xdg-open\", which opens folders and texts, is not installed. Please install it: "
               "the package is called \"xdg-utils\".";
    return std::strerror(ENOENT);
}

class PosixPrograms final : public Programs {
  public:
    explicit PosixPrograms(Disk& disk) : disk_(disk) {
        // A child that has ended must not stay behind as a zombie while the catalogue is open.
        struct sigaction ignore {};
        ignore.sa_handler = SIG_DFL;
        ignore.sa_flags = SA_NOCLDWAIT;
        ::sigaction(SIGCHLD, &ignore, nullptr);
    }

    void start(const Command& command) override { launch(command, {}); }

    std::unique_ptr<RunningProgram> startWatched(const Command& command) override {
        auto program = std::make_unique<posix::WatchedProgram>();
        program->started(launch(command, program->mark()));
        return program;
    }

    bool isRunning(const std::string& program) override {
        const auto path = disk_.systemPath(program);
        std::error_code error;
        for (const auto& process : std::filesystem::directory_iterator("/proc", error))
            if (runs(process.path(), path))
                return true;
        return false;
    }

  private:
    /// With one more variable in its environment, if there is one.
    pid_t launch(const Command& command, std::string variable) {
        const auto path = disk_.systemPath(command.target);
        // The opener of the desktop refuses these too, but says so to nobody.
        if (command.kind == Command::Kind::open && ::access(path.c_str(), F_OK) != 0)
            throw Failure("open", path, std::strerror(errno));
        std::vector<std::string> words;
        if (command.kind == Command::Kind::open)
            words = {"xdg-open", path};
        else if (needsWine(path))
            words = {"wine", path};
        else
            words = {path};
        if (!command.arguments.empty())
            words.push_back(command.arguments);
        std::vector<std::string> variables;
        if (!variable.empty())
            variables.push_back(std::move(variable));
        if (!command.handedOver.empty() && command.handedOver.size() < longestVariable)
            variables.push_back(handedOverVariable + ("=" + command.handedOver));
        return spawn(words, command.kind == Command::Kind::program ? folderOf(path) : std::string(),
                     variables);
    }

    /// Other people's processes show nothing.
    static bool runs(const std::filesystem::path& process, const std::string& program) {
        std::error_code error;
        const auto executable = std::filesystem::read_symlink(process / "exe", error);
        if (error)
            return false;
        if (executable == program)
            return true;
        // Through wine the folder is the game's, and the program is named in the command line.
        if (std::filesystem::read_symlink(process / "cwd", error) != folderOf(program) || error)
            return false;
        std::ifstream file(process / "cmdline", std::ios::binary);
        const auto name = program.substr(program.rfind('/') + 1);
        for (std::string argument; std::getline(file, argument, '\0');)
            if (needsWine(program) &&
                equalIgnoringCase(argument.substr(argument.find_last_of("/\\") + 1), name))
                return true;
        return false;
    }

    static std::string folderOf(const std::string& path) {
        return path.substr(0, path.find_last_of('/'));
    }

    static pid_t spawn(std::vector<std::string>& words, const std::string& folder,
                       std::vector<std::string>& variables) {
        std::vector<char*> arguments;
        arguments.reserve(words.size() + 1);
        for (auto& word : words)
            arguments.push_back(word.data());
        arguments.push_back(nullptr);
        std::vector<char*> environment;
        for (auto** variable = environ; *variable != nullptr; ++variable)
            environment.push_back(*variable);
        for (auto& variable : variables)
            environment.push_back(variable.data());
        environment.push_back(nullptr);
        posix_spawn_file_actions_t actions{};
        ::posix_spawn_file_actions_init(&actions);
        if (!folder.empty())
            ::posix_spawn_file_actions_addchdir_np(&actions, folder.c_str());
        posix_spawnattr_t attributes{};
        ::posix_spawnattr_init(&attributes);
        // What this program passes over ends another as ever.
        sigset_t usual;
        sigemptyset(&usual);
        sigaddset(&usual, SIGPIPE);
        ::posix_spawnattr_setsigdefault(&attributes, &usual);
        ::posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSID | POSIX_SPAWN_SETSIGDEF);
        pid_t child = 0;
        const int error = ::posix_spawnp(&child, arguments[0], &actions, &attributes,
                                         arguments.data(), environment.data());
        ::posix_spawnattr_destroy(&attributes);
        ::posix_spawn_file_actions_destroy(&actions);
        if (error != 0)
            throw Failure("start", words[0],
                          error == ENOENT ? whatToInstall(words[0]) : std::strerror(error));
        return child;
    }

    Disk& disk_;
};

} // namespace

std::string takeHandedOver() {
    const auto* text = std::getenv(handedOverVariable.c_str());
    std::string taken = text == nullptr ? "" : text;
    ::unsetenv(handedOverVariable.c_str());
    return taken;
}

std::unique_ptr<Programs> makePrograms(Disk& disk) {
    return std::make_unique<PosixPrograms>(disk);
}

} // namespace platform
