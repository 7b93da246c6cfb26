// Of a file that several places have the game takes one: loose files lie over archives, and
// archives over one another in the game's order.
#include "releases/contents_reader.h"

#include <algorithm>

#include "formats/game_files.h"
#include "formats/map_picture.h"
#include "formats/tdf.h"
#include "platform/failure.h"
#include "platform/text.h"
#include "release_key.h"
#include "releases/contents_cache.h"

namespace releases {
namespace {

/// Far more than any release has.
constexpr std::size_t mostFiles = 100'000;
constexpr std::size_t mostOfAKind = 10'000;
constexpr std::uint64_t mostText = std::uint64_t{1} << 20U;
constexpr std::uint64_t mostPicture = std::uint64_t{4} << 20U;
constexpr std::uint64_t mostPictures = std::uint64_t{64} << 20U; ///< bytes of all together
constexpr std::size_t mostFaults = 50;
constexpr int deepest = 8;
constexpr std::size_t factsAStep = 64;
/// An archive whose files lie over one another could keep the program busy for ever.
constexpr std::uint64_t mostReadings = 8;
constexpr std::uint64_t leastAllowed = std::uint64_t{1} << 20U;

/// A file on the disk. It is read, not mapped: while it is looked at somebody may cut it.
class BytesOnDisk final : public formats::FileBytes {
  public:
    BytesOnDisk(platform::Disk& disk, const std::string& path) : reader_(disk.openFile(path)) {}
    std::uint64_t size() const override { return reader_->size(); }

  protected:
    void readInside(std::uint64_t offset, std::span<std::uint8_t> into) override {
        reader_->seek(offset);
        while (!into.empty()) {
            const auto count = reader_->read(into);
            if (count == 0)
                throw platform::Failure("read", "a file", "it ends too early");
            into = into.subspan(count);
        }
    }

