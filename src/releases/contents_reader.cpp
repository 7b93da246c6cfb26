// Settings files are read before pictures: they tell names, and which picture is whose.
#include "releases/contents_reader.h"

#include <algorithm>
#include <map>
#include <string_view>

#include "formats/map_picture.h"
#include "formats/tdf.h"
#include "platform/failure.h"
#include "platform/text.h"
#include "release_files.h"
#include "release_key.h"
#include "releases/contents_cache.h"

namespace releases {
namespace {

using Kind = ReleaseFiles::Kind;

constexpr std::uint64_t mostPicture = std::uint64_t{4} << 20U;
constexpr std::uint64_t mostPictures = std::uint64_t{64} << 20U; ///< bytes of all together

std::string stemOf(const std::string& pathWithoutEnding) {
    return pathWithoutEnding.substr(pathWithoutEnding.rfind('\\') + 1);
}

std::string keyOf(const std::string& pathWithoutEnding) {
    return platform::foldCase(stemOf(pathWithoutEnding));
}

template <typename Content>
void sortByName(std::vector<Content>& all) {
    std::ranges::stable_sort(all, [](const Content& one, const Content& other) {
        return platform::lessIgnoringCase(one.name, other.name);
    });
}

/// Why it failed, or nothing.
std::string attemptReading(const std::function<void()>& read) {
    try {
        read();
        return {};
    } catch (const platform::Failure& failure) {
        return failure.reason();
    }
}

} // namespace

ContentsReader::ContentsReader(platform::Disk& disk, std::string path,
                               const std::optional<formats::Colours>& colours, ContentsCache* cache)
    : colours_(colours), cache_(cache),
      files_(std::make_unique<ReleaseFiles>(disk, std::move(path), contents_)) {}

ContentsReader::~ContentsReader() = default;

bool ContentsReader::step() {
    switch (stage_) {
    case Stage::list:
        if (!files_->listNext())
            enter(Stage::facts);
        break;
    case Stage::facts:
        if (!files_->lookAtNext())
            enter(takeFromCache() ? Stage::done : Stage::open);
        break;
    case Stage::open:
        if (!files_->openNext()) {
            beginReading();
            enter(Stage::maps);
        }
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

bool ContentsReader::takeFromCache() {
    ReleaseKey key;
    key.add(colours_);
    files_->addTo(key);
    key_ = key.value();
    auto kept = cache_ == nullptr ? std::nullopt : cache_->find(key_);
    if (kept)
        contents_ = std::move(*kept);
    return kept.has_value();
}

void ContentsReader::beginReading() {
    for (const auto& found : files_->of(Kind::palette))
        attemptReading([&] {
            if (const auto own = formats::readPalette(files_->bytesOf(found.second, mostPicture)))
                colours_ = own;
        });
    std::map<std::string, std::string> paths;
    for (const auto kind : {Kind::mapInfo, Kind::map})
        for (const auto& [key, place] : files_->of(kind))
            paths.emplace(key, place.path);
    for (const auto& [key, path] : paths)
        contents_.maps.push_back({path, stemOf(path), {}, nullptr, {}});
    for (const auto& [key, place] : files_->of(Kind::unit))
        contents_.units.push_back({place.path, stemOf(place.path), {}, nullptr, {}});
}

void ContentsReader::readMap(MapContent& map) {
    const auto key = keyOf(map.path);
    const auto& infos = files_->of(Kind::mapInfo);
    if (const auto info = infos.find(key); info != infos.end())
        map.info =
            formats::readMapInfo(files_->textOf(info->second, ".ota")).value_or(formats::MapInfo());
    if (!map.info.name.empty())
        map.name = map.info.name;
    const auto& maps = files_->of(Kind::map);
    const auto found = maps.find(key);
    if (found == maps.end())
        return;
    map.fault = attemptReading([&] {
        files_->withFile(found->second, [&](formats::FileBytes& file) {
            const auto header = formats::readMapHeader(file);
            if (map.info.size == formats::MapSize())
                map.info.size = header.size();
            keepPicture(formats::readMapPicture(file, header, colours_), map.picture);
        });
    });
}

void ContentsReader::readUnit(UnitContent& unit) {
    const auto& place = files_->of(Kind::unit).at(keyOf(unit.path));
    unit.info = formats::readUnitInfo(files_->textOf(place, ".fbi")).value_or(formats::UnitInfo());
    for (const auto* name : {&unit.info.name, &unit.info.unitName})
        if (!name->empty()) {
            unit.name = *name;
            break;
        }
    const auto& pictures = files_->of(Kind::picture);
    auto found = pictures.find(platform::foldCase(unit.info.unitName));
    if (found == pictures.end())
        found = pictures.find(keyOf(unit.path));
    if (found == pictures.end())
        return;
    unit.fault = attemptReading([&] {
        keepPicture(formats::readPcx(files_->bytesOf(found->second, mostPicture)), unit.picture);
    });
}

void ContentsReader::keepPicture(formats::Picture picture, PicturePtr& kept) {
    pictureBytes_ += picture.pixels.size() + sizeof picture;
    if (pictureBytes_ > mostPictures)
        throw platform::Failure("keep", "a picture", "there are too many pictures");
    kept = std::make_shared<const formats::Picture>(std::move(picture));
}

void ContentsReader::readWeapons() {
    auto& files = files_->of(Kind::weapons);
    if (files.empty())
        return finish();
    formats::readTdf(files_->textOf(files.begin()->second, ".tdf"),
                     {.onSection = [this](const formats::TdfPlace& section) {
                         contents_.weapons += section.depth == 0 ? 1 : 0;
                     }});
    files.erase(files.begin());
}

void ContentsReader::finish() {
    sortByName(contents_.maps);
    sortByName(contents_.units);
    if (cache_ != nullptr)
        cache_->keep(key_, contents_);
    files_.reset();
    enter(Stage::done);
}

} // namespace releases
