// The program played in a test's game directory, by the script of a session.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "headless/session.h"
#include "installation/installation.h"
#include "platform/disk.h"
#include "support/game.h"

namespace test {

using Event = headless::Event;

using MakeToolkit = std::function<std::unique_ptr<windows::Toolkit>(
    headless::Script& script, headless::Transcript transcript)>;

/// Plays sessions without a screen.
std::unique_ptr<windows::Toolkit> withoutScreen(headless::Script& script,
                                                headless::Transcript transcript);

/// How a session is played, beside its script.
struct Play {
    std::string commandLine;
    /// The disk that the program gets; the machine's own if there is none.
    platform::Disk* disk = nullptr;
    MakeToolkit makeToolkit = withoutScreen;
    int looksWhileGameRuns = 0;    ///< at the start
    int looksWhilePlaying = 0;     ///< while the program waits for the end of the game
    std::string startFailure = {}; ///< why no program can be started
    /// The program lies outside the game directory, which holds a home folder.
    bool isInstalled = false;
};

/// What an installed program knows of its user, whose home is the folder "home".
class Installed {
  public:
    explicit Installed(const Game& game);

  private:
    std::unique_ptr<platform::Disk> disk_;

  public:
    installation::Installation installation;
};

/// What cut a session short, or how it ended.
struct Session {
    std::vector<Event> events;
    bool endedItself = false;
    std::optional<std::string> badLine;
    bool boxesWithoutEnd = false;
};

Session play(const Game& game, const std::string& script, const Play& how = {});

/// The events of one kind, by one of their fields.
std::vector<std::string> fieldOf(const Session& session, std::string_view event,
                                 const std::string& field);

} // namespace test
