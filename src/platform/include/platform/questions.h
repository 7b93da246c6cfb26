// Someone to ask and to tell. The core asks here; who answers is none of its business.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace platform {

/// Texts have the program's own line breaks.
struct Question {
    std::string text;
    /// Captions, at least one; with OK alone it is told, not asked.
    std::vector<std::string> buttons = {};
    /// What Enter presses, and what counts where nobody answers; from 0.
    std::size_t defaultButton = 0;
    /// The reason behind the text, in words that are not the program's own.
    std::string detail = {};
    /// It tells of something that is wrong.
    bool warns = false;
    /// Where the answer can be remembered: set to whether the user wishes that.
    bool* remember = nullptr;
};

/// A row of questions that ask the same of one file after the other. From the third one on the rest
/// may be answered alike. It belongs to the work that asks, and ends with it.
class MessageRow {
  public:
    MessageRow() = default;
    /// A row outside the apply and the reset: no log tells what was answered alike.
    static MessageRow withoutLog() {
        MessageRow row;
        row.hasLog_ = false;
        return row;
    }
    /// A row of messages that leave nothing to choose.
    static MessageRow fromTheFirst() {
        MessageRow row;
        row.shown_ = 2;
        return row;
    }
    bool hasLog() const { return hasLog_; }
    bool offersSameForRest() const { return shown_ >= 2; }
    const std::optional<std::size_t>& answerForRest() const { return forRest_; }
    void noteShown() { ++shown_; }
    void answerRest(std::size_t button) { forRest_ = button; }
    /// Whether the answer for the rest is one to remember.
    bool remembersRest() const { return remembersRest_; }
    void setRemembersRest(bool remembers) { remembersRest_ = remembers; }

  private:
    int shown_ = 0;
    bool hasLog_ = true;
    bool remembersRest_ = false;
    std::optional<std::size_t> forRest_;
};

class Questions {
  public:
    Questions() = default;
    virtual ~Questions() = default;
    Questions(const Questions&) = delete;
    Questions& operator=(const Questions&) = delete;

    /// Returns the button's place, from 0. A row's question that is answered already is not asked
    /// again.
    virtual std::size_t ask(const Question& question, MessageRow* row = nullptr) = 0;

    /// What need not be asked, since the answer is known. Whoever watches the work is told.
    virtual void noteAnswered(const Question& /*question*/, std::size_t /*button*/) {}

    void tell(const std::string& text, MessageRow* row = nullptr) { ask({text, {"OK"}}, row); }
    void warn(const std::string& text, MessageRow* row = nullptr) {
        ask({text, {"OK"}, 0, {}, true}, row);
    }
    bool askYesNo(const std::string& text, MessageRow* row = nullptr) {
        return ask({text, {"Yes", "No"}}, row) == 0;
    }
    /// Before what cannot be taken back: who only presses Enter has said No.
    bool askWhetherSure(const std::string& text) { return ask({text, {"Yes", "No"}, 1}) == 0; }
};

} // namespace platform
