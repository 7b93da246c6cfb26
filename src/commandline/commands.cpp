// A command line is one verb.
#include "commandline/commands.h"

#include <ostream>

#include "platform/text.h"
#include "reset_command.h"

namespace commandline {
namespace {

constexpr auto usage = R"(Usage: Vexillum.exe [COMMAND]

Without a command the catalogue opens.

  --reset     makes the game directory plain: moves every file of the last launch
              back and keeps the selection
  --version   tells the version
  --help      tells this

What it ends with: 0 done, 1 something could not be done, 2 no such command.
)";

} // namespace

bool isCommand(const std::vector<std::string>& arguments) {
    // This one stands for the window's own menu item.
    return !arguments.empty() && arguments != std::vector<std::string>{"--WIDCF"};
}

ExitCode run(const Machine& machine, const std::vector<std::string>& arguments) {
    const auto& verb = arguments.front();
    if (arguments.size() == 1 && verb == "--help") {
        machine.output << usage;
        return done;
    }
    if (arguments.size() == 1 && verb == "--version") {
        machine.output << "Vexillum " VEXILLUM_VERSION "\n";
        return done;
    }
    if (arguments.size() == 1 && verb == "--reset")
        return reset(machine);
    std::string all;
    for (const auto& argument : arguments)
        all += " " + argument;
    machine.errors << "There is no such command:" << all << "\n\n" << usage;
    return wrongUsage;
}

} // namespace commandline
