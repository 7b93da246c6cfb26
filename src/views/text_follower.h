// A long text on the screen: of a text that has only grown, no more than the new part is set, and
// of what comes faster than a person can read, no more than its end until the work pauses.
#pragma once

#include <QPlainTextEdit>

#include "views/binding.h"
#include "windows/controls.h"

namespace views {

/// Shows the part of a text that has come since the last time, or all of a text that is another.
class TextFollower {
  public:
    TextFollower(const windows::TextBox& control, QPlainTextEdit* edit)
        : control_(control), edit_(edit) {}

    void operator()(Pace pace);
    /// Lines were left out that are to be shown at the next pause.
    bool lags() const { return lags_; }

  private:
    void showAll(const QString& text);

    const windows::TextBox& control_;
    QPlainTextEdit* edit_;
    unsigned revision_ = 0;
    std::size_t shown_ = 0;
    bool lags_ = false;
};

} // namespace views
