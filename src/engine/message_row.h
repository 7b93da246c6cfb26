// A row of boxes that ask the same of one file after the other.
#pragma once

#include <cstddef>
#include <optional>

namespace engine {

/// From the third box of a row on, the user may have the rest answered alike.
class MessageRow {
  public:
    MessageRow() = default;
    /// A row outside the apply and the reset: no log window tells what was answered.
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

} // namespace engine
