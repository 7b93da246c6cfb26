// A command line taken apart: one command, what it works on, and its options, in any order.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace commandline {

enum class Verb {
    list,
    plan,
    apply,
    launch,
    reset,
    add,
    remove,
    set,
    check,
    setUp,
    directories,
    version,
    help
};

struct CommandLine {
    Verb verb = Verb::help;
    std::vector<std::string> operands;
    bool json = false;
    bool wait = false;
    std::optional<bool> answer; ///< to every open question; true is Yes
    std::optional<std::string> directory;
    std::optional<std::string> type;
    std::optional<std::string> name;
};

/// A command line that says nothing that could be done. Nothing was.
struct WrongUse {
    std::string text; ///< a sentence for people
    std::optional<Verb> verb = {};
};

/// "--name=value" and "--name value" say the same; behind "--" nothing is an option. Throws
/// WrongUse for what is unknown, stands twice, is missing, or does not go with the command.
CommandLine parse(const std::vector<std::string>& arguments);

/// How a command is used, in one line.
std::string synopsisOf(Verb verb);
/// All commands and options, for people.
std::string usage();

} // namespace commandline
