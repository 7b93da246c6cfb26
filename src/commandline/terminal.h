// The log and the questions of work that a terminal watches.
#pragma once

#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "platform/log.h"
#include "platform/questions.h"

namespace commandline {

/// A text of the program as a terminal may get it: UTF-8, a line each, without the bytes that a
/// terminal would obey.
std::string printable(std::string_view text);

/// Stages alone: lines would be thousands.
class TerminalLog final : public platform::Log {
  public:
    explicit TerminalLog(std::ostream& output) : output_(output) {}
    void stage(const std::string& text) override { output_ << printable(text) << '\n'; }
    void line(const std::string& /*text*/) override {}
    void breathe() override {}

  private:
    std::ostream& output_;
};

/// What there is to be told goes to the errors. A question gets the answer that the command line
/// gave to all of them, or else what Enter would press.
class TerminalQuestions final : public platform::Questions {
  public:
    TerminalQuestions(std::ostream& errors, std::optional<bool> answer)
        : errors_(errors), answer_(answer) {}
    std::size_t ask(const platform::Question& question, platform::MessageRow* row) override;

    /// Messages, of what could not be done.
    int told() const { return told_; }
    /// Questions that nobody has answered.
    int open() const { return open_; }

  private:
    std::ostream& errors_;
    std::optional<bool> answer_;
    int told_ = 0;
    int open_ = 0;
};

/// Hears what would be asked, and answers as Enter would.
class QuestionList final : public platform::Questions {
  public:
    std::size_t ask(const platform::Question& question, platform::MessageRow* row) override;
    const std::vector<std::string>& texts() const { return texts_; }

  private:
    std::vector<std::string> texts_;
};

} // namespace commandline
