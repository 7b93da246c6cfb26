// Starting other programs: the game, this one once more, and what the desktop opens files with.
#pragma once

#include <memory>
#include <string>
#include <vector>

namespace platform {

class Disk;

/// A wish: systems that have no such thing pass over it.
enum class StartWindow { normal, maximized, minimized };

struct Command {
    enum class Kind {
        program, ///< the target is a program
        open     ///< the target is a folder, text or page, to be opened with what the desktop has
    };
    Kind kind = Kind::program;
    std::string target; ///< the program's own kind of path
    /// The rest of a program's command line. POSIX hands it over as one argument, blanks and all.
    std::string arguments;
    StartWindow window = StartWindow::normal;
    /// A text for another copy of this program (`handedOver` there); left out where it is too long
    /// for the system.
    std::string handedOver = {};
    /// What runs a program instead of the system, as one would type it ahead of the program's name:
    /// a command with arguments, variables ahead of it or alone ("gamemoderun", "A=1 prime-run").
    std::string wrapper = {};
    /// Arguments ahead of `arguments`, one by one, blanks and all.
    std::vector<std::string> words = {};
};

/// What the copy that started this one has handed over; empty where nothing was. Whatever this one
/// starts does not get it.
std::string takeHandedOver();

/// A program that was started to be waited for. It outlives this object, and this program.
class RunningProgram {
  public:
    RunningProgram() = default;
    virtual ~RunningProgram() = default;
    RunningProgram(const RunningProgram&) = delete;
    RunningProgram& operator=(const RunningProgram&) = delete;

    /// Whether it runs, or any program that it has started, at whatever remove. What wine leaves
    /// behind for the next program does not count. Cheap enough for a few times a second. Where the
    /// system tells of the program alone, those that it starts go unseen.
    virtual bool isRunning() = 0;
};

/// Starts programs and does not wait for them. A program runs in the folder that it lies in, and
/// outlives this one.
class Programs {
  public:
    Programs() = default;
    virtual ~Programs() = default;
    Programs(const Programs&) = delete;
    Programs& operator=(const Programs&) = delete;

    /// Throws Failure, with the reason, if the program cannot be started; where a helper is missing
    /// (wine, a wrapper, the desktop's opener), the failure names that and its package. How a
    /// program fares once it runs is not told.
    virtual void start(const Command& command) = 0;

    /// The same for a program that is to be waited for. Throws as start does.
    virtual std::unique_ptr<RunningProgram> startWatched(const Command& command) = 0;

    /// Whether a program runs, by its file; one of Windows also where it runs through wine in its
    /// own folder. False where the system does not tell.
    virtual bool isRunning(const std::string& program) = 0;
};

/// Those of this machine. The disk finds programs in any case, and must outlive them.
std::unique_ptr<Programs> makePrograms(Disk& disk);

/// Whether a program is one of Windows on a system that runs those through wine, by its first two
/// bytes. False for what cannot be read.
bool needsWine(const std::string& systemPath);

/// The wine prefix that a folder or file lies in: a program there is started with that one. Empty
/// for one outside all prefixes, and on Windows.
std::string winePrefixOf(const std::string& systemPath);

/// Whether programs can be started through a wrapper here.
bool takesWrappers();
/// Why a wrapper could not run a program, for people; empty where it could, or is empty.
std::string reasonAgainstWrapper(const std::string& wrapper);

/// A command as one string, as a person would read it. Not meant for a shell.
std::string shownCommand(const Command& command, Disk& disk);

} // namespace platform
