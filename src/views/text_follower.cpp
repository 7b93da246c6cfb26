// Appends where the text has grown.
#include "text_follower.h"

#include <QScrollBar>
#include <QTextCursor>

namespace views {
namespace {

/// Some screens full.
constexpr std::size_t mostAtOnce = 16'384;

/// Where the lines begin that stand in the last bytes of a text, at the earliest at `from`.
std::size_t lastLines(std::string_view text, std::size_t from) {
    const auto lineBreak = text.find('\n', text.size() - mostAtOnce);
    return lineBreak == std::string_view::npos ? from : std::max(from, lineBreak + 1);
}

} // namespace

void TextFollower::operator()(Pace pace) {
    const auto& text = control_.text();
    const bool catchesUp = lags_ && pace == Pace::pausing;
    if (catchesUp || revision_ != control_.revision() || text.size() < shown_) {
        showAll(shown(text));
        revision_ = control_.revision();
        lags_ = false;
    } else if (text.size() > shown_) {
        auto from = shown_;
        if (pace == Pace::working && text.size() - shown_ > mostAtOnce) {
            from = lastLines(text, shown_);
            lags_ = true;
        }
        QTextCursor end(edit_->document());
        end.movePosition(QTextCursor::End);
        end.insertText(shown(std::string_view(text).substr(from)));
    }
    shown_ = text.size();
    if (control_.atEnd())
        edit_->verticalScrollBar()->setValue(edit_->verticalScrollBar()->maximum());
}

/// What the user has typed is there already, and setting it anew would move the cursor.
void TextFollower::showAll(const QString& text) {
    if (!control_.readOnly() && edit_->toPlainText() == text)
        return;
    const QSignalBlocker quiet(edit_);
    edit_->setPlainText(text);
}

} // namespace views
