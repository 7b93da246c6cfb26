// Someone to ask and to tell. The core asks here; who answers is none of its business.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace platform {

struct Question {
    std::string text;
    std::vector<std::string> buttons = {}; ///< with OK alone it is told, not asked
    std::size_t defaultButton = 0;
    std::string detail =
        {}; ///< the reason behind the text, in words that are not the program's own
};

/// A row of questions that ask the same of one file after the other. From the third one on the rest
/// may be answered alike.
class MessageRow {
  public:
    MessageRow() = default;
    /// A row outside the apply and the reset: no log tells what was answered alike.
    static MessageRow withoutLog() {
        MessageRow row;
        row.hasLog_ = false;
        return row;
    }
    bool hasLog() const { return hasLog_; }
    bool offersSameForRest() const { return shown_ >= 2; }
    const std::optional<std::size_t>& answerForRest() const { return forRest_; }
    void noteShown() { ++shown_; }
    void answerRest(std::size_t button) { forRest_ = button; }

  private:
    int shown_ = 0;
    bool hasLog_ = true;
    std::optional<std::size_t> forRest_;
};

class Questions {
  public:
    Questions() = default;
    virtual ~Questions() = default;
    Questions(const Questions&) = delete;
    Questions& operator=(const Questions&) = delete;

    /// Returns the button. A row's question that is answered already is not asked again.
    virtual std::size_t ask(const Question& question, MessageRow* row = nullptr) = 0;

    void tell(const std::string& text, MessageRow* row = nullptr) { ask({text, {"OK"}}, row); }
    bool askYesNo(const std::string& text, MessageRow* row = nullptr) {
        return ask({text, {"Yes", "No"}}, row) == 0;
    }
    /// Before what cannot be taken back: who only presses Enter has said No.
    bool askWhetherSure(const std::string& text) { return ask({text, {"Yes", "No"}, 1}) == 0; }
};

} // namespace platform
