// Two streams whose lines become events in the order of their printing.
#include "support/play_command.h"

#include <ostream>
#include <streambuf>
#include <utility>

#include "commandline/commands.h"

namespace test {
namespace {

class EventLines final : public std::streambuf {
  public:
    EventLines(std::string kind, std::vector<Event>& events)
        : kind_(std::move(kind)), events_(events) {}

  protected:
    int_type overflow(int_type character) override {
        if (character != '\n')
            line_ += static_cast<char>(character);
        else if (const auto line = std::exchange(line_, {}); !line.empty())
            events_.push_back({{"event", kind_}, {"line", line}});
        return character;
    }

  private:
    std::string kind_;
    std::vector<Event>& events_;
    std::string line_;
};

std::vector<std::string> wordsOf(const std::string& line) {
    std::vector<std::string> words;
    bool isQuoted = false;
    bool isInside = false;
    for (const char c : line) {
        if (c == '"')
            isQuoted = !isQuoted;
        if (!isQuoted && c == ' ') {
            isInside = false;
            continue;
        }
        if (!std::exchange(isInside, true))
            words.emplace_back();
        if (c != '"')
            words.back() += c;
    }
    return words;
}

} // namespace

Session playCommand(const Game& game, const std::string& commandLine, const Play& how) {
    Session session;
    EventLines outLines("out", session.events);
    EventLines errorLines("error", session.events);
    std::ostream output(&outLines);
    std::ostream errors(&errorLines);
    headless::RecordedPrograms programs(
        *how.disk, [&session](const Event& event) { session.events.push_back(event); });
    programs.looksWhileRunning = how.looksWhileGameRuns;
    programs.looksWhileWatched = how.looksWhilePlaying;
    programs.failure = how.startFailure;
    Installed installed(game);
    auto& installation = installed.installation;
    const auto code = commandline::run(
        {*how.disk, programs, how.isInstalled ? installation.usual().value_or("") : game.folder(),
         output, errors, how.isInstalled ? &installation : nullptr},
        wordsOf(commandLine));
    session.events.push_back({{"event", "exit"}, {"code", std::to_string(code)}});
    return session;
}

} // namespace test
