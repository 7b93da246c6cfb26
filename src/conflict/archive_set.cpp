// Paths are found alike by their hashes first: a list of all paths of all archives would take far
// more room than the archives' directories.
#include "archive_set.h"

#include <algorithm>
#include <tuple>

#include "formats/game_files.h"
#include "formats/unit_file.h"
#include "platform/failure.h"
#include "platform/text.h"

namespace conflict {
namespace {

/// Far more than any text of the game has.
constexpr std::size_t mostText = std::size_t{4} << 20U;
/// How many files are unpacked side by side.
constexpr std::size_t mostSideBySide = 64;
/// An archive whose files lie over one another could keep the program busy for ever. An honest one
/// is read a few times at most.
constexpr std::uint64_t mostReadings = 8;
constexpr std::uint64_t leastAllowed = std::uint64_t{1} << 20U;

bool liesDirectlyIn(std::string_view folder, std::string_view path) {
    return platform::equalIgnoringCase(path.substr(0, folder.size()), folder) &&
           path.find('\\', folder.size()) == std::string_view::npos;
}

FileKind kindOf(std::string_view path) {
    if (formats::isUnitFile(path))
        return FileKind::unit;
    if (liesDirectlyIn("guis\\", path) && platform::endsWithIgnoringCase(path, ".gui"))
        return FileKind::guiPage;
    if (liesDirectlyIn("download\\", path) && platform::endsWithIgnoringCase(path, ".tdf"))
        return FileKind::download;
    return FileKind::other;
}

} // namespace

ArchiveSet::ArchiveSet(platform::Disk& disk, std::span<const ChosenArchive> chosen,
                       platform::Log& log)
    : disk_(disk), log_(log) {
    for (const auto& archive : chosen)
        if (formats::isGameArchive(archive.name))
            archives_.push_back({archive, {}, {}, {}, {}});
    std::ranges::stable_sort(archives_, [](const auto& one, const auto& other) {
        return formats::lessInGameOrder(one.chosen.name, other.chosen.name);
    });
    for (std::size_t i = 0; i < archives_.size(); ++i) {
        log_.breathe();
        open(archives_[i]);
        log_.progress(i + 1, archives_.size());
    }
}

void ArchiveSet::open(Opened& opened) {
    try {
        opened.view = disk_.mapFile(opened.chosen.path);
    } catch (const platform::Failure& failure) {
        opened.fault = "it cannot be opened: " + failure.reason();
        return;
    }
    opened.archive = formats::Archive::open(opened.view->bytes());
    if (!opened.archive) {
        opened.fault = "it is no archive, or its beginning is damaged";
        return;
    }
    if (!opened.archive->isWhole())
        opened.fault = "its directory is damaged";
    for (const auto entry : opened.archive->cutFiles())
        opened.unreadable.emplace(static_cast<std::uint32_t>(entry),
                                  "its data lies outside the archive");
}

std::vector<ArchiveSet::Listed> ArchiveSet::listAll() {
    std::vector<Listed> listed;
    for (std::size_t a = 0; a < archives_.size(); ++a) {
        const auto* archive = archives_[a].archive.get();
        for (std::size_t e = 0; archive != nullptr && e < archive->entries().size(); ++e) {
            log_.breathe();
            const Place place{static_cast<std::uint32_t>(a), static_cast<std::uint32_t>(e)};
            if (archive->entries()[e].isFolder || !isReadable(place))
                continue;
            const auto path = archive->pathOf(e);
            listed.push_back({platform::hashIgnoringCase(path), place, kindOf(path)});
        }
    }
    return listed;
}

std::vector<Stack> ArchiveSet::stacks() {
    auto listed = listAll();
    std::ranges::sort(listed, [](const Listed& one, const Listed& other) {
        return std::tie(one.hash, other.place.archive, other.place.entry) <
               std::tie(other.hash, one.place.archive, one.place.entry);
    });
    std::vector<Stack> stacks;
    for (auto from = listed.begin(); from != listed.end();) {
        const auto to = std::find_if(from, listed.end(),
                                     [&](const Listed& each) { return each.hash != from->hash; });
        log_.breathe();
        addStacks({from, to}, stacks);
        from = to;
    }
    return stacks;
}

void ArchiveSet::addStacks(std::span<const Listed> sameHash, std::vector<Stack>& stacks) const {
    std::map<std::string, Stack> byPath;
    for (const auto& each : sameHash) {
        if (sameHash.size() == 1 && each.kind == FileKind::other)
            return;
        auto& stack = byPath[platform::foldCase(pathOf(each.place))];
        stack.kind = each.kind;
        if (stack.places.empty() || stack.places.back().archive != each.place.archive)
            stack.places.push_back(each.place);
    }
    for (auto& [path, stack] : byPath)
        if (stack.places.size() > 1 || stack.kind != FileKind::other)
            stacks.push_back(std::move(stack));
}

Source ArchiveSet::sourceOf(const Place& place) const {
    const auto& chosen = archives_[place.archive].chosen;
    return {chosen.name, chosen.owner, pathOf(place)};
}

std::string ArchiveSet::pathOf(const Place& place) const {
    return archives_[place.archive].archive->pathOf(place.entry);
}

std::uint64_t ArchiveSet::sizeOf(const Place& place) const {
    return archives_[place.archive].archive->sizeOf(place.entry);
}

bool ArchiveSet::isReadable(const Place& place) const {
    return !archives_[place.archive].unreadable.contains(place.entry);
}

void ArchiveSet::noteDamage(const Place& place, const std::string& reason) {
    archives_[place.archive].unreadable.emplace(place.entry, reason);
}

std::optional<ArchiveSet::Reading> ArchiveSet::begin(std::size_t number, const Place& place) {
    if (!isReadable(place))
        return std::nullopt;
    try {
        return Reading{number, place, archives_[place.archive].archive->piecesOf(place.entry)};
    } catch (const platform::Failure& failure) {
        noteDamage(place, failure.reason());
        return std::nullopt;
    }
}

/// Nothing where it cannot be read.
std::optional<std::string_view> ArchiveSet::next(Reading& reading) {
    log_.breathe();
    auto& opened = archives_[reading.place.archive];
    try {
        if (opened.spent > mostReadings * opened.view->bytes().size() + leastAllowed)
            throw platform::Failure("read", opened.chosen.name, "it lies over other files");
        const auto before = reading.pieces.spent();
        const auto piece = reading.pieces.next();
        opened.spent += reading.pieces.spent() - before;
        return piece;
    } catch (const platform::Failure& failure) {
        noteDamage(reading.place, failure.reason());
        return std::nullopt;
    }
}

std::vector<Sameness> ArchiveSet::compare(std::span<const Place> places) {
    std::vector<Sameness> result(places.size(), Sameness::same);
    std::vector<Reading> rivals;
    for (std::size_t i = 1; i < places.size(); ++i) {
        if (auto reading = begin(i, places[i]))
            rivals.push_back(std::move(*reading));
        else
            result[i] = Sameness::unreadable;
        if (rivals.size() == mostSideBySide || i + 1 == places.size())
            compareSome(places.front(), rivals, result);
    }
    return result;
}

/// Empties the rivals. All are read to their ends, so that none is told of that cannot be read.
void ArchiveSet::compareSome(const Place& taken, std::vector<Reading>& rivals,
                             std::vector<Sameness>& result) {
    // However many rivals there are, it is read as if there were one.
    const auto spent = archives_[taken.archive].spent;
    auto reading = begin(0, taken);
    for (bool isAtEnd = false; reading && !(isAtEnd && rivals.empty());) {
        const auto piece = next(*reading);
        if (!piece) {
            reading.reset();
            break;
        }
        isAtEnd = piece->empty();
        std::erase_if(rivals, [&](Reading& rival) {
            const auto other = next(rival);
            if (!other)
                result[rival.number] = Sameness::unreadable;
            else if (*other != *piece)
                result[rival.number] = Sameness::different;
            return !other || other->empty();
        });
    }
    if (!reading)
        result.front() = Sameness::unreadable;
    rivals.clear();
    archives_[taken.archive].spent = spent;
}

std::optional<std::string> ArchiveSet::readText(const Place& place) {
    auto reading = begin(0, place);
    std::string text;
    while (reading && text.size() < mostText) {
        const auto piece = next(*reading);
        if (!piece)
            return std::nullopt;
        if (piece->empty())
            break;
        text += *piece;
    }
    return reading ? std::optional(std::move(text)) : std::nullopt;
}

void ArchiveSet::readEverything() {
    for (std::size_t a = 0; a < archives_.size(); ++a) {
        const auto* archive = archives_[a].archive.get();
        for (std::size_t e = 0; archive != nullptr && e < archive->entries().size(); ++e) {
            if (archive->entries()[e].isFolder)
                continue;
            auto reading = begin(0, {static_cast<std::uint32_t>(a), static_cast<std::uint32_t>(e)});
            while (reading && !next(*reading).value_or("").empty())
                ;
        }
        log_.progress(a + 1, archives_.size());
    }
}

std::vector<DamagedArchive> ArchiveSet::damaged() const {
    std::vector<DamagedArchive> damaged;
    for (const auto& opened : archives_) {
        if (opened.fault.empty() && opened.unreadable.empty())
            continue;
        damaged.push_back({opened.chosen.name, opened.chosen.owner, opened.fault, {}});
        for (const auto& [entry, reason] : opened.unreadable)
            damaged.back().files.push_back({opened.archive->pathOf(entry), reason});
    }
    return damaged;
}

} // namespace conflict
