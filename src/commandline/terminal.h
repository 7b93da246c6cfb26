// The log and the questions of work that a terminal watches.
#pragma once

#include <ostream>
#include <string>

#include "platform/log.h"
#include "platform/questions.h"
#include "platform/text.h"

namespace commandline {

/// Stages alone: lines would be thousands.
class TerminalLog final : public platform::Log {
  public:
    explicit TerminalLog(std::ostream& output) : output_(output) {}
    void stage(const std::string& text) override { output_ << text << '\n'; }
    void line(const std::string& /*text*/) override {}
    void breathe() override {}

  private:
    std::ostream& output_;
};

/// Nobody answers: messages are printed, and questions take what Enter would press.
class TerminalQuestions final : public platform::Questions {
  public:
    explicit TerminalQuestions(std::ostream& errors) : errors_(errors) {}
    std::size_t ask(const platform::Question& question, platform::MessageRow* /*row*/) override {
        ++asked_;
        errors_ << platform::replaceAll(question.text, platform::lineBreak, "\n") << '\n';
        if (!question.detail.empty())
            errors_ << question.detail << '\n';
        return question.defaultButton;
    }
    int asked() const { return asked_; }

  private:
    std::ostream& errors_;
    int asked_ = 0;
};

} // namespace commandline
