// The names of all that is brought, archives opened, are held against what each type is made of.
#include "releases/guess.h"

#include <algorithm>
#include <span>
#include <string_view>

#include "formats/archive.h"
#include "formats/display_name.h"
#include "formats/game_files.h"
#include "formats/zip.h"
#include "platform/failure.h"
#include "platform/text.h"

namespace releases {
namespace {

/// Enough to tell what a release is, and an end for what is too much.
constexpr std::size_t mostNames = 20'000;
constexpr std::uint64_t largestPacked = 64U << 20U;
constexpr int deepest = 8;

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
        note(shown);
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

  private:
    void note(const std::string& name) { names_.push_back(platform::foldCase("\\" + name)); }

    void atArchive(std::span<const std::uint8_t> bytes) {
        const auto archive = formats::Archive::open(bytes);
        if (archive == nullptr)
            return;
        for (std::size_t i = 0; i < archive->entries().size() && names_.size() < mostNames; ++i)
            if (!archive->entries()[i].isFolder)
                note(archive->pathOf(i));
    }

    void atZip(const std::string& path) {
        formats::ZipReader zip(disk_.openFile(path));
        while (const auto entry = zip.next()) {
            if (entry->isFolder || names_.size() >= mostNames)
                continue;
            note(entry->path);
            if (!formats::isGameArchive(entry->path) || entry->size > largestPacked)
                continue;
            std::vector<std::uint8_t> bytes;
            zip.extract([&](std::string_view piece) {
                // What an archive claims of its sizes is not to be believed.
                if (bytes.size() + piece.size() > largestPacked)
                    throw platform::Failure("read", path, "too large");
                bytes.insert(bytes.end(), piece.begin(), piece.end());
            });
            atArchive(bytes);
        }
    }

    platform::Disk& disk_;
    std::vector<std::string> names_;
};

std::string nameOf(std::string path, const platform::EntryKind kind) {
    while (path.size() > 1 && (path.ends_with('/') || path.ends_with('\\')))
        path.pop_back();
    path.erase(0, path.find_last_of("/\\") + 1);
    const auto dot = path.rfind('.');
    if (kind == platform::EntryKind::file && dot != std::string::npos && dot > 0)
        path.resize(dot);
    auto name = formats::permittedPart(path);
    const auto isSpare = [](char c) { return c == ' ' || c == '.'; };
    while (!name.empty() && isSpare(name.back()))
        name.pop_back();
    name.erase(0, static_cast<std::size_t>(std::find_if_not(name.begin(), name.end(), isSpare) -
                                           name.begin()));
    return name;
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
    return guess;
}

} // namespace releases
