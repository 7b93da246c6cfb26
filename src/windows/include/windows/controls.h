// Controls without a toolkit: what a window holds, as state and events. The logic reads and sets
// the state; a view, if there is one, shows it and passes on what the user does.
#pragma once

#include <functional>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

class Window;

/// Told whenever a control or window has changed. A view gathers such news and looks at the state
/// later, so setting a state costs nothing much.
class View {
  public:
    View() = default;
    virtual ~View() = default;
    View(const View&) = delete;
    View& operator=(const View&) = delete;
    virtual void changed() = 0;
};

/// What windows and controls have in common. Texts are bytes as the logic has them.
class Element {
  public:
    Element(std::string name, std::string text) : name_(std::move(name)), text_(std::move(text)) {}
    virtual ~Element() = default;
    Element(const Element&) = delete;
    Element& operator=(const Element&) = delete;

    const std::string& name() const { return name_; }
    const std::string& text() const { return text_; }
    bool enabled() const { return enabled_; }
    bool visible() const { return visible_; }

    void setText(std::string text);
    void setEnabled(bool enabled);
    void setVisible(bool visible);

    /// Set by the view that shows this element, and null where nothing shows it.
    View* view = nullptr;

  protected:
    void changed() const {
        if (view != nullptr)
            view->changed();
    }
    std::string& editText() { return text_; }
    virtual void textReplaced() {}

  private:
    std::string name_;
    std::string text_;
    bool enabled_ = true;
    bool visible_ = true;
};

class Control : public Element {
  public:
    Control(Window& owner, std::string name, std::string text = {});

    /// Free for the owner's use.
    std::string tag;
};

/// A label; one with an onClick is a link.
class Label : public Control {
  public:
    using Control::Control;
    std::function<void()> onClick;
};

class Button : public Control {
  public:
    using Control::Control;
    std::function<void()> onClick;
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

  private:
    void textReplaced() override;

    Kind kind_;
    bool atEnd_ = false;
    unsigned revision_ = 0;
};

/// A list with an on/off mark for each item. Items count from 0.
class MarkList : public Control {
  public:
    struct Item {
        std::string text;
        bool marked = false;
    };

    using Control::Control;

    void clear();
    void add(std::string text);
    void setMarked(int index, bool marked);

    const std::vector<Item>& items() const { return items_; }
    int count() const { return static_cast<int>(items_.size()); }
    /// The item clicked last, or -1.
    int index() const { return index_; }
    /// Empty for an index outside the list.
    const std::string& itemText(int index) const;
    bool marked(int index) const { return has(index) && items_[at(index)].marked; }
    int markedCount() const { return markedCount_; }
    /// Grows when items come or go.
    unsigned revision() const { return revision_; }

    /// What a click of the user does: turns the mark over, makes the item current, tells the owner.
    void click(int index);

    std::function<void()> onClick;

  private:
    bool has(int index) const { return index >= 0 && index < count(); }
    static std::size_t at(int index) { return static_cast<std::size_t>(index); }

    std::vector<Item> items_;
    int index_ = -1;
    int markedCount_ = 0;
    unsigned revision_ = 0;
};

/// A plain list: nothing in it can be chosen.
class ListBox : public Control {
  public:
    struct Item {
        std::string text;
        std::string note; ///< stands beside the text, which it is no part of
    };

    using Control::Control;

    void clear();
    void add(std::string text, std::string note = {});
    const std::vector<Item>& items() const { return items_; }

  private:
    std::vector<Item> items_;
};

/// A drop-down list that cannot be typed into. Its text is the row chosen, empty at first.
class ComboBox : public Control {
  public:
    ComboBox(Window& owner, std::string name, std::vector<std::string> rows)
        : Control(owner, std::move(name)), rows_(std::move(rows)) {}

    const std::vector<std::string>& rows() const { return rows_; }
    /// The row chosen, or -1.
    int index() const { return index_; }
    void pick(int index);
    /// Chooses the row of that text; without one nothing changes.
    void pick(std::string_view text);

  private:
    std::vector<std::string> rows_;
    int index_ = -1;
};

/// How much of a piece of work is done.
class ProgressBar : public Control {
  public:
    using Control::Control;

    static constexpr int whole = 1000;
    /// From 0 to `whole`.
    int done() const { return done_; }
    void setDone(int done);

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

/// A strip of tabs. One tab is always current.
class TabStrip : public Control {
  public:
    TabStrip(Window& owner, std::string name, std::vector<std::string> captions);

    const std::vector<std::string>& captions() const { return captions_; }
    int index() const { return index_; }
    const std::string& caption() const { return captions_[static_cast<std::size_t>(index_)]; }
    void click(int index);

    /// Figures that stand beside the caption of a tab.
    struct Badge {
        int marked = 0;
        int all = 0;
    };
    /// One for each tab, or none at all before the first was set.
    const std::vector<Badge>& badges() const { return badges_; }
    void setBadge(int index, Badge badge);

    std::function<void()> onClick;

  private:
    std::vector<std::string> captions_;
    std::vector<Badge> badges_;
    int index_ = 0;
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

    /// What the close box does.
    std::function<void()> onClose;
    /// What Enter presses, or null.
    Button* defaultButton = nullptr;
    /// Takes files and folders that the user drops, by their paths in the system's form. A window
    /// without it takes none.
    std::function<void(const std::vector<std::string>& paths)> onDrop;

  private:
    friend class Control;
    std::vector<Control*> controls_;
    bool resting_ = false;
};

} // namespace platform
