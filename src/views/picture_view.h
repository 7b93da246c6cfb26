// A small picture of the game on the screen: every pixel of it a whole number of those of the
// screen.
#pragma once

#include <memory>

#include <QAbstractButton>
#include <QImage>

#include "formats/picture.h"

namespace views {

/// The picture as Qt has it; null for none.
QImage imageOf(const std::shared_ptr<const formats::Picture>& picture);

/// As large as whole pixels of the screen let it be in so much room, in these pixels; one that is
/// larger than the room is made smaller.
QImage fitted(const QImage& image, QSize room);

/// A button that shows a picture in its middle. Enter presses it, as Space does.
class PictureView final : public QAbstractButton {
    Q_OBJECT

  public:
    PictureView(QSize size, QWidget* parent);

    void setPicture(const std::shared_ptr<const formats::Picture>& picture);
    QSize sizeHint() const override { return size_; }

  protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    QSize size_;
    std::shared_ptr<const formats::Picture> picture_;
    QImage image_;
    QImage fitted_; ///< as it was painted last
    QSize room_;
};

} // namespace views
