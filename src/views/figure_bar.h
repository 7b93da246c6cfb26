// A bar of progress with a figure on it.
#pragma once

#include <QProgressBar>

namespace views {

/// The figure stands out from the part that is done and from the rest alike.
class FigureBar final : public QProgressBar {
    Q_OBJECT

  public:
    using QProgressBar::QProgressBar;

  protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace views
