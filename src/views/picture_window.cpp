// The picture over what it shows.
#include "picture_window.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include "layouts.h"
#include "picture_view.h"

namespace views {
namespace {

class PictureWindow final : public WindowView {
  public:
    PictureWindow(windows::frmPicture& window, QtToolkit& toolkit) : WindowView(window, toolkit) {
        // Four times a small map of the game, and the frame around it.
        constexpr QSize roomForFour(508, 508);
        auto* column = new QVBoxLayout(this);
        column->setContentsMargins(margin, margin, margin, margin);
        column->setSpacing(margin);
        auto* large = picture(window.picLarge, roomForFour);
        large->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
        column->addWidget(large, 1);
        auto* foot = tight<QHBoxLayout>();
        foot->addWidget(label(window.lblPicture, true), 1);
        auto* done = button(window.cmdDone, 'C');
        done->setDefault(true);
        foot->addWidget(done);
        column->addLayout(foot);
        setMinimumSize(240, 200);
        resize(layout()->sizeHint());
        done->setFocus();
    }
};

} // namespace

std::unique_ptr<WindowView> makePictureWindow(windows::frmPicture& window, QtToolkit& toolkit) {
    return std::make_unique<PictureWindow>(window, toolkit);
}

} // namespace views
