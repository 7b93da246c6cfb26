// The build-menu modifier, an optional last step of the apply: the build menus of all archives are
// merged and written back as one generated download TDF for each unit.
#pragma once

#include <map>
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
    /// A file of `guis` or `download` that has been extracted, or is to be written. Most of them
    /// are read once and then replaced, so their content is held in memory and only what is to stay
    /// is written. A large one lies on the disk.
    struct Extracted {
        std::string path;
        std::optional<std::string> content; ///< nothing for one that lies on the disk
    };
    /// By folded name, which is the order of a listing.
    using ExtractedFiles = std::map<std::string, Extracted>;

    void showStage(const std::string& text);
    bool foldersAreFree();
    void extractData();
    bool holdInMemory(modHPIUtil& archives, int handle, const std::string& name);
    void addThoseOnDisk(ExtractedFiles& files, const std::string& folder);
    std::string contentOf(const Extracted& file);
    void readGuiPages(bool small);
    void readDownloads();
    void putOutOfAction();
    void mergeMenus(bool small);
    void writeMenuList(const std::string& fileName);
    void writeDownloads(bool small);
    void copyDataFiles(bool small);
    std::string stockFile(const std::string& name, bool small) const;

    engine::frmMain& main_;
    platform::Toolkit& toolkit_;
    platform::Disk& disk_;
    bool compressMenus_;
    MenuTable menus_;
    ExtractedFiles pages_;
    ExtractedFiles downloads_;
    std::size_t held_ = 0;
    std::optional<std::string> unitLeadingOut_;
};

} // namespace menumod
