// A row of boxes that ask the same of one file after the other.
#pragma once

#include <cstddef>
#include <optional>

namespace engine {

/// From the third box of a row on, the user may have the rest answered alike.
class MessageRow {
  public:
    bool offersSameForRest() const { return shown_ >= 2; }
    const std::optional<std::size_t>& answerForRest() const { return forRest_; }
    void noteShown() { ++shown_; }
    void answerRest(std::size_t button) { forRest_ = button; }

  private:
    int shown_ = 0;
    std::optional<std::size_t> forRest_;
};

} // namespace engine
