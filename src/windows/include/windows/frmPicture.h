// A picture by itself, as large as the window lets it be.
#pragma once

#include <memory>
#include <string>

#include "windows/controls.h"
#include "windows/toolkit.h"

namespace windows {

class frmPicture : public Window {
  public:
    /// The text says what the picture shows.
    frmPicture(Toolkit& toolkit, std::shared_ptr<const formats::Picture> picture,
               const std::string& text);
    ~frmPicture() override;
    frmPicture(const frmPicture&) = delete;
    frmPicture& operator=(const frmPicture&) = delete;

    PictureBox picLarge{*this, "picLarge"};
    Label lblPicture{*this, "lblPicture"};
    Button cmdDone{*this, "cmdDone", "Close"};

  private:
    Toolkit& toolkit_;
};

} // namespace windows
