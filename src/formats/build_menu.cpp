// Positions are walked menu by menu, button by button, wherever a menu is walked.
#include "formats/build_menu.h"

#include <algorithm>

#include "platform/text.h"

namespace formats {
namespace {

constexpr auto placeholder = "igpatch";

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

bool isRealUnit(std::string_view unit) {
    return !unit.empty() && !isPlaceholder(unit);
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
        if (!isBefore && isRealUnit(record.slots(m, b)))
            found = {m, b};
        return found.menu == anyPosition;
    });
    return found;
}

void MenuTable::compress() {
    for (int index = 0; index < static_cast<int>(menus_.size()); ++index) {
        auto& record = menus_[static_cast<std::size_t>(index)];
        forEachPosition([&](int menu, int button) {
            if (isRealUnit(record.slots(menu, button)))
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

} // namespace formats