  private:
    std::unique_ptr<platform::FileReader> reader_;
};

std::string withoutEnding(const std::string& path) {
    return path.substr(0, path.rfind('.'));
}

std::string stemOf(const std::string& pathWithoutEnding) {
    return pathWithoutEnding.substr(pathWithoutEnding.rfind('\\') + 1);
}

std::string keyOf(const std::string& pathWithoutEnding) {
    return platform::foldCase(stemOf(pathWithoutEnding));
}

bool isIn(std::string_view folder, std::string_view path, std::string_view ending) {
    return platform::equalIgnoringCase(path.substr(0, folder.size()), folder) &&
           path.find('\\', folder.size()) == std::string_view::npos &&
           platform::endsWithIgnoringCase(path, ending);
}

/// Whether a path lies right in a folder that has files to be looked into.
bool isFolderOfInterest(std::string_view name) {
    constexpr std::array<std::string_view, 5> names = {"maps", "units", "unitpics", "weapons",
                                                       "palettes"};
    return std::ranges::any_of(
        names, [name](auto each) { return platform::equalIgnoringCase(name, each); });
}

std::string asText(const std::vector<std::uint8_t>& bytes) {
    return {bytes.begin(), bytes.end()};
}

template <typename Content>
void sortByName(std::vector<Content>& all) {
    std::ranges::stable_sort(all, [](const Content& one, const Content& other) {
        return platform::lessIgnoringCase(one.name, other.name);
    });
}

} // namespace

ContentsReader::ContentsReader(platform::Disk& disk, std::string path,
                               const std::optional<formats::Colours>& colours, ContentsCache* cache)
    : disk_(disk), path_(std::move(path)), colours_(colours), cache_(cache), folders_{""} {
    if (disk_.kindOf(path_) != platform::EntryKind::file)
        return;
    const auto cut = path_.rfind('\\');
    loose_.push_back({path_.substr(cut + 1), {}});
    path_.resize(std::min(cut, path_.size()));
    folders_.clear();
}

ContentsReader::~ContentsReader() = default;

bool ContentsReader::step() {
    switch (stage_) {
    case Stage::list:
        listNext();
        break;
    case Stage::facts:
        lookAtNext();
        break;
    case Stage::open:
        openNext();
        break;
    case Stage::maps:
        if (next_ < contents_.maps.size())
            readMap(contents_.maps[next_++]);
        else
            enter(Stage::units);
        break;
    case Stage::units:
        if (next_ < contents_.units.size())
            readUnit(contents_.units[next_++]);
        else
            enter(Stage::weapons);
        break;
    case Stage::weapons:
        readWeapons();
        break;
    case Stage::done:
        break;
    }
    return stage_ != Stage::done;
}

void ContentsReader::enter(Stage stage) {
    stage_ = stage;
    next_ = 0;
}

void ContentsReader::listNext() {
    if (folders_.empty())
        return enter(Stage::facts);
    const auto folder = std::move(folders_.back());
    folders_.pop_back();
    platform::attempt([&] {
        const auto names = disk_.list(folder.empty() ? path_ : path_ + "\\" + folder);
        const auto below = folder.empty() ? "" : folder + "\\";
        for (const auto& name : names.files)
            if (loose_.size() < mostFiles)
                loose_.push_back({below + name, {}});
            else
                contents_.isCut = true;
        if (std::ranges::count(folder, '\\') < deepest)
            for (const auto& name : names.folders)
                folders_.push_back(below + name);
    });
}

void ContentsReader::lookAtNext() {
    for (const auto end = std::min(next_ + factsAStep, loose_.size()); next_ < end; ++next_)
        loose_[next_].facts = disk_.factsOf(absolute(loose_[next_]));
    if (next_ < loose_.size())
        return;
    ReleaseKey key;
    key.add(colours_);
    for (const auto& file : loose_)
        key.add(file.path, file.facts);
    key_ = key.value();
    if (takeFromCache())
        return enter(Stage::done);
    for (std::size_t i = 0; i < loose_.size(); ++i)
        if (formats::isGameArchive(loose_[i].path))
            packed_.push_back(i);
    std::ranges::stable_sort(packed_, [this](std::size_t one, std::size_t other) {
        return formats::lessInGameOrder(loose_[one].path, loose_[other].path);
    });
    enter(Stage::open);
}

bool ContentsReader::takeFromCache() {
    auto kept = cache_ == nullptr ? std::nullopt : cache_->find(key_);
    if (kept)
        contents_ = std::move(*kept);
    return kept.has_value();
}

std::string ContentsReader::absolute(const LooseFile& file) const {
    return path_ + "\\" + file.path;
}

void ContentsReader::openNext() {
    if (next_ < packed_.size())
        return openArchive(loose_[packed_[next_++]]);
    for (std::size_t i = 0; i < loose_.size(); ++i) {
        contents_.files += formats::isGameArchive(loose_[i].path) ? 0 : 1;
        if (const auto kind = kindOf(loose_[i].path))
            note(*kind, {Place::loose, static_cast<std::uint32_t>(i), loose_[i].path});
    }
    beginReading();
    enter(Stage::maps);
}

void ContentsReader::openArchive(const LooseFile& file) {
    ++contents_.archives;
    Opened opened{file.path, nullptr, nullptr, 0};
    std::string fault;
    try {
        opened.view = disk_.mapFile(absolute(file));
        opened.archive = formats::Archive::open(opened.view->bytes());
        if (opened.archive == nullptr)
            fault = "it is no archive, or its beginning is damaged";
        else if (!opened.archive->isWhole())
            fault = "its directory is damaged";
    } catch (const platform::Failure& failure) {
        fault = failure.reason();
    }
    if (!fault.empty())
        tellFault(file.path, fault);
    if (opened.archive == nullptr)
        return;
    archives_.push_back(std::move(opened));
    noteFilesOf(static_cast<std::uint32_t>(archives_.size() - 1));
}

void ContentsReader::noteFilesOf(std::uint32_t number) {
    const auto& archive = *archives_[number].archive;
    const auto& entries = archive.entries();
    std::vector<bool> isOfInterest(entries.size());
    for (std::size_t i = 0; i < entries.size(); ++i) {
        const auto& entry = entries[i];
        if (entry.isFolder) {
            isOfInterest[i] = entry.parent == -1 && isFolderOfInterest(archive.pathOf(i));
            continue;
        }
        ++contents_.files;
        if (entry.parent == -1 || !isOfInterest[static_cast<std::size_t>(entry.parent)])
            continue;
        auto path = archive.pathOf(i);
        if (const auto kind = kindOf(path))
            note(*kind, {number, static_cast<std::uint32_t>(i), std::move(path)});
    }
}

std::optional<ContentsReader::Kind> ContentsReader::kindOf(std::string_view path) {
    if (formats::isMapInfoFile(path))
        return Kind::mapInfo;
    if (formats::isMapFile(path))
        return Kind::map;
    if (formats::isUnitFile(path))
        return Kind::unit;
    if (isIn("unitpics\\", path, ".pcx"))
        return Kind::picture;
    if (isIn("weapons\\", path, ".tdf"))
        return Kind::weapons;
    if (platform::equalIgnoringCase(path, "palettes\\palette.pal"))
        return Kind::palette;
    return std::nullopt;
}

void ContentsReader::note(Kind kind, Place place) {
    auto& places = of(kind);
    place.path = withoutEnding(place.path);
    const auto key = keyOf(place.path);
    if (places.size() < mostOfAKind || places.contains(key))
        places.insert_or_assign(key, std::move(place));
    else
        contents_.isCut = true;
}

void ContentsReader::beginReading() {
    for (const auto& found : of(Kind::palette))
        attemptReading([&] {
            if (const auto own = formats::readPalette(bytesOf(found.second, mostPicture)))
                colours_ = own;
        });
    std::map<std::string, std::string> paths;
    for (const auto kind : {Kind::mapInfo, Kind::map})
        for (const auto& [key, place] : of(kind))
            paths.emplace(key, place.path);
    for (const auto& [key, path] : paths)
        contents_.maps.push_back({path, stemOf(path), {}, nullptr, {}});
    for (const auto& [key, place] : of(Kind::unit))
        contents_.units.push_back({place.path, stemOf(place.path), {}, nullptr, {}});
}

/// Why it failed, or nothing.
std::string ContentsReader::attemptReading(const std::function<void()>& read) {
    try {
        read();
        return {};
    } catch (const platform::Failure& failure) {
        return failure.reason();
    }
}

void ContentsReader::withFile(const Place& place,
                              const std::function<void(formats::FileBytes&)>& read) {
    if (place.archive == Place::loose) {
        BytesOnDisk file(disk_, absolute(loose_[place.entry]));
        return read(file);
    }
    auto& opened = archives_[place.archive];
    const auto most = mostReadings * opened.view->bytes().size() + leastAllowed;
    formats::BytesInArchive file(*opened.archive, place.entry, most - std::min(most, opened.spent));
    try {
        read(file);
    } catch (const platform::Failure&) {
        opened.spent += file.spent();
        throw;
    }
    opened.spent += file.spent();
}

std::vector<std::uint8_t> ContentsReader::bytesOf(const Place& place, std::uint64_t most) {
    std::vector<std::uint8_t> bytes;
    withFile(place, [&](formats::FileBytes& file) { bytes = file.all(most); });
    return bytes;
}

std::string ContentsReader::textOf(const Place& place, std::string_view ending) {
    std::string text;
    const auto reason = attemptReading([&] { text = asText(bytesOf(place, mostText)); });
    if (!reason.empty())
        tellFault(place.path + std::string(ending), reason);
    return text;
}

void ContentsReader::tellFault(const std::string& path, const std::string& reason) {
    if (contents_.faults.size() < mostFaults)
        contents_.faults.push_back("\"" + platform::shownPath(path) +
                                   "\" cannot be read: " + reason + ".");
    else
        contents_.isCut = true;
}

void ContentsReader::readMap(MapContent& map) {
    const auto key = keyOf(map.path);
    if (const auto info = of(Kind::mapInfo).find(key); info != of(Kind::mapInfo).end())
        map.info = formats::readMapInfo(textOf(info->second, ".ota")).value_or(formats::MapInfo());
    if (!map.info.name.empty())
        map.name = map.info.name;
    const auto found = of(Kind::map).find(key);
    if (found == of(Kind::map).end())
        return;
    map.fault = attemptReading([&] {
        withFile(found->second, [&](formats::FileBytes& file) {
            const auto header = formats::readMapHeader(file);
            if (map.info.size == formats::MapSize())
                map.info.size = header.size();
            keepPicture(formats::readMapPicture(file, header, colours_), map.picture);
        });
    });
}

void ContentsReader::readUnit(UnitContent& unit) {
    const auto& place = of(Kind::unit).at(keyOf(unit.path));
    unit.info = formats::readUnitInfo(textOf(place, ".fbi")).value_or(formats::UnitInfo());
    for (const auto* name : {&unit.info.name, &unit.info.unitName})
        if (!name->empty()) {
            unit.name = *name;
            break;
        }
    const auto& pictures = of(Kind::picture);
    auto found = pictures.find(platform::foldCase(unit.info.unitName));
    if (found == pictures.end())
        found = pictures.find(keyOf(unit.path));
    if (found == pictures.end())
        return;
    unit.fault = attemptReading(
        [&] { keepPicture(formats::readPcx(bytesOf(found->second, mostPicture)), unit.picture); });
}

void ContentsReader::keepPicture(formats::Picture picture, PicturePtr& kept) {
    pictureBytes_ += picture.pixels.size() + sizeof picture;
    if (pictureBytes_ > mostPictures)
        throw platform::Failure("keep", "a picture", "there are too many pictures");
    kept = std::make_shared<const formats::Picture>(std::move(picture));
}

void ContentsReader::readWeapons() {
    auto& files = of(Kind::weapons);
    if (files.empty())
        return finish();
    formats::readTdf(textOf(files.begin()->second, ".tdf"),
                     {.onSection = [this](const formats::TdfPlace& section) {
                         contents_.weapons += section.depth == 0 ? 1 : 0;
                     }});
    files.erase(files.begin());
}

void ContentsReader::finish() {
    sortByName(contents_.maps);
    sortByName(contents_.units);
    archives_.clear();
    if (cache_ != nullptr)
        cache_->keep(key_, contents_);
    enter(Stage::done);
}

std::optional<formats::Colours> coloursOfGame(platform::Disk& disk, const std::string& folder) {
    std::optional<formats::Colours> colours;
    platform::attempt([&] {
        BytesOnDisk file(disk, folder + "\\palettes\\palette.pal");
        colours = formats::readPalette(file.all(mostPicture));
    });
    std::vector<std::string> names;
    platform::attempt([&] { names = disk.fileNames(folder); });
    std::erase_if(names, [](const auto& name) { return !formats::isGameArchive(name); });
    std::stable_partition(names.begin(), names.end(), [](const auto& name) {
        return platform::equalIgnoringCase(name, "totala1.hpi");
    });
    for (const auto& name : names)
        if (!colours)
            platform::attempt([&] {
                const auto view = disk.mapFile(folder + "\\" + name);
                const auto archive = formats::Archive::open(view->bytes());
                for (std::size_t i = 0; archive && i < archive->entries().size(); ++i) {
                    const auto& entry = archive->entries()[i];
                    if (entry.isFolder ||
                        entry.nameLength != std::string_view("palette.pal").size() ||
                        !platform::equalIgnoringCase(archive->pathOf(i), "palettes\\palette.pal"))
                        continue;
                    formats::BytesInArchive file(*archive, i, view->bytes().size() + leastAllowed);
                    colours = formats::readPalette(file.all(mostPicture));
                }
            });
    return colours;
}

} // namespace releases
