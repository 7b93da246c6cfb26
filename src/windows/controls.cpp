// State of the controls. Every change of a state tells the view, if there is one.
#include "windows/controls.h"

#include <algorithm>
#include <utility>

namespace platform {

void Element::setText(std::string text) {
    text_ = std::move(text);
    textReplaced();
    changed();
}

void Element::setEnabled(bool enabled) {
    enabled_ = enabled;
    changed();
}

void Element::setVisible(bool visible) {
    visible_ = visible;
    changed();
}

Control::Control(Window& owner, std::string name, std::string text)
    : Element(std::move(name), std::move(text)) {
    owner.controls_.push_back(this);
}

void TextBox::append(std::string_view text) {
    editText() += text;
    changed();
}

void TextBox::scrollToEnd() {
    atEnd_ = true;
    changed();
}

void TextBox::textReplaced() {
    atEnd_ = false;
    ++revision_;
}

void MarkList::clear() {
    items_.clear();
    index_ = -1;
    markedCount_ = 0;
    ++revision_;
    changed();
}

void MarkList::add(std::string text) {
    items_.push_back({std::move(text), false});
    ++revision_;
    changed();
}

void MarkList::setMarked(int index, bool marked) {
    if (!has(index) || items_[at(index)].marked == marked)
        return;
    items_[at(index)].marked = marked;
    markedCount_ += marked ? 1 : -1;
    changed();
}

const std::string& MarkList::itemText(int index) const {
    static const std::string none;
    return has(index) ? items_[at(index)].text : none;
}

void MarkList::click(int index) {
    if (!has(index))
        return;
    setMarked(index, !marked(index));
    index_ = index;
    changed();
    if (onClick)
        onClick();
}

void ListBox::clear() {
    items_.clear();
    changed();
}

void ListBox::add(std::string text, std::string note) {
    items_.push_back({std::move(text), std::move(note)});
    changed();
}

void ComboBox::pick(int index) {
    if (index < 0 || index >= static_cast<int>(rows_.size()))
        return;
    index_ = index;
    setText(rows_[static_cast<std::size_t>(index)]);
}

void ComboBox::pick(std::string_view text) {
    pick(static_cast<int>(std::find(rows_.begin(), rows_.end(), text) - rows_.begin()));
}

void ProgressBar::setDone(int done) {
    if (std::exchange(done_, done) != done)
        changed();
}

TabStrip::TabStrip(Window& owner, std::string name, std::vector<std::string> captions)
    : Control(owner, std::move(name)), captions_(std::move(captions)) {}

void TabStrip::setBadge(int index, Badge badge) {
    badges_.resize(captions_.size());
    badges_[static_cast<std::size_t>(index)] = badge;
    changed();
}

void TabStrip::click(int index) {
    if (index < 0 || index >= static_cast<int>(captions_.size()))
        return;
    index_ = index;
    changed();
    if (onClick)
        onClick();
}

MenuItem::MenuItem(Window& owner, const Menu& menu, std::string name, std::string caption,
                   std::string shortcut, Start start)
    : Control(owner, std::move(name), std::move(caption)), menu_(menu),
      shortcut_(std::move(shortcut)) {
    setEnabled(start == Start::enabled);
}

void MenuItem::setChecked(bool checked) {
    checked_ = checked;
    checkable_ = true;
    changed();
}

void MenuItem::makeCheckable() {
    checkable_ = true;
}

void Shape::moveTo(int left, int top) {
    left_ = left;
    top_ = top;
    changed();
}

Timer::Timer(Window& owner, std::string name, int interval)
    : Control(owner, std::move(name)), interval_(interval) {
    setEnabled(false);
}

void Timer::setInterval(int milliseconds) {
    interval_ = milliseconds;
    changed();
}

Window::Window(std::string name, std::string title) : Element(std::move(name), std::move(title)) {
    setVisible(false);
}

Control* Window::find(std::string_view name) const {
    const auto at = std::find_if(controls_.begin(), controls_.end(),
                                 [&](const Control* c) { return c->name() == name; });
    return at == controls_.end() ? nullptr : *at;
}

void Window::setResting(bool resting) {
    resting_ = resting;
    changed();
}

} // namespace platform
