// What the rooms of the core need to be run in a test: a disk, nobody who watches, and someone who
// answers.
#pragma once

#include <deque>
#include <memory>
#include <string>
#include <vector>

#include "platform/disk.h"
#include "platform/log.h"
#include "platform/questions.h"
#include "support/game.h"

namespace test {

/// Answers by the captions of buttons, in turn; without one by the default button.
class ScriptedAnswers final : public platform::Questions {
  public:
    std::size_t ask(const platform::Question& question, platform::MessageRow* row) override {
        if (row != nullptr && row->answerForRest())
            return *row->answerForRest();
        asked.push_back(question.text);
        if (row != nullptr)
            row->noteShown();
        if (answers.empty() || question.buttons.size() == 1)
            return question.defaultButton;
        const auto answer = answers.front();
        answers.pop_front();
        for (std::size_t i = 0; i < question.buttons.size(); ++i)
            if (question.buttons[i] == answer)
                return i;
        return question.defaultButton;
    }

    std::deque<std::string> answers;
    std::vector<std::string> asked;
};

class RecordedLog final : public platform::Log {
  public:
    void stage(const std::string& text) override { lines.push_back(text); }
    void line(const std::string& text) override { lines.push_back(text); }
    void breathe() override { ++breaths; }

    std::vector<std::string> lines;
    int breaths = 0;
};

} // namespace test
