// Appends where the text has grown.
#include "text_follower.h"

#include <QScrollBar>
#include <QTextCursor>

#include "views/binding.h"

namespace views {

void TextFollower::operator()() {
    const auto& text = control_.text();
    if (revision_ != control_.revision() || text.size() < shown_) {
        showAll(shown(text));
        revision_ = control_.revision();
    } else if (text.size() > shown_) {
        QTextCursor end(edit_->document());
        end.movePosition(QTextCursor::End);
        end.insertText(shown(std::string_view(text).substr(shown_)));
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
