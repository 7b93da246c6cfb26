// The one door for questions of the core to the user.
#pragma once

#include "platform/questions.h"
#include "windows/log_window.h"
#include "windows/toolkit.h"

namespace windows {

class AskUser final : public platform::Questions {
  public:
    AskUser(Toolkit& toolkit, LogWindow& log) : toolkit_(toolkit), log_(log) {}

    /// In a message box, unless an earlier question of the row was answered for the rest; then the
    /// log tells of it.
    std::size_t ask(const platform::Question& question, platform::MessageRow* row) override;

    /// A line of the log, as soon as there is one.
    void noteAnswered(const platform::Question& question, std::size_t button) override;

  private:
    Toolkit& toolkit_;
    LogWindow& log_;
};

} // namespace windows
