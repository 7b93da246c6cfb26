// The reports for a person to read.
#include <algorithm>

#include "conflict/archive_reports.h"
#include "platform/text.h"

namespace conflict {
namespace {

constexpr auto indent = "    ";

std::string counted(std::size_t count, const std::string& one, const std::string& several) {
    return platform::withSeparators(count) + " " + (count == 1 ? one : several);
}

/// What a release's own archives define against each other stands behind all else.
class Text {
  public:
    template <typename Doubled, typename Tell>
    void addDoubled(const std::string& what, const std::vector<Doubled>& all, Tell&& tell) {
        for (const bool isOfOneOwner : {false, true}) {
            const auto isMeant = [&](const auto& each) {
                return each.isOfOneOwner() == isOfOneOwner;
            };
            heading(what + (isOfOneOwner ? ", in one release" : ""),
                    static_cast<std::size_t>(std::ranges::count_if(all, isMeant)));
            for (const auto& each : all)
                if (isMeant(each))
                    tell(each);
        }
    }

    void heading(const std::string& what, std::size_t count) {
        if (count > 0)
            text_ += std::string(platform::lineBreak) + what + ": " +
                     platform::withSeparators(count) + std::string(platform::lineBreak);
    }

    void line(int depth, const std::string& text) {
        for (int i = 0; i < depth; ++i)
            text_ += indent;
        text_.append(text).append(platform::lineBreak);
    }

    std::string take() { return std::move(text_); }

  private:
    std::string text_;
};

std::string archiveOf(const Source& source) {
    return source.archive + " (" + source.owner + ")";
}

void tellFile(Text& text, const DoubledFile& file) {
    text.line(0, file.path);
    for (const auto& version : file.versions)
        text.line(1, archiveOf(version.source) + (&version == &file.versions.front() ? " is taken"
                                                  : version.isSame ? " has the same"
                                                                   : " is not taken"));
}

void tellUnit(Text& text, const DoubledUnit& unit) {
    text.line(0, unit.name);
    for (const auto& [source, isTaken] : unit.definitions)
        text.line(1, source.path + " in " + archiveOf(source) + (isTaken ? "" : " is not taken"));
}

void tellEntries(Text& text, const std::vector<OverflowingMenu::Entry>& entries) {
    for (const auto& [unit, source] : entries)
        text.line(2, unit + ": " + source.path + " in " + archiveOf(source));
}

void tellMenu(Text& text, const OverflowingMenu& menu) {
    text.line(0, menu.builder);
    for (const auto& [number, button, units] : menu.sharedButtons) {
        text.line(1, "Menu " + std::to_string(number) + ", button " + std::to_string(button) +
                         " is wanted by " + std::to_string(units.size()));
        tellEntries(text, units);
    }
    if (menu.leftOut.empty())
        return;
    text.line(1, "No room for " + std::to_string(menu.leftOut.size()));
    tellEntries(text, menu.leftOut);
}

void tellDamage(Text& text, const DamagedArchive& damaged) {
    const auto archive = damaged.archive + " (" + damaged.owner + ")";
    text.line(0, damaged.reason.empty() ? archive : archive + ": " + damaged.reason);
    for (const auto& file : damaged.files)
        text.line(1, file.path + ": " + file.reason);
}

template <typename Sources>
bool areOfOneOwner(const Sources& sources) {
    return std::ranges::all_of(sources, [&](const auto& each) {
        return each.source.owner == sources.front().source.owner;
    });
}

} // namespace

bool DoubledFile::isOfOneOwner() const {
    return areOfOneOwner(versions);
}

bool DoubledUnit::isOfOneOwner() const {
    return areOfOneOwner(definitions);
}

bool ArchiveReports::empty() const {
    return doubledFiles.empty() && doubledUnits.empty() && overflowingMenus.empty() &&
           damagedArchives.empty();
}

std::string ArchiveReports::summary() const {
    if (empty())
        return "No conflicts";
    std::string line;
    const auto add = [&](std::size_t count, const std::string& one, const std::string& several) {
        if (count > 0)
            line += (line.empty() ? "" : ", ") + counted(count, one, several);
    };
    add(doubledFiles.size(), "doubled file", "doubled files");
    add(doubledUnits.size(), "doubled unit", "doubled units");
    add(overflowingMenus.size(), "overflowing menu", "overflowing menus");
    add(damagedArchives.size(), "damaged archive", "damaged archives");
    return line;
}

std::string ArchiveReports::text() const {
    Text text;
    text.line(0, summary());
    text.heading("Damaged archives", damagedArchives.size());
    for (const auto& damaged : damagedArchives)
        tellDamage(text, damaged);
    text.addDoubled("Doubled files", doubledFiles, [&](const auto& each) { tellFile(text, each); });
    text.addDoubled("Doubled units", doubledUnits, [&](const auto& each) { tellUnit(text, each); });
    text.heading("Overflowing menus", overflowingMenus.size());
    for (const auto& menu : overflowingMenus)
        tellMenu(text, menu);
    return text.take();
}

} // namespace conflict
