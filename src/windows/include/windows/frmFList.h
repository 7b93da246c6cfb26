// The file lister: the whole game directory as a tree of lines, on the screen and in a file.
#pragma once

#include <string>
#include <string_view>

#include "windows/controls.h"
#include "windows/machine.h"

namespace windows {

class frmMain;

class frmFList : public Window {
  public:
    explicit frmFList(frmMain& main);
    ~frmFList() override;
    frmFList(const frmFList&) = delete;
    frmFList& operator=(const frmFList&) = delete;

    Label lblInfo{
        *this, "lblInfo",
        "This shows a list of all the files in your TA directory.  A copy of this output is saved "
        "to \"TAFiles.txt\" in your TA directory -- Please include that file with any bug report "
        "you submit."};
    TextBox txtFList{*this, "txtFList", TextBox::Kind::readOnlyLines};
    Button cmdClipboard{*this, "cmdClipboard", "Copy To Clipboard"};
    Button cmdDone{*this, "cmdDone", "Done"};

    /// Lists the game directory. Throws Failure if the file cannot be made.
    void Form_Load();
    void Form_Unload();
    void cmdClipboard_Click();

    /// `theText` repeated; empty for 0.
    static std::string xTimes(std::string_view theText, int numTimes);

  private:
    void doFileList(const std::string& theDir, int theLevel);
    void tellOfOverflow();
    void outputLine(const std::string& text);

    frmMain& main_;
    Toolkit& toolkit_;
};

} // namespace windows
