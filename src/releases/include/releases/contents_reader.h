// Finds out what a release brings, a small step at a time, so that it can be given up between two.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "formats/picture.h"
#include "platform/disk.h"
#include "releases/contents.h"

namespace releases {

class ContentsCache;
class ReleaseFiles;

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

    void enter(Stage stage);
    void beginReading();
    bool takeFromCache();
    void readMap(MapContent& map);
    void readUnit(UnitContent& unit);
    void readWeapons();
    void finish();
    void keepPicture(formats::Picture picture, PicturePtr& kept);

    std::optional<formats::Colours> colours_;
    ContentsCache* cache_;
    Stage stage_ = Stage::list;
    std::size_t next_ = 0; ///< in what the stage goes through
    std::uint64_t pictureBytes_ = 0;
    std::uint64_t key_ = 0; ///< of the release in the cache
    Contents contents_;
    std::unique_ptr<ReleaseFiles> files_;
};

} // namespace releases
