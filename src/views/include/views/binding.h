// The tie between a control of the logic and the widget that shows it.
#pragma once

#include <functional>
#include <vector>

#include <QString>

#include "windows/controls.h"

namespace views {

class Binding;

/// Gathers the controls that have changed, so that each is shown once however often it changed.
class Refresher {
  public:
    void add(Binding* binding) { dirty_.push_back(binding); }
    void forget(const Binding* binding);
    /// Brings all widgets up to date.
    void flush();

  private:
    std::vector<Binding*> dirty_;
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
