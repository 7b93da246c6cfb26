// A game directory of its own for each test.
#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace test {

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
    std::filesystem::path at(std::string_view path) const;

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
    bool isSpelled(std::string_view path) const;

    std::filesystem::path folder_;
};

/// What a tree has that another has not or has otherwise, a line for each; empty for equal trees.
std::string differences(const Tree& before, const Tree& after);

} // namespace test
