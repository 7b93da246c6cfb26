// What a window shows over its whole area while files are dragged over it.
#pragma once

#include <QWidget>

namespace views {

class DropHint final : public QWidget {
  public:
    DropHint(const QString& text, QWidget* window);

    void appear();

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    QString text_;
};

} // namespace views
