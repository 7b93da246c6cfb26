// From the command line to the command, and from what it throws to what the program ends with.
#include "commandline/commands.h"

#include <ostream>

#include "command_line.h"
#include "platform/failure.h"
#include "verbs.h"

namespace commandline {
namespace {

using Command = ExitCode (*)(Workspace&);

Command commandOf(Verb verb) {
    switch (verb) {
    case Verb::list:
        return list;
    case Verb::plan:
        return plan;
    case Verb::apply:
        return apply;
    case Verb::launch:
        return launch;
    case Verb::reset:
        return reset;
    case Verb::add:
        return add;
    case Verb::remove:
        return remove;
    case Verb::set:
        return set;
    case Verb::check:
        return check;
    case Verb::setUp:
    case Verb::directories:
    case Verb::version:
    case Verb::help:
        break;
    }
    return nullptr;
}

ExitCode carryOut(const Machine& machine, const CommandLine& line) {
    if (const auto command = commandOf(line.verb)) {
        Workspace work(machine, line);
        return command(work);
    }
    if (line.verb == Verb::setUp)
        return setUp(machine, line);
    if (line.verb == Verb::directories)
        return directories(machine, line);
    machine.output << (line.verb == Verb::help ? usage() : "Vexillum " VEXILLUM_VERSION "\n");
    return done;
}

ExitCode tell(const Machine& machine, const WrongUse& use) {
    machine.errors << printable(use.text) << '\n';
    if (use.verb)
        machine.errors << "Usage: " << synopsisOf(*use.verb) << "\nMore is told by --help.\n";
    else
        machine.errors << '\n' << usage();
    return wrongUsage;
}

} // namespace

std::optional<WindowsLine> windowsLine(std::vector<std::string> arguments) {
    WindowsLine line;
    // This one stands for the window's own menu item.
    if (!arguments.empty() && arguments.back() == "--WIDCF") {
        line.rest = arguments.back();
        arguments.pop_back();
    }
    constexpr std::string_view option = "--directory";
    constexpr auto assignment = "--directory=";
    if (arguments.size() == 1 && arguments[0].starts_with(assignment))
        line.directory = arguments[0].substr(option.size() + 1);
    else if (arguments.size() == 2 && arguments[0] == option && !arguments[1].starts_with("--"))
        line.directory = arguments[1];
    else if (!arguments.empty())
        return std::nullopt;
    if (line.directory && line.directory->empty())
        return std::nullopt;
    return line;
}

ExitCode run(const Machine& machine, const std::vector<std::string>& arguments) {
    auto code = failed;
    try {
        code = carryOut(machine, parse(arguments));
    } catch (const WrongUse& use) {
        code = tell(machine, use);
    } catch (const Stop& stop) {
        machine.errors << printable(stop.text) << '\n';
        code = stop.code;
    } catch (const platform::Failure& failure) {
        machine.errors << printable(failure.what()) << '\n';
    }
    if (machine.output.flush())
        return code;
    machine.errors << "The output could not be written.\n";
    return code == done ? failed : code;
}

} // namespace commandline
