// Texts that make way where there is no room: their end is cut, and a tooltip has the whole.
#pragma once

#include <QLabel>
#include <QPushButton>

namespace views {

class ElidedLabel final : public QLabel {
  public:
    using QLabel::QLabel;

  protected:
    void paintEvent(QPaintEvent* event) override;
};

/// Each line of its text is cut by itself.
class ElidedButton final : public QPushButton {
  public:
    using QPushButton::QPushButton;

  protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace views
