// The palette lies loose or in an archive, as all of the game's files may.
#include "releases/game_colours.h"

#include <algorithm>

#include "bytes_on_disk.h"
#include "formats/archive.h"
#include "formats/game_files.h"
#include "formats/map_picture.h"
#include "platform/failure.h"
#include "platform/text.h"

namespace releases {
namespace {

constexpr std::string_view paletteName = "palette.pal";
constexpr std::string_view palettePath = "palettes\\palette.pal";
constexpr std::uint64_t mostPalette = std::uint64_t{1} << 20U;

std::optional<formats::Colours> coloursOf(formats::Bytes bytes) {
    const auto archive = formats::Archive::open(bytes);
    for (std::size_t i = 0; archive && i < archive->entries().size(); ++i) {
        const auto& entry = archive->entries()[i];
        if (entry.isFolder || entry.nameLength != paletteName.size() ||
            !platform::equalIgnoringCase(archive->pathOf(i), palettePath))
            continue;
        formats::BytesInArchive file(*archive, i, bytes.size() + mostPalette);
        return formats::readPalette(file.all(mostPalette));
    }
    return std::nullopt;
}

/// The game's first archive ahead of all others.
std::vector<std::string> archivesIn(platform::Disk& disk, const std::string& folder) {
    std::vector<std::string> names;
    platform::attempt([&] { names = disk.fileNames(folder); });
    std::erase_if(names, [](const auto& name) { return !formats::isGameArchive(name); });
    std::stable_partition(names.begin(), names.end(), [](const auto& name) {
        return platform::equalIgnoringCase(name, "totala1.hpi");
    });
    return names;
}

} // namespace

std::optional<formats::Colours> coloursOfGame(platform::Disk& disk, const std::string& folder) {
    std::optional<formats::Colours> colours;
    platform::attempt([&] {
        BytesOnDisk file(disk, folder + "\\" + std::string(palettePath));
        colours = formats::readPalette(file.all(mostPalette));
    });
    if (colours)
        return colours;
    for (const auto& name : archivesIn(disk, folder)) {
        platform::attempt([&] {
            const auto view = disk.mapFile(folder + "\\" + name);
            colours = coloursOf(view->bytes());
        });
        if (colours)
            break;
    }
    return colours;
}

} // namespace releases
