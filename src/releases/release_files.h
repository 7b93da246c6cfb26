// Which files of a release are looked into, wherever they lie, and their bytes.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "formats/archive.h"
#include "formats/file_bytes.h"
#include "platform/disk.h"
#include "release_key.h"
#include "releases/contents.h"

namespace releases {

/// Files of a release by kind and name. Of a file that several places have the game takes one:
/// loose files lie over archives, and archives over one another in the game's order. It is found by
/// `listNext`, then `lookAtNext`, then `openNext`, each until it says false.
class ReleaseFiles {
  public:
    enum class Kind : std::uint8_t { mapInfo, map, unit, picture, weapons, palette };

    /// In the archive of that number, or loose.
    struct Place {
        static constexpr std::uint32_t loose = 0xFFFFFFFF;
        std::uint32_t archive = loose;
        std::uint32_t entry = 0; ///< or the number of the loose file
        std::string path;        ///< without the ending
    };
    using Places = std::map<std::string, Place>; ///< by the folded name of the file without ending

    /// By the absolute path of the release's folder, or of a loose file that is one. How many
    /// files and archives there are, and what cannot be read of them, is told in `told`, which must
    /// outlive it as the disk must.
    ReleaseFiles(platform::Disk& disk, std::string path, Contents& told);

    /// The next folder. What cannot be listed holds nothing.
    bool listNext();
    /// Size and time of the next few files.
    bool lookAtNext();
    /// The next archive, and last all loose files.
    bool openNext();

    /// Adds what a listing shows of all files.
    void addTo(ReleaseKey& key) const;
    Places& of(Kind kind) { return places_[static_cast<std::size_t>(kind)]; }

    /// Throws Failure where the file cannot be opened, and lets that of `read` pass.
    void withFile(const Place& place, const std::function<void(formats::FileBytes&)>& read);
    /// Throws Failure for more than `most` bytes, or where they cannot be read.
    std::vector<std::uint8_t> bytesOf(const Place& place, std::uint64_t most);
    /// Empty where it cannot be read, which is told.
    std::string textOf(const Place& place, std::string_view ending);

  private:
    struct LooseFile {
        std::string path; ///< below the release's folder
        platform::EntryFacts facts;
    };
    struct Opened {
        std::unique_ptr<platform::FileView> view;
        std::unique_ptr<formats::Archive> archive;
        std::uint64_t spent = 0; ///< bytes that were read out of it
    };

    std::string absolute(const LooseFile& file) const;
    void orderArchives();
    void open(const LooseFile& file);
    void noteLooseFiles();
    void noteFilesOf(std::uint32_t number);
    void note(std::string_view path, std::uint32_t archive, std::size_t entry);
    void tellFault(const std::string& path, const std::string& reason);

    platform::Disk& disk_;
    std::string path_;
    Contents& told_;
    std::vector<std::string> folders_; ///< still to be listed, below the release's
    std::vector<LooseFile> loose_;
    std::vector<std::size_t> packed_; ///< the archives among them
    std::vector<Opened> archives_;
    std::array<Places, 6> places_;
    std::size_t next_ = 0; ///< in what is gone through
};

} // namespace releases
