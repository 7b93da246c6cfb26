// Positions are walked menu by menu, button by button, wherever a menu is walked.
#include "menumod/build_menu.h"

#include <algorithm>

#include "menumod/number.h"
#include "platform/text.h"

namespace menumod {
namespace {

constexpr int lastMenu = firstMenu + menuCount - 1;
constexpr auto placeholder = "igpatch";

/// What follows a key at the head of a line, whatever the key's case.
bool cutKey(std::string_view line, std::string_view key, std::string_view& value) {
    if (!platform::equalIgnoringCase(line.substr(0, key.size()), key))
        return false;
    value = line.substr(key.size());
    return true;
}

bool isReal(const std::string& unit) {
    return !unit.empty() && !isPlaceholder(unit);
}

/// Whole numbers that are out of range come into it by steps of its length.
int foldedMenu(std::string_view number) {
    const int rest = numberAtStart(number).modulo42 % menuCount;
    return rest < firstMenu ? rest + menuCount : rest;
}

int foldedButton(std::string_view number) {
    return numberAtStart(number).modulo42 % buttonCount;
}

template <typename Visit>
void forEachPosition(Visit&& visit) {
    for (int menu = firstMenu; menu <= lastMenu; ++menu)
        for (int button = 0; button < buttonCount; ++button)
            if (!visit(menu, button))
                return;
}

} // namespace

std::string& BuildMenu::slots(int menu, int button) {
    return grid[static_cast<std::size_t>(menu - firstMenu)][static_cast<std::size_t>(button)];
}

const std::string& BuildMenu::slots(int menu, int button) const {
    return grid[static_cast<std::size_t>(menu - firstMenu)][static_cast<std::size_t>(button)];
}

bool isPlaceholder(std::string_view unit) {
    return platform::equalIgnoringCase(unit, placeholder);
}

int MenuTable::findBuilder(std::string_view name) const {
    const auto found = byName_.find(platform::foldCase(name));
    return found == byName_.end() ? -1 : found->second;
}

bool MenuTable::builderHasUnit(std::string_view builder, std::string_view unit) const {
    const int index = findBuilder(builder);
    if (index == -1)
        return false;
    bool found = false;
    forEachPosition([&](int menu, int button) {
        found = platform::equalIgnoringCase(
            menus_[static_cast<std::size_t>(index)].slots(menu, button), unit);
        return !found;
    });
    return found;
}

void MenuTable::addMenuUnit(const std::string& builder, const std::string& unit, int menu,
                            int button) {
    if (builderHasUnit(builder, unit))
        return;
    int index = findBuilder(builder);
    if (index == -1) {
        index = static_cast<int>(menus_.size());
        menus_.emplace_back();
        byName_.emplace(platform::foldCase(builder), index);
    }
    auto& record = menus_[static_cast<std::size_t>(index)];
    record.builderName = builder;
    bool placed = menu >= firstMenu && button >= 0 && record.slots(menu, button).empty();
    if (!placed)
        forEachPosition([&](int m, int b) {
            placed = record.slots(m, b).empty();
            menu = m;
            button = b;
            return !placed;
        });
    if (placed)
        record.slots(menu, button) = unit;
    else if (noRoom_)
        noRoom_(builder, unit);
}

MenuPosition MenuTable::nextMenuUnit(int index, int menu, int button) const {
    const auto& record = menus_[static_cast<std::size_t>(index)];
    MenuPosition found{anyPosition, anyPosition};
    forEachPosition([&](int m, int b) {
        const bool isBefore = m < menu || (m == menu && b < button);
        if (!isBefore && isReal(record.slots(m, b)))
            found = {m, b};
        return found.menu == anyPosition;
    });
    return found;
}

void MenuTable::compress() {
    for (int index = 0; index < static_cast<int>(menus_.size()); ++index) {
        auto& record = menus_[static_cast<std::size_t>(index)];
        forEachPosition([&](int menu, int button) {
            if (isReal(record.slots(menu, button)))
                return true;
            const auto next = nextMenuUnit(index, menu, button);
            if (next.menu == anyPosition)
                return false;
            record.slots(menu, button) = record.slots(next.menu, next.button);
            record.slots(next.menu, next.button).clear();
            return true;
        });
    }
}

std::string_view cleanLine(std::string_view line) {
    line = line.substr(0, line.find(';'));
    line.remove_prefix(std::min(line.find_first_not_of(" \t"), line.size()));
    return line;
}

void GuiPageReader::readLine(std::string_view line) {
    line = cleanLine(line);
    std::string_view value;
    if (cutKey(line, "name=", value)) {
        if (!skipPlaceholders_ || !isPlaceholder(value))
            pending_ = value;
    } else if (!pending_.empty() && platform::equalIgnoringCase(line, "height=64")) {
        hasButtons_ = true;
        table_.addMenuUnit(builder_, pending_, anyPosition, anyPosition);
        pending_.clear();
    }
}

void DownloadReader::readLine(std::string_view line) {
    line = cleanLine(line);
    std::string_view value;
    if (cutKey(line, "unitmenu=", value))
        unitMenu_ = value;
    else if (cutKey(line, "menu=", value))
        menu_ = foldedMenu(value);
    else if (cutKey(line, "button=", value))
        button_ = foldedButton(value);
    else if (cutKey(line, "unitname=", value))
        unitName_ = value;
    if (unitMenu_.empty() || unitName_.empty() || menu_ == anyPosition || button_ == anyPosition)
        return;
    table_.addMenuUnit(unitMenu_, unitName_, menu_, button_);
    unitMenu_.clear();
    unitName_.clear();
    menu_ = button_ = anyPosition;
}

int DownloadTable::findDownload(const std::string& unit) const {
    const auto found = byName_.find(unit);
    return found == byName_.end() ? -1 : found->second;
}

void DownloadTable::addDownloadEntry(const std::string& unit, const std::string& builder, int menu,
                                     int button, bool small) {
    int index = findDownload(unit);
    if (index == -1) {
        index = static_cast<int>(downloads_.size());
        downloads_.push_back({unit, {}});
        byName_.emplace(unit, index);
    }
    if (!small) {
        if (menu % 2 != 0)
            button += buttonCount;
        menu = (menu - firstMenu) / 2 + firstMenu;
    }
    downloads_[static_cast<std::size_t>(index)].entries.push_back({menu, button, builder});
}

void DownloadTable::addMenu(const BuildMenu& menu, bool small) {
    forEachPosition([&](int m, int b) {
        if (const auto& unit = menu.slots(m, b); isReal(unit))
            addDownloadEntry(unit, menu.builderName, m, b, small);
        return true;
    });
}

std::string downloadText(const DownloadUnit& unit) {
    std::string text;
    for (const auto& entry : unit.entries) {
        if (entry.builder.empty())
            continue;
        const int number = (entry.menu - firstMenu) * buttonCount + entry.button + 1;
        text += "[MENUENTRY" + std::to_string(number) + "] {\r\n";
        text += "\tUNITMENU=" + entry.builder + ";\r\n";
        text += "\tMENU=" + std::to_string(entry.menu) + ";\r\n";
        text += "\tBUTTON=" + std::to_string(entry.button) + ";\r\n";
        text += "\tUNITNAME=" + unit.unitName + ";\r\n";
        text += "}\r\n\r\n";
    }
    return text;
}

std::string padRight(std::string_view text, std::size_t width) {
    std::string padded(text);
    padded.resize(std::max(width, text.size()), ' ');
    return padded;
}

std::string menuListText(const std::vector<BuildMenu>& menus) {
    constexpr std::size_t columnWidth = 10;
    std::string text;
    for (const auto& menu : menus) {
        text += "Build Menu for " + menu.builderName + ":\r\n";
        for (int m = firstMenu; m <= lastMenu; ++m) {
            text += "M#" + std::to_string(m) + ": ";
            for (int b = 0; b < buttonCount; ++b)
                text += padRight(menu.slots(m, b), columnWidth);
            text += platform::lineBreak;
        }
        text += "\r\n\r\n";
    }
    return text;
}

} // namespace menumod
