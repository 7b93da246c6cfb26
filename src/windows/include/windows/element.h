// The ground of all controls and windows: a state, and a view that is told of its changes.
#pragma once

#include <string>
#include <utility>

namespace windows {

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

    /// The window that it stands in.
    Window& window() const { return window_; }

    /// There is nothing that it could act on now: using it does nothing, and a view greys it.
    bool idle() const { return idle_; }
    void setIdle(bool idle);

  private:
    Window& window_;
    bool idle_ = false;
};

} // namespace windows
