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

bool isCommand(const std::vector<std::string>& arguments) {
    // This one stands for the window's own menu item.
    return !arguments.empty() && arguments != std::vector<std::string>{"--WIDCF"};
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
