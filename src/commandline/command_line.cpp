// The commands and the options stand in two tables; parsing and help go by these.
#include "command_line.h"

#include <algorithm>
#include <array>

namespace commandline {
namespace {

struct VerbInfo {
    Verb verb = Verb::help;
    std::string_view name = {};
    std::string_view operands = {}; ///< as they stand in the help
    std::size_t fewest = 0;
    std::size_t most = 0;
    std::string_view options = {}; ///< with blanks around each
    std::string_view needs = {};   ///< those of them that must be there
    std::string_view help = {};
};

constexpr std::size_t anyNumber = 1'000'000;
/// Where the help begins.
constexpr std::size_t column = 23;

constexpr std::array verbs = {
    VerbInfo{Verb::list, "list", "", 0, 0, " json directory ", "",
             "tells all releases, what is chosen of them, and the sets"},
    VerbInfo{Verb::plan, "plan", "[SET]", 0, 1, " json directory ", "",
             "tells what a launch would do, and changes nothing"},
    VerbInfo{Verb::apply, "apply", "[SET]", 0, 1, " yes no directory ", "",
             "makes the game directory plain, then moves the chosen releases into it"},
    VerbInfo{Verb::launch, "launch", "[SET]", 0, 1, " wait yes no directory ", "",
             "the same, then starts the game"},
    VerbInfo{Verb::reset, "reset", "", 0, 0, " directory ", "",
             "moves every file of the last launch back, and keeps the selection"},
    VerbInfo{Verb::add, "add", "PATH", 1, 1, " type name yes no directory ", " type name ",
             "adds a release out of a folder, a file or a zip archive"},
    VerbInfo{Verb::remove, "remove", "NAME", 1, 1, " type yes no directory ", " type ",
             "removes a release for good"},
    VerbInfo{Verb::set, "set", "NAME=VALUE...", 1, anyNumber, " directory ", "",
             "changes the saved selection"},
    VerbInfo{Verb::check, "check", "", 0, 0, " json directory ", "",
             "looks whether all is where it should be, and changes nothing"},
    VerbInfo{Verb::setUp, "setup", "", 0, 0, " directory ", " directory ",
             "makes a game directory ready for an installed Vexillum"},
    VerbInfo{Verb::directories, "directories", "", 0, 0, " json ", "",
             "tells the game directories that were used, the last one first"},
    VerbInfo{Verb::version, "version", "", 0, 0, "", "", "tells the version"},
    VerbInfo{Verb::help, "help", "", 0, 0, "", "", "tells this"},
};

struct OptionInfo {
    std::string_view name;
    std::string_view value; ///< what stands for it in the help; empty where it takes none
    std::string_view help;
};

constexpr std::array options = {
    OptionInfo{"type", "TYPE", "TC, AI, Race, Mod, Map or Unit"},
    OptionInfo{"name", "NAME", "the name that the new release is to have"},
    OptionInfo{"json", "", "tells it as one JSON document"},
    OptionInfo{"wait", "", "waits until the game has ended, then resets"},
    OptionInfo{"yes", "", "answers every open question with Yes"},
    OptionInfo{"no", "", "answers every open question with No"},
    OptionInfo{"directory", "DIR",
               "the game directory; without it the program's own folder, or for an "
               "installed one the directory used last"},
};

constexpr std::string_view assignments =
    R"(What --set takes, one after the other:
  tc=NAME               the total conversion; nothing else stays chosen, as in the window
  ai=NAME               the AI
  map=NAME              that map alone; likewise race, mod and unit. Without NAME none
  map+=NAME  map-=NAME  one more, one less
  modifier=on|off  compress=on|off  small=on|off
  wrapper=COMMAND       what the game is started with, such as gamemoderun; without COMMAND nothing
)";

constexpr std::string_view endings =
    R"(Without a command, or with --directory alone, the catalogue opens. What a command ends with: 0 done, 1 something could not be
done (it is said what), 2 wrong use, or a question that neither --yes nor --no answers: then nothing
was changed.
)";

const VerbInfo& infoOf(Verb verb) {
    return *std::ranges::find(verbs, verb, &VerbInfo::verb);
}

bool isAmong(std::string_view names, std::string_view name) {
    return names.find(" " + std::string(name) + " ") != std::string_view::npos;
}

std::string quoted(std::string_view text) {
    return "\"" + std::string(text) + "\"";
}

std::string shownOption(const OptionInfo& option) {
    return "--" + std::string(option.name) +
           (option.value.empty() ? "" : " " + std::string(option.value));
}

class Parser {
  public:
    explicit Parser(const std::vector<std::string>& arguments) : arguments_(arguments) {}

    CommandLine parse() {
        while (at_ < arguments_.size())
            take(arguments_[at_++]);
        if (!verb_)
            throw WrongUse{line_.operands.empty()
                               ? "There is no command."
                               : "There is no command: " + quoted(line_.operands.front()) + "."};
        checkOptions();
        checkOperands();
        return line_;
    }

  private:
    void take(const std::string& argument) {
        if (isBehindEnd_ || argument.size() < 2 || argument[0] != '-')
            line_.operands.push_back(argument);
        else if (argument == "--")
            isBehindEnd_ = true;
        else
            takeWord(argument);
    }

