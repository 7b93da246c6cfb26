// The build-menu modifier, an optional last step of the apply: the build menus of all archives are
// merged and written back as one generated download TDF for each unit.
#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>

#include "formats/build_menu.h"
#include "formats/menu_files.h"
#include "formats/trellis_notes.h"
#include "menumod/extraction.h"

namespace menumod {

class modTrlx {
  public:
    struct Settings {
        bool compress = false; ///< closes the gaps in the menus
        bool small = false;    ///< for a screen of 800x600
    };

    modTrlx(releases::GameDirectory& game, Settings settings);

    /// False, with nothing changed, where a folder stands in the way; the user has been told. A
    /// stage that fails throws Failure and leaves what was written until then.
    bool enableTrlx();

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

    void note(const std::string& path);
    void writeNotes();
    void noteWhatIsExtracted();
    void showStage(const std::string& text);
    bool foldersAreFree();
    void extractData();
    bool holdInMemory(modHPIUtil& archives, int handle, const std::string& name);
    void addThoseOnDisk(ExtractedFiles& files, const std::string& folder);
    std::string contentOf(const Extracted& file);
    void readGuiPages();
    void readDownloads();
    void putOutOfAction();
    void mergeMenus();
    void writeMenuList(const std::string& fileName);
    void writeDownloads();
    void copyDataFiles();
    std::string stockFile(const std::string& name) const;

    releases::GameDirectory& game_;
    Settings settings_;
    formats::MenuTable menus_;
    ExtractedFiles pages_;
    ExtractedFiles downloads_;
    std::size_t held_ = 0;
    formats::TrellisNotes notes_;
    std::set<std::string> noted_; ///< folded
    std::optional<std::string> unitLeadingOut_;
};

} // namespace menumod
