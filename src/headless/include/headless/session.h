// A user without a screen: a script that says what he does, and a transcript of what he sees.
#pragma once

#include <deque>
#include <functional>
#include <istream>
#include <optional>
#include <set>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include <nlohmann/json.hpp>

#include "platform/programs.h"
#include "windows/toolkit.h"

namespace platform::headless {

using Event = nlohmann::ordered_json;
/// Takes the transcript, event by event.
using Transcript = std::function<void(const Event&)>;

/// The script has run out while the program waits for the user.
struct ScriptEnd {};

/// A script line that cannot be carried out; the text is the line.
class BadLine : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// The program shows one box after the other without end.
struct TooManyBoxes {};

inline constexpr int mostBoxesInARow = 10'000;

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

/// Plays a script on a program's windows. The calls throw ScriptEnd, BadLine and TooManyBoxes, none
/// of which the logic catches.
class SessionToolkit final : public Toolkit {
  public:
    SessionToolkit(Script& script, Transcript transcript);

    void load(Window& window) override;
    void unload(Window& window) override;
    void show(Window& window) override;
    void hide(Window& window) override;
    void showModal(Window& window) override;
    MessageAnswer showMessage(const MessageBox& box) override;
    std::optional<std::string> askForText(const InputBox& box) override;
    std::optional<std::string> askForFile(const FileDialog& dialog) override;
    std::vector<std::string> askForFiles(const FileDialog& dialog) override;
    std::optional<std::string> askForFolder(const FileDialog& dialog) override {
        return askForFile(dialog);
    }
    void setClipboard(const std::string& text) override;
    void doEvents() override {}
    void waitForUser() override;
    void waitForTimer() override;
    void logged(const std::string& line) override;

  private:
    /// Writes a box down, and stops a program that shows them without end.
    void tellOfBox(const Event& event);
    std::optional<std::string> nextAnswer();
    void carryOut(const std::string& line);
    void dump() const;
    Window& topmost(const std::string& line) const;

    Script& script_;
    Transcript transcript_;
    std::set<Window*> loaded_;
    std::vector<Window*> windows_; ///< the open ones, the topmost last
    std::deque<std::string> answers_;
    int boxes_ = 0;
};

/// Records what would be started.
class RecordedPrograms final : public Programs {
  public:
    RecordedPrograms(Disk& disk, Transcript transcript)
        : disk_(disk), transcript_(std::move(transcript)) {}
    void start(const Command& command) override;

  private:
    Disk& disk_;
    Transcript transcript_;
};

} // namespace platform::headless
