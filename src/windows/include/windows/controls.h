// Controls without a toolkit: what a window holds, as state and events. The logic reads and sets
// the state; a view, if there is one, shows it and passes on what the user does.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "formats/picture.h"
#include "windows/element.h"
#include "windows/lists.h"

namespace windows {

/// A label; one with an onClick is a link.
class Label : public Control {
  public:
    using Control::Control;
    std::function<void()> onClick;
};

/// What a user may utter while a procedure runs: stop copying, close the log. The procedure that
/// minds it looks at it now and then.
struct Wish {
    bool noted = false;
};

class Button : public Control {
  public:
    using Control::Control;
    std::function<void()> onClick;
    /// What pressing it means while a procedure runs; null where it means a click for later. Null
    /// again before the wish goes. A button with a wish is not greyed while its window rests.
    Wish* wish = nullptr;
};

class Frame : public Control {
  public:
    using Control::Control;
};

/// A text box. Appending a line costs the same however long the text is.
class TextBox : public Control {
  public:
    enum class Kind { line, readOnlyLine, lines, readOnlyLines };

    TextBox(Window& owner, std::string name, Kind kind, std::string text = {})
        : Control(owner, std::move(name), std::move(text)), kind_(kind) {}

    bool readOnly() const { return kind_ == Kind::readOnlyLine || kind_ == Kind::readOnlyLines; }
    bool manyLines() const { return kind_ == Kind::lines || kind_ == Kind::readOnlyLines; }

    void append(std::string_view text);
    void scrollToEnd();
    bool atEnd() const { return atEnd_; }

    /// Grows with every change that was no append, so that a view can show an append alone.
    unsigned revision() const { return revision_; }

    /// The user has left the box.
    std::function<void()> onLeave;
    /// A text that only says what belongs here: a box that holds it counts as empty for a person.
    std::string hint;

  private:
    void textReplaced() override;

    Kind kind_;
    bool atEnd_ = false;
    unsigned revision_ = 0;
};

/// A small picture that can be clicked. Its text says what it shows to those who cannot see it.
class PictureBox : public Control {
  public:
    using Control::Control;

    /// Null where there is none.
    const std::shared_ptr<const formats::Picture>& picture() const { return picture_; }
    void setPicture(std::shared_ptr<const formats::Picture> picture, std::string text);

    std::function<void()> onClick;

  private:
    std::shared_ptr<const formats::Picture> picture_;
};

/// A box to tick.
class CheckBox : public Control {
  public:
    using Control::Control;

    bool checked() const { return checked_; }
    void setChecked(bool checked);
    /// What a click of the user does.
    void click();

    std::function<void()> onClick;

  private:
    bool checked_ = false;
};

/// How much of a piece of work is done. Its text says so in words.
class ProgressBar : public Control {
  public:
    using Control::Control;

    static constexpr int whole = 1000;
    /// From 0 to `whole`.
    int done() const { return done_; }
    void setDone(int done);
    /// So many of so many things, which the text tells.
    void setDone(std::size_t done, std::size_t all);

  private:
    int done_ = 0;
};

/// A dialog that a window keeps to ask for a file. It is never seen as a control.
class FilePicker : public Control {
  public:
    using Control::Control;

    std::string title;
    std::string filter; ///< captions and patterns in turn, set off by "|"
    std::string defaultExtension;
    std::string folder;   ///< where it starts, in the system's form
    std::string fileName; ///< the file picked last, in the system's form
};

/// A menu of a window's menu bar. "&" stands before the access key, here and in its items.
class Menu : public Control {
  public:
    using Control::Control;
};

class MenuItem : public Control {
  public:
    enum class Start { enabled, disabled };

    MenuItem(Window& owner, const Menu& menu, std::string name, std::string caption,
             std::string shortcut, Start start = Start::enabled);

    const Menu& menu() const { return menu_; }
    const std::string& shortcut() const { return shortcut_; }
    bool checked() const { return checked_; }
    /// An item whose check was set once shows a place for it from then on.
    bool checkable() const { return checkable_; }
    void setChecked(bool checked);
    void makeCheckable();

    std::function<void()> onClick;

  private:
    const Menu& menu_;
    std::string shortcut_;
    bool checked_ = false;
    bool checkable_ = false;
};

/// A shape that the logic moves about. The unit of place and size is the twip, 1/1440 inch.
class Shape : public Control {
  public:
    Shape(Window& owner, std::string name, int left, int top, int size)
        : Control(owner, std::move(name)), left_(left), top_(top), size_(size) {}

    int left() const { return left_; }
    int top() const { return top_; }
    int size() const { return size_; }
    void moveTo(int left, int top);

  private:
    int left_;
    int top_;
    int size_;
};

/// Ticks while it is enabled. A timer starts disabled.
class Timer : public Control {
  public:
    Timer(Window& owner, std::string name, int interval);

    int interval() const { return interval_; }
    void setInterval(int milliseconds);

    std::function<void()> onTick;

  private:
    int interval_;
};

/// A window: its title is its text. Windows start hidden.
class Window : public Element {
  public:
    Window(std::string name, std::string title);

    const std::vector<Control*>& controls() const { return controls_; }
    Control* find(std::string_view name) const;

    /// A resting window takes no input, though its controls keep their state.
    bool resting() const { return resting_; }
    void setResting(bool resting);

    /// Where the user is to go on: a view gives that control the focus.
    void leadTo(Control& control);
    /// The control that the user was last led to, once; null where there is none.
    Control* takeLead() { return std::exchange(lead_, nullptr); }

    /// What the close box does.
    std::function<void()> onClose;
    /// What the key does that leads out of a window; where there is nothing, that of the close box.
    std::function<void()> onEscape;
    /// What closing it means while a procedure runs; null where it means to close it later.
    Wish* closeWish = nullptr;
    /// What that key means then, where it does something of its own.
    Wish* escapeWish = nullptr;
    /// What Enter presses, or null.
    Button* defaultButton = nullptr;
    /// Takes files and folders that the user drops, by their paths in the system's form. A window
    /// without it takes none.
    std::function<void(const std::vector<std::string>& paths)> onDrop;

  private:
    friend class Control;
    std::vector<Control*> controls_;
    Control* lead_ = nullptr;
    bool resting_ = false;
};

} // namespace windows
