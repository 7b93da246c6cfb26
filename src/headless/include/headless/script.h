// A script: what the user of a session does, a line each.
#pragma once

#include <istream>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

namespace headless {

/// The script has run out while the program waits for the user.
struct ScriptEnd {};

/// A script line that cannot be carried out; the text is the line.
class BadLine : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// The lines of a script, comments and blank lines passed over.
class Script {
  public:
    explicit Script(std::istream& lines) : lines_(lines) {}

    /// The next line, left where it is; nothing at the end.
    const std::optional<std::string>& peek();
    std::optional<std::string> take();
    /// How many lines of any kind were taken from the stream.
    int lineNumber() const { return lineNumber_; }

  private:
    std::istream& lines_;
    std::optional<std::string> next_;
    int lineNumber_ = 0;
};

/// The first word of a line, and all behind the one blank that follows it.
std::pair<std::string, std::string> cutWord(const std::string& line);

/// A typed text as the program has it: "\n" is a line break, "\\" a backslash.
std::string typedText(std::string_view text);

} // namespace headless
