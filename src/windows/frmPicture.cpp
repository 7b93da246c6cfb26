// Shown until the user has seen enough: a click on the picture closes it as it has opened it.
#include "windows/frmPicture.h"

#include <utility>

namespace windows {

frmPicture::frmPicture(Toolkit& toolkit, std::shared_ptr<const formats::Picture> picture,
                       const std::string& text)
    : Window("frmPicture", "Picture"), toolkit_(toolkit) {
    picLarge.setPicture(std::move(picture), text);
    lblPicture.setText(text);
    onClose = [this] { toolkit_.hide(*this); };
    picLarge.onClick = onClose;
    cmdDone.onClick = onClose;
    defaultButton = &cmdDone;
    toolkit_.load(*this);
}

frmPicture::~frmPicture() {
    toolkit_.unload(*this);
}

} // namespace windows
