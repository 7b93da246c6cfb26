// Programs on a POSIX desktop: Windows programs run through wine, in the prefix that they lie in;
// all else that is not a program is opened by the desktop.
#include "platform/programs.h"

#include <algorithm>
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

#include "helpers.h"
#include "platform/disk.h"
#include "platform/failure.h"
#include "platform/text.h"
#include "watched_program.h"
#include "wrapper.h"

// NOLINTNEXTLINE(readability-redundant-declaration): not every C library declares it
extern char** environ;

namespace platform {
namespace {

const std::string handedOverVariable = "VEXILLUM_HANDED_OVER";
/// What Linux lets one variable have, and a little less.
constexpr std::size_t longestVariable = 120'000;

std::string nameOf(const std::string& variable) {
    return variable.substr(0, variable.find('=') + 1);
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
        // By its real name: links may lead to it.
        std::error_code error;
        const auto path =
            std::filesystem::weakly_canonical(disk_.systemPath(program), error).string();
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
        std::vector<std::string> variables;
        auto words = wordsFor(command, path, variables);
        if (!variable.empty())
            variables.push_back(std::move(variable));
        if (!command.handedOver.empty() && command.handedOver.size() < longestVariable)
            variables.push_back(handedOverVariable + ("=" + command.handedOver));
        return spawn(words, command.kind == Command::Kind::program ? folderOf(path) : std::string(),
                     variables);
    }

    static std::vector<std::string> wordsFor(const Command& command, const std::string& path,
                                             std::vector<std::string>& variables) {
        if (command.kind == Command::Kind::open)
            return {"xdg-open", path};
        auto wrapper = posix::wrapperOf(command.wrapper);
        auto missing = posix::missingCommand(wrapper);
        auto words = std::move(wrapper.words);
        if (needsWine(path)) {
            if (missing.empty() && !posix::isInstalled("wine"))
                missing = "wine";
            words.emplace_back("wine");
            if (const auto prefix = winePrefixOf(path); !prefix.empty())
                variables.push_back("WINEPREFIX=" + prefix);
        }
        if (!missing.empty())
            throw Failure("start", missing, posix::whatToInstall(missing));
        for (auto& each : wrapper.variables)
            variables.push_back(std::move(each));
        words.push_back(path);
        words.insert(words.end(), command.words.begin(), command.words.end());
        if (!command.arguments.empty())
            words.push_back(command.arguments);
        return words;
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

    /// Of two variables of one name the later one counts, and the first is what a program finds.
    static std::vector<char*> environmentWith(std::vector<std::string>& variables) {
        std::vector<char*> environment;
        const auto isNamedIn = [](auto first, auto last, const std::string& variable) {
            return std::any_of(first, last,
                               [&](const auto& each) { return nameOf(each) == nameOf(variable); });
        };
        for (auto** variable = environ; *variable != nullptr; ++variable)
            if (!isNamedIn(variables.begin(), variables.end(), *variable))
                environment.push_back(*variable);
        for (auto variable = variables.begin(); variable != variables.end(); ++variable)
            if (!isNamedIn(variable + 1, variables.end(), *variable))
                environment.push_back(variable->data());
        environment.push_back(nullptr);
        return environment;
    }

    static pid_t spawn(std::vector<std::string>& words, const std::string& folder,
                       std::vector<std::string>& variables) {
        std::vector<char*> arguments;
        arguments.reserve(words.size() + 1);
        for (auto& word : words)
            arguments.push_back(word.data());
        arguments.push_back(nullptr);
        auto environment = environmentWith(variables);
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
            throw Failure("start", words[0], reasonOf(error, words[0]));
        return child;
    }

    static std::string reasonOf(int error, const std::string& command) {
        return error == ENOENT && command.find('/') == std::string::npos
                   ? posix::whatToInstall(command)
                   : std::strerror(error);
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
