// State of the controls. Every change of a state tells the view, if there is one.
#include "windows/controls.h"

#include <algorithm>
#include <utility>

#include "platform/text.h"

namespace windows {

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
    : Element(std::move(name), std::move(text)), window_(owner) {
    owner.controls_.push_back(this);
}

void Control::setIdle(bool idle) {
    if (std::exchange(idle_, idle) != idle)
        changed();
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

void ProgressBar::setDone(int done) {
    if (std::exchange(done_, done) != done)
        changed();
}

void ProgressBar::setDone(std::size_t done, std::size_t all) {
    setText(platform::withSeparators(done) + " of " + platform::withSeparators(all));
    setDone(all == 0 ? whole : static_cast<int>(done * whole / all));
}

void PictureBox::setPicture(std::shared_ptr<const formats::Picture> picture, std::string text) {
    if (picture == picture_ && text == this->text())
        return;
    picture_ = std::move(picture);
    setText(std::move(text));
}

void CheckBox::setChecked(bool checked) {
    if (std::exchange(checked_, checked) != checked)
        changed();
}

void CheckBox::click() {
    setChecked(!checked_);
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

void Window::leadTo(Control& control) {
    lead_ = &control;
    changed();
}

void Window::setResting(bool resting) {
    resting_ = resting;
    changed();
}

} // namespace windows
