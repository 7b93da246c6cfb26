// The build-menu modifier, an optional last step of the apply: the build menus of all archives are
// merged and written back as one generated download TDF for each unit.
#pragma once

#include <optional>
#include <string>

#include "conflict/modConflict.h"
#include "menumod/build_menu.h"

namespace menumod {

class modTrlx {
  public:
    modTrlx(engine::frmMain& main, bool compressMenus);

    /// False, with nothing changed, where a folder stands in the way; the user has been told. A
    /// stage that fails throws and leaves what was written until then.
    bool enableTrlx(bool small);

    /// A unit whose name would have led its file out of the folder `download`, if that is what
    /// failed.
    const std::optional<std::string>& unitLeadingOut() const { return unitLeadingOut_; }

  private:
    void showStage(const std::string& text);
    bool foldersAreFree();
    void extractData();
    void readGuiPages(bool small);
    void readDownloads();
    void writeMenuList(const std::string& fileName);
    void writeDownloads(bool small);
    void copyDataFiles(bool small);
    std::string stockFile(const std::string& name, bool small) const;

    engine::frmMain& main_;
    platform::Toolkit& toolkit_;
    platform::Disk& disk_;
    bool compressMenus_;
    MenuTable menus_;
    std::optional<std::string> unitLeadingOut_;
};

} // namespace menumod
