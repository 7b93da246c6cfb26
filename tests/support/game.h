// A game directory of its own for each test, and the program played in it.
#pragma once

#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "headless/session.h"
#include "platform/disk.h"

namespace test {

using Event = headless::Event;
using Tree = std::map<std::string, std::string>; ///< path with "/", content

/// A fresh directory with the data tree that a new game directory gets and a `totala.exe`. Gone
/// with the object.
class Game {
  public:
    Game();
    ~Game();
    Game(const Game&) = delete;
    Game& operator=(const Game&) = delete;

    std::string folder() const { return folder_.string(); }
    std::filesystem::path at(std::string_view path) const { return folder_ / path; }

    void put(std::string_view path, std::string_view content = {}) const;
    void makeFolder(std::string_view path) const;
    void remove(std::string_view path) const;
    std::optional<std::string> content(std::string_view path) const;
    bool has(std::string_view path) const;

    /// All files but those that the program keeps for itself in the data tree.
    Tree files() const;
    /// All folders, under the same rule.
    std::vector<std::string> folders() const;

  private:
    std::filesystem::path folder_;
};

/// What a tree has that another has not or has otherwise, a line for each; empty for equal trees.
std::string differences(const Tree& before, const Tree& after);

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
