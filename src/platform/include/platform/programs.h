// Starting other programs.
#pragma once

#include <memory>
#include <string>

namespace platform {

class Disk;

enum class StartWindow { normal, maximized, minimized };

struct Command {
    enum class Kind {
        program, ///< the target is a program
        open     ///< the target is a folder, text or page, to be opened with what the desktop has
    };
    Kind kind = Kind::program;
    std::string target;    ///< the program's own kind of path
    std::string arguments; ///< the rest of a program's command line
    StartWindow window = StartWindow::normal;
};

/// Starts programs and does not wait for them.
class Programs {
  public:
    Programs() = default;
    virtual ~Programs() = default;
    Programs(const Programs&) = delete;
    Programs& operator=(const Programs&) = delete;

    /// Throws Failure, with the reason, if the program cannot be started.
    virtual void start(const Command& command) = 0;
};

std::unique_ptr<Programs> makePrograms(Disk& disk);

/// Whether a program is one of Windows on a system that runs those through wine.
bool needsWine(const std::string& systemPath);

/// A command as one string, as a person would read it.
std::string shownCommand(const Command& command, Disk& disk);

} // namespace platform
