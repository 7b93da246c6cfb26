// Finds out what a release brings, a small step at a time, so that it can be given up between two.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "formats/archive.h"
#include "formats/file_bytes.h"
#include "platform/disk.h"
#include "releases/contents.h"

namespace releases {

class ContentsCache;

/// The colours of the game: out of its folder, its first archive, or any other that has them.
/// Nothing where none has.
std::optional<formats::Colours> coloursOfGame(platform::Disk& disk, const std::string& folder);

/// One look at one release. Nothing is written but the cache; of the archives only the parts that
/// are needed are unpacked. Hostile files cost no more memory than honest ones, and a step never
/// more than the reading of one file. What cannot be read is told in the result: nothing throws.
///
/// It belongs to one thread, with its disk and its cache: a second thread has a disk of its own
/// over the same raw one, where that serves threads. While it lives the archives are mapped.
class ContentsReader {
  public:
    /// By the absolute path of the release's folder, or of a loose file that is one. Disk and cache
    /// must outlive it; without a cache all is read anew. Without `colours`, and where the release
    /// brings none of its own, pictures of maps are drawn from their heights.
    ContentsReader(platform::Disk& disk, std::string path,
                   const std::optional<formats::Colours>& colours, ContentsCache* cache = nullptr);
    ~ContentsReader();

    /// Does the next piece of the work. False once all is done.
    bool step();

    /// What is known so far. Maps and units are all there from the moment when all archives are
    /// open, and get their facts and pictures one by one.
    const Contents& contents() const { return contents_; }

  private:
    enum class Stage { list, facts, open, maps, units, weapons, done };
    /// Which files are looked into, by folder and ending.
    enum class Kind : std::uint8_t { mapInfo, map, unit, picture, weapons, palette };
    static constexpr std::size_t kinds = 6;

    struct Opened {
        std::string name; ///< below the release's folder
        std::unique_ptr<platform::FileView> view;
        std::unique_ptr<formats::Archive> archive;
        std::uint64_t spent = 0; ///< bytes that were read out of it
    };
    struct LooseFile {
        std::string path; ///< below the release's folder
        platform::EntryFacts facts;
    };
    /// In the archive of that number, or loose.
    struct Place {
        static constexpr std::uint32_t loose = 0xFFFFFFFF;
        std::uint32_t archive = loose;
        std::uint32_t entry = 0; ///< or the number of the loose file
        std::string path;        ///< without the ending
    };
    using Places = std::map<std::string, Place>; ///< by the folded name of the file without ending

    static std::optional<Kind> kindOf(std::string_view path);
    Places& of(Kind kind) { return places_[static_cast<std::size_t>(kind)]; }

    void enter(Stage stage);
    void listNext();
    void lookAtNext();
    void openNext();
    void openArchive(const LooseFile& file);
    void noteFilesOf(std::uint32_t number);
    void note(Kind kind, Place place);
    void beginReading();
    bool takeFromCache();
    void readMap(MapContent& map);
    void readUnit(UnitContent& unit);
    void readWeapons();
    void finish();

    std::string absolute(const LooseFile& file) const;
    void withFile(const Place& place, const std::function<void(formats::FileBytes&)>& read);
    std::vector<std::uint8_t> bytesOf(const Place& place, std::uint64_t most);
    std::string textOf(const Place& place, std::string_view ending);
    void keepPicture(formats::Picture picture, PicturePtr& kept);
    void tellFault(const std::string& path, const std::string& reason);
    static std::string attemptReading(const std::function<void()>& read);

    platform::Disk& disk_;
    std::string path_;
    std::optional<formats::Colours> colours_;
    ContentsCache* cache_;
    Stage stage_ = Stage::list;
    std::vector<std::string> folders_; ///< still to be listed, below the release's
    std::vector<LooseFile> loose_;
    std::vector<std::size_t> packed_; ///< the archives among them
    std::vector<Opened> archives_;
    std::array<Places, kinds> places_;
    std::size_t next_ = 0; ///< in what the stage goes through
    std::uint64_t pictureBytes_ = 0;
    std::uint64_t key_ = 0; ///< of the release in the cache
    Contents contents_;
};

} // namespace releases
