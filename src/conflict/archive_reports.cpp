// One walk over the files that are to be looked into gives all reports.
#include "conflict/archive_reports.h"

#include <algorithm>

#include "archive_set.h"
#include "formats/game_files.h"
#include "formats/unit_file.h"
#include "menu_overflow.h"
#include "platform/text.h"

namespace conflict {
namespace {

class Reporter {
  public:
    Reporter(ArchiveSet& archives, platform::Log& log) : archives_(archives), log_(log) {}

    void look(const Stack& stack) {
        const auto versions = versionsOf(stack);
        if (versions.empty())
            return;
        if (std::ranges::any_of(versions, [](const auto& each) { return !each.isSame; }))
            addDoubledFile(versions);
        if (stack.kind == FileKind::unit)
            addUnits(versions);
        else if (stack.kind != FileKind::other)
            menuFiles_.push_back(
                {stack.kind, versions.front().place, archives_.sourceOf(versions.front().place)});
    }

    std::vector<OverflowingMenu> menus(bool compress) {
        std::ranges::sort(menuFiles_, [](const auto& one, const auto& other) {
            return one.kind == other.kind
                       ? platform::lessIgnoringCase(one.source.path, other.source.path)
                       : one.kind < other.kind;
        });
        MenuOverflow overflow(compress);
        for (const auto& file : menuFiles_) {
            log_.breathe();
            const auto text = archives_.readText(file.place);
            if (text && file.kind == FileKind::guiPage)
                overflow.readGuiPage(file.source, *text);
            else if (text)
                overflow.readDownload(file.source, *text);
        }
        return overflow.menus();
    }

    std::vector<DoubledFile> files() {
        std::ranges::sort(files_, platform::lessIgnoringCase, &DoubledFile::path);
        return std::move(files_);
    }

    std::vector<DoubledUnit> units() {
        std::vector<DoubledUnit> doubled;
        for (auto& [name, unit] : units_) {
            if (unit.definitions.size() < 2)
                continue;
            std::ranges::sort(unit.definitions, [](const auto& one, const auto& other) {
                return platform::lessIgnoringCase(one.source.path, other.source.path);
            });
            doubled.push_back(std::move(unit));
        }
        return doubled;
    }

  private:
    struct Version {
        Place place;
        bool isSame;
    };
    struct MenuFile {
        FileKind kind;
        Place place;
        Source source;
    };

    /// Those that can be read; the one that the game takes first.
    std::vector<Version> versionsOf(const Stack& stack) {
        auto places = stack.places;
        while (!places.empty()) {
            const auto sameness = archives_.compare(places);
            if (sameness.front() == Sameness::unreadable) {
                std::erase_if(places,
                              [&](const auto& each) { return !archives_.isReadable(each); });
                continue;
            }
            std::vector<Version> versions;
            for (std::size_t i = 0; i < places.size(); ++i)
                if (sameness[i] != Sameness::unreadable)
                    versions.push_back({places[i], sameness[i] == Sameness::same});
            return versions;
        }
        return {};
    }

    void addDoubledFile(const std::vector<Version>& versions) {
        DoubledFile file{archives_.pathOf(versions.front().place), {}};
        for (const auto& [place, isSame] : versions)
            file.versions.push_back({archives_.sourceOf(place), archives_.sizeOf(place), isSame});
        files_.push_back(std::move(file));
    }

    void addUnits(const std::vector<Version>& versions) {
        for (const auto& version : versions) {
            const bool isTaken = &version == &versions.front();
            if (version.isSame && !isTaken)
                continue;
            const auto text = archives_.readText(version.place);
            const auto name = text ? formats::unitNameIn(*text) : std::nullopt;
            if (!name)
                continue;
            auto& unit = units_[platform::foldCase(*name)];
            if (unit.name.empty())
                unit.name = *name;
            unit.definitions.push_back({archives_.sourceOf(version.place), isTaken});
        }
    }

    ArchiveSet& archives_;
    platform::Log& log_;
    std::vector<DoubledFile> files_;
    std::map<std::string, DoubledUnit> units_; ///< by their names, case folded
    std::vector<MenuFile> menuFiles_;
};

} // namespace

ArchiveReports reportOnArchives(platform::Disk& disk, std::span<const ChosenArchive> archives,
                                platform::Log& log, const ReportSettings& settings) {
    log.stage("Opening archives");
    ArchiveSet set(disk, archives, log);
    if (settings.readEverything) {
        log.stage("Unpacking all files");
        set.readEverything();
    }
    log.stage("Comparing files");
    Reporter reporter(set, log);
    const auto stacks = set.stacks();
    for (std::size_t i = 0; i < stacks.size(); ++i) {
        log.breathe();
        reporter.look(stacks[i]);
        log.progress(i + 1, stacks.size());
    }
    log.stage("Reading build menus");
    ArchiveReports reports;
    reports.overflowingMenus = reporter.menus(settings.compressMenus);
    reports.doubledFiles = reporter.files();
    reports.doubledUnits = reporter.units();
    reports.damagedArchives = set.damaged();
    return reports;
}

std::vector<ChosenArchive> archivesOf(const releases::GameDirectory& game,
                                      const cycle::Preview& preview) {
    std::vector<ChosenArchive> archives;
    for (const auto& file : preview.files)
        if (file.path.find('\\') == std::string::npos && formats::isGameArchive(file.path))
            archives.push_back({file.path, game.at(file.from), file.owner.text()});
    return archives;
}

} // namespace conflict
