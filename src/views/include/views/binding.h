// The tie between a control of the logic and the widget that shows it.
#pragma once

#include <functional>
#include <vector>

#include <QString>

#include "windows/controls.h"

namespace views {

class Binding;

/// Whether the program is in the middle of its work, or has come to a pause: it waits.
enum class Pace { working, pausing };

/// Gathers the controls that have changed, so that each is shown once however often it changed.
class Refresher {
  public:
    void add(Binding* binding) { dirty_.push_back(binding); }
    void forget(const Binding* binding);
    /// Brings all widgets up to date, while the program works as far as a person can follow.
    void flush(Pace pace);
    Pace pace() const { return pace_; }
    /// A widget that is to be brought up to date at the next pause.
    void putOff(Binding* binding) { putOff_.push_back(binding); }

  private:
    std::vector<Binding*> dirty_;
    std::vector<Binding*> putOff_;
    Pace pace_ = Pace::pausing;
};

class Binding final : public windows::View {
  public:
    /// `refresh` copies the element's state to its widget. It runs with the next flush, and again
    /// after each change.
    Binding(Refresher& refresher, windows::Element& element, std::function<void()> refresh);
    ~Binding() override;

    void changed() override;
    void refresh();

  private:
    Refresher& refresher_;
    windows::Element& element_;
    std::function<void()> refresh_;
    bool dirty_ = false;
};

/// A text of the logic as Qt has it: decoded, with single line breaks.
QString shown(std::string_view bytes);
/// A text that the user has entered, as the logic has it.
std::string entered(const QString& text);

/// A path that Qt gave out, in the system's form.
std::string nativePath(const QString& path);

} // namespace views
