// The names of all that is brought, archives opened, are held against what each type is made of.
#include "releases/guess.h"

#include <algorithm>
#include <optional>
#include <span>
#include <string_view>

#include "formats/archive.h"
#include "formats/display_name.h"
#include "formats/file_bytes.h"
#include "formats/game_files.h"
#include "formats/zip.h"
#include "platform/failure.h"
#include "platform/text.h"
#include "releases/contents.h"

namespace releases {
namespace {

/// Enough to tell what a release is, and an end for what is too much.
constexpr std::size_t mostNames = 20'000;
constexpr std::uint64_t largestPacked = 64U << 20U;
constexpr int deepest = 8;
constexpr std::size_t mostText = std::size_t{1} << 20U;

/// The files that describe something of one kind. One that is there twice is one, and the text is
/// that of the first.
struct Described {
    std::vector<std::string> names; ///< folded; two are enough to know that there are several
    std::string text;
};

std::string permittedName(const std::string& text) {
    auto name = formats::permittedPart(text);
    const auto isSpare = [](char c) { return c == ' ' || c == '.'; };
    while (!name.empty() && isSpare(name.back()))
        name.pop_back();
    name.erase(0, static_cast<std::size_t>(std::find_if_not(name.begin(), name.end(), isSpare) -
                                           name.begin()));
    return name;
}

class Look {
  public:
    explicit Look(platform::Disk& disk) : disk_(disk) {}

    void at(const std::string& path, const std::string& shown, int depth = 0) {
        if (names_.size() >= mostNames || depth > deepest)
            return;
        if (disk_.kindOf(path) == platform::EntryKind::folder) {
            const auto names = disk_.list(path);
            for (const auto* kind : {&names.files, &names.folders})
                for (const auto& name : *kind)
                    at(path + "\\" + name, shown + "\\" + name, depth + 1);
            return;
        }
        note(shown, [&] { return beginningOf(path); });
        platform::attempt([&] {
            if (platform::endsWithIgnoringCase(shown, ".zip"))
                atZip(path);
            else if (formats::isGameArchive(shown))
                atArchive(disk_.mapFile(path)->bytes());
        });
    }

    ReleaseType type() const {
        const auto has = [this](auto&& is) {
            return std::any_of(names_.begin(), names_.end(), is);
        };
        const auto lies = [&](std::string_view folder, std::string_view ending) {
            return has([&](const std::string& name) {
                return name.find(folder) != std::string::npos && name.ends_with(ending);
            });
        };
        const bool units = lies("\\units\\", ".fbi");
        const bool maps = lies("\\maps\\", ".ota");
        const bool ai = lies("\\ai\\", ".txt");
        if (lies("\\totala1.hpi", ""))
            return ReleaseType::tc;
        if (lies("\\gamedata\\sidedata.tdf", ""))
            return ReleaseType::race;
        if (maps != units)
            return maps ? ReleaseType::map : ReleaseType::unit;
        if (ai && !units)
            return ReleaseType::ai;
        if (units || lies("\\weapons\\", ".tdf") || lies("\\gamedata\\", ""))
            return ReleaseType::mod;
        return ReleaseType::none;
    }

    /// Name and about text of the only map, or the only unit.
    void describe(Guess& guess) const {
        if (maps_.names.size() == 1) {
            if (const auto info = formats::readMapInfo(maps_.text))
                tell(guess, info->name, aboutText(*info));
        } else if (maps_.names.empty() && units_.names.size() == 1) {
            if (const auto info = formats::readUnitInfo(units_.text))
                tell(guess, info->name.empty() ? info->unitName : info->name, aboutText(*info));
        }
    }

  private:
    static void tell(Guess& guess, const std::string& name, const std::string& about);

    /// The content is asked for where it is needed.
    template <typename Read>
    void note(const std::string& name, const Read& read) {
        names_.push_back(platform::foldCase("\\" + name));
        const std::string_view path = names_.back();
        const auto isOf = [path](std::string_view folder, std::string_view ending) {
            return path.find(folder) != std::string_view::npos && path.ends_with(ending);
        };
        auto* described = isOf("\\maps\\", ".ota")    ? &maps_
                          : isOf("\\units\\", ".fbi") ? &units_
                                                      : nullptr;
        if (described == nullptr || described->names.size() > 1)
            return;
        const std::string file(path.substr(path.rfind('\\')));
        if (std::ranges::find(described->names, file) != described->names.end())
            return;
        described->names.push_back(file);
        if (described->names.size() == 1)
            platform::attempt([&] { described->text = read(); });
    }

    std::string beginningOf(const std::string& path) {
        const auto reader = disk_.openFile(path);
        std::vector<std::uint8_t> bytes(std::min<std::uint64_t>(reader->size(), mostText));
        bytes.resize(reader->read(bytes));
        return {bytes.begin(), bytes.end()};
    }

    static std::string textIn(const formats::Archive& archive, std::size_t entry) {
        formats::BytesInArchive file(archive, entry, largestPacked);
        const auto bytes = file.all(mostText);
        return {bytes.begin(), bytes.end()};
    }

    static std::string unpacked(formats::ZipReader& zip, std::uint64_t most) {
        std::string bytes;
        zip.extract([&](std::string_view piece) {
            // What an archive claims of its sizes is not to be believed.
            if (bytes.size() + piece.size() > most)
                throw platform::Failure("read", "an entry", "too large");
            bytes += piece;
        });
        return bytes;
    }

    void atArchive(std::span<const std::uint8_t> bytes) {
        const auto archive = formats::Archive::open(bytes);
        if (archive == nullptr)
            return;
        for (std::size_t i = 0; i < archive->entries().size() && names_.size() < mostNames; ++i)
            if (!archive->entries()[i].isFolder)
                note(archive->pathOf(i), [&] { return textIn(*archive, i); });
    }

    void atZip(const std::string& path) {
        formats::ZipReader zip(disk_.openFile(path));
        while (const auto entry = zip.next()) {
            if (entry->isFolder || names_.size() >= mostNames)
                continue;
            note(entry->path, [&] { return unpacked(zip, mostText); });
            if (!formats::isGameArchive(entry->path) || entry->size > largestPacked)
                continue;
            const auto bytes = unpacked(zip, largestPacked);
            atArchive({reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()});
        }
    }

    platform::Disk& disk_;
    std::vector<std::string> names_;
    Described maps_;
    Described units_;
};

std::string nameOf(std::string path, const platform::EntryKind kind) {
    while (path.size() > 1 && (path.ends_with('/') || path.ends_with('\\')))
        path.pop_back();
    path.erase(0, path.find_last_of("/\\") + 1);
    const auto dot = path.rfind('.');
    if (kind == platform::EntryKind::file && dot != std::string::npos && dot > 0)
        path.resize(dot);
    return permittedName(path);
}

void Look::tell(Guess& guess, const std::string& name, const std::string& about) {
    if (const auto permitted = permittedName(name); !permitted.empty())
        guess.name = permitted;
    guess.about = about;
}

} // namespace

Guess guessRelease(platform::Disk& disk, const std::vector<std::string>& paths) {
    Guess guess;
    if (paths.empty())
        return guess;
    guess.name = nameOf(paths.front(), disk.kindOf(paths.front()));
    Look look(disk);
    for (const auto& path : paths)
        platform::attempt([&] { look.at(path, path.substr(path.find_last_of("/\\") + 1)); });
    guess.type = look.type();
    look.describe(guess);
    return guess;
}

} // namespace releases
