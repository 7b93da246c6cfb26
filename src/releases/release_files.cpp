// Hostile archives are held back here: in how many files are noted, and in how much is read.
#include "release_files.h"

#include <algorithm>
#include <optional>

#include "bytes_on_disk.h"
#include "formats/game_files.h"
#include "platform/failure.h"
#include "platform/text.h"

namespace releases {
namespace {

/// Far more than any release has.
constexpr std::size_t mostFiles = 100'000;
constexpr std::size_t mostOfAKind = 10'000;
constexpr std::uint64_t mostText = std::uint64_t{1} << 20U;
constexpr std::size_t mostFaults = 50;
constexpr int deepest = 8;
constexpr std::size_t factsAStep = 64;
/// An archive whose files lie over one another could keep the program busy for ever.
constexpr std::uint64_t mostReadings = 8;
constexpr std::uint64_t leastAllowed = std::uint64_t{1} << 20U;

bool isIn(std::string_view folder, std::string_view path, std::string_view ending) {
    return platform::equalIgnoringCase(path.substr(0, folder.size()), folder) &&
           path.find('\\', folder.size()) == std::string_view::npos &&
           platform::endsWithIgnoringCase(path, ending);
}

/// Whether it may have files in it that are looked into.
bool isFolderOfInterest(std::string_view name) {
    constexpr std::array<std::string_view, 5> names = {"maps", "units", "unitpics", "weapons",
                                                       "palettes"};
    return std::ranges::any_of(
        names, [name](auto each) { return platform::equalIgnoringCase(name, each); });
}

std::optional<ReleaseFiles::Kind> kindOf(std::string_view path) {
    using Kind = ReleaseFiles::Kind;
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

} // namespace

ReleaseFiles::ReleaseFiles(platform::Disk& disk, std::string path, Contents& told)
    : disk_(disk), path_(std::move(path)), told_(told), folders_{""} {
    if (disk_.kindOf(path_) != platform::EntryKind::file)
        return;
    const auto cut = path_.rfind('\\');
    loose_.push_back({path_.substr(cut + 1), {}});
    path_.resize(std::min(cut, path_.size()));
    folders_.clear();
}

bool ReleaseFiles::listNext() {
    if (folders_.empty())
        return false;
    const auto folder = std::move(folders_.back());
    folders_.pop_back();
    platform::attempt([&] {
        const auto names = disk_.list(folder.empty() ? path_ : path_ + "\\" + folder);
        const auto below = folder.empty() ? "" : folder + "\\";
        for (const auto& name : names.files)
            if (loose_.size() < mostFiles)
                loose_.push_back({below + name, {}});
            else
                told_.isCut = true;
        if (std::ranges::count(folder, '\\') < deepest)
            for (const auto& name : names.folders)
                folders_.push_back(below + name);
    });
    return true;
}

bool ReleaseFiles::lookAtNext() {
    for (const auto end = std::min(next_ + factsAStep, loose_.size()); next_ < end; ++next_)
        loose_[next_].facts = disk_.factsOf(absolute(loose_[next_]));
    if (next_ < loose_.size())
        return true;
    orderArchives();
    next_ = 0;
    return false;
}

void ReleaseFiles::orderArchives() {
    for (std::size_t i = 0; i < loose_.size(); ++i)
        if (formats::isGameArchive(loose_[i].path))
            packed_.push_back(i);
    std::ranges::stable_sort(packed_, [this](std::size_t one, std::size_t other) {
        return formats::lessInGameOrder(loose_[one].path, loose_[other].path);
    });
}

void ReleaseFiles::addTo(ReleaseKey& key) const {
    for (const auto& file : loose_)
        key.add(file.path, file.facts);
}

std::string ReleaseFiles::absolute(const LooseFile& file) const {
    return path_ + "\\" + file.path;
}

bool ReleaseFiles::openNext() {
    if (next_ < packed_.size()) {
        open(loose_[packed_[next_++]]);
        return true;
    }
    noteLooseFiles();
    return false;
}

void ReleaseFiles::open(const LooseFile& file) {
    ++told_.archives;
    Opened opened;
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

void ReleaseFiles::noteFilesOf(std::uint32_t number) {
    const auto& archive = *archives_[number].archive;
    const auto& entries = archive.entries();
    std::vector<bool> isOfInterest(entries.size());
    for (std::size_t i = 0; i < entries.size(); ++i) {
        const auto& entry = entries[i];
        if (entry.isFolder) {
            isOfInterest[i] = entry.parent == -1 && isFolderOfInterest(archive.pathOf(i));
            continue;
        }
        ++told_.files;
        if (entry.parent != -1 && isOfInterest[static_cast<std::size_t>(entry.parent)])
            note(archive.pathOf(i), number, i);
    }
}

void ReleaseFiles::noteLooseFiles() {
    for (std::size_t i = 0; i < loose_.size(); ++i) {
        told_.files += formats::isGameArchive(loose_[i].path) ? 0 : 1;
        note(loose_[i].path, Place::loose, i);
    }
}

void ReleaseFiles::note(std::string_view path, std::uint32_t archive, std::size_t entry) {
    const auto kind = kindOf(path);
    if (!kind)
        return;
    auto& places = of(*kind);
    path = path.substr(0, path.rfind('.'));
    const auto key = platform::foldCase(path.substr(path.rfind('\\') + 1));
    if (places.size() < mostOfAKind || places.contains(key))
        places.insert_or_assign(
            key, Place{archive, static_cast<std::uint32_t>(entry), std::string(path)});
    else
        told_.isCut = true;
}

void ReleaseFiles::withFile(const Place& place,
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

std::vector<std::uint8_t> ReleaseFiles::bytesOf(const Place& place, std::uint64_t most) {
    std::vector<std::uint8_t> bytes;
    withFile(place, [&](formats::FileBytes& file) { bytes = file.all(most); });
    return bytes;
}

std::string ReleaseFiles::textOf(const Place& place, std::string_view ending) {
    try {
        const auto bytes = bytesOf(place, mostText);
        return {bytes.begin(), bytes.end()};
    } catch (const platform::Failure& failure) {
        tellFault(place.path + std::string(ending), failure.reason());
        return {};
    }
}

void ReleaseFiles::tellFault(const std::string& path, const std::string& reason) {
    if (told_.faults.size() < mostFaults)
        told_.faults.push_back("\"" + platform::shownPath(path) + "\" cannot be read: " + reason +
                               ".");
    else
        told_.isCut = true;
}

} // namespace releases