    void takeWord(const std::string& argument) {
        const auto equals = argument.find('=');
        const auto word = argument.substr(0, equals);
        std::optional<std::string> value;
        if (equals != std::string::npos)
            value = argument.substr(equals + 1);
        const auto name = word.starts_with("--") ? word.substr(2) : "";
        if (const auto verb = std::ranges::find(verbs, name, &VerbInfo::name); verb != verbs.end())
            return takeVerb(*verb, std::move(value));
        const auto option = std::ranges::find(options, name, &OptionInfo::name);
        if (option == options.end())
            throw WrongUse{"There is no command and no option " + quoted(word) + "."};
        takeOption(*option, std::move(value));
    }

    void takeVerb(const VerbInfo& verb, std::optional<std::string> operand) {
        if (verb_ != nullptr)
            throw WrongUse{"One command at a time: \"--" + std::string(verb_->name) +
                           "\" and \"--" + std::string(verb.name) + "\" are two."};
        verb_ = &verb;
        line_.verb = verb.verb;
        if (operand)
            line_.operands.push_back(std::move(*operand));
    }

    void takeOption(const OptionInfo& option, std::optional<std::string> value) {
        if (isAmong(given_, option.name))
            throw WrongUse{"\"--" + std::string(option.name) + "\" stands there twice."};
        given_ += std::string(option.name) + " ";
        if (option.value.empty() && value)
            throw WrongUse{"\"--" + std::string(option.name) + "\" takes no value."};
        // What looks like an option is one: its value has been forgotten.
        if (!option.value.empty() && !value && at_ < arguments_.size() &&
            !arguments_[at_].starts_with("--"))
            value = arguments_[at_++];
        if (!option.value.empty() && value.value_or("").empty())
            throw WrongUse{quoted(shownOption(option)) + " lacks its value."};
        keep(option.name, std::move(value));
    }

    void keep(std::string_view name, std::optional<std::string> value) {
        if (name == "json")
            line_.json = true;
        else if (name == "wait")
            line_.wait = true;
        else if (name == "yes" || name == "no")
            line_.answer = name == "yes";
        else if (name == "directory")
            line_.directory = std::move(value);
        else if (name == "type")
            line_.type = std::move(value);
        else
            line_.name = std::move(value);
    }

    void checkOptions() const {
        for (const auto& option : options) {
            const auto shown = "\"--" + std::string(option.name) + "\"";
            const bool isGiven = isAmong(given_, option.name);
            if (isGiven && !isAmong(verb_->options, option.name))
                refuse("\"--" + std::string(verb_->name) + "\" does not take " + shown + ".");
            if (!isGiven && isAmong(verb_->needs, option.name))
                refuse("\"--" + std::string(verb_->name) + "\" needs " +
                       quoted(shownOption(option)) + ".");
        }
        if (isAmong(given_, "yes") && isAmong(given_, "no"))
            refuse("\"--yes\" and \"--no\" exclude each other.");
    }

    void checkOperands() const {
        const auto& operands = line_.operands;
        if (operands.size() < verb_->fewest)
            refuse("\"--" + std::string(verb_->name) + "\" lacks its " +
                   std::string(verb_->operands) + ".");
        if (operands.size() > verb_->most)
            refuse("\"--" + std::string(verb_->name) + "\" does not take " +
                   quoted(operands[verb_->most]) + ".");
        if (std::ranges::any_of(operands, &std::string::empty))
            refuse("\"--" + std::string(verb_->name) + "\" does not take an empty " +
                   std::string(verb_->operands) + ".");
    }

    [[noreturn]] void refuse(const std::string& text) const { throw WrongUse{text, verb_->verb}; }

    const std::vector<std::string>& arguments_;
    std::size_t at_ = 0;
    CommandLine line_;
    const VerbInfo* verb_ = nullptr;
    bool isBehindEnd_ = false;
    std::string given_ = " "; ///< the options, with blanks around each
};

} // namespace

CommandLine parse(const std::vector<std::string>& arguments) {
    return Parser(arguments).parse();
}

std::string synopsisOf(Verb verb) {
    const auto& info = infoOf(verb);
    std::string text = "Vexillum.exe --" + std::string(info.name);
    if (!info.operands.empty())
        text += " " + std::string(info.operands);
    for (const auto& option : options) {
        if (!isAmong(info.options, option.name) || option.name == "no")
            continue;
        const auto shown = option.name == "yes" ? "--yes|--no" : shownOption(option);
        text += isAmong(info.needs, option.name) ? " " + shown : " [" + shown + "]";
    }
    return text;
}

std::string usage() {
    const auto row = [](std::string head, std::string_view help) {
        head.resize(std::max(head.size() + 2, column), ' ');
        return "  " + head + std::string(help) + "\n";
    };
    std::string text = "Usage: Vexillum.exe [COMMAND [OPTION]...]\n\nCommands:\n";
    for (const auto& verb : verbs)
        text += row("--" + std::string(verb.name) + " " + std::string(verb.operands), verb.help);
    text += "\nOptions, in any order; \"--\" ends them:\n";
    for (const auto& option : options)
        text += row(shownOption(option), option.help);
    return text + "\n" + std::string(assignments) + "\n" + std::string(endings);
}

} // namespace commandline
