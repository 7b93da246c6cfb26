// Both kinds of file are read by their keys alone: what stands around them is not looked at.
#include "formats/menu_files.h"

#include <algorithm>

#include "formats/number.h"
#include "platform/text.h"

namespace formats {
namespace {

/// What follows a key at the head of a line, whatever the key's case.
bool cutKey(std::string_view line, std::string_view key, std::string_view& value) {
    if (!platform::equalIgnoringCase(line.substr(0, key.size()), key))
        return false;
    value = line.substr(key.size());
    return true;
}

/// Whole numbers that are out of range come into it by steps of its length.
int foldedMenu(std::string_view number) {
    const int rest = numberAtStart(number).modulo42 % menuCount;
    return rest < firstMenu ? rest + menuCount : rest;
}

int foldedButton(std::string_view number) {
    return numberAtStart(number).modulo42 % buttonCount;
}

} // namespace

std::string_view cleanLine(std::string_view line) {
    line = line.substr(0, line.find(';'));
    line.remove_prefix(std::min(line.find_first_not_of(" \t"), line.size()));
    return line;
}

AddMenuUnit addTo(MenuTable& table) {
    return [&table](const auto& builder, const auto& unit, int menu, int button) {
        table.addMenuUnit(builder, unit, menu, button);
    };
}

std::optional<GuiPageName> guiPageName(std::string_view fileName) {
    constexpr std::size_t suffixLength = 5;
    if (fileName.size() < suffixLength)
        return std::nullopt;
    const auto builder = fileName.substr(0, fileName.size() - suffixLength);
    const char digit = fileName[builder.size()];
    return GuiPageName{std::string(builder), digit >= '0' && digit <= '9' ? digit - '0' : -1};
}

void GuiPageReader::readLine(std::string_view line) {
    line = cleanLine(line);
    std::string_view value;
    if (cutKey(line, "name=", value)) {
        if (!skipPlaceholders_ || !isPlaceholder(value))
            pending_ = value;
    } else if (!pending_.empty() && platform::equalIgnoringCase(line, "height=64")) {
        hasButtons_ = true;
        add_(builder_, pending_, anyPosition, anyPosition);
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
    add_(unitMenu_, unitName_, menu_, button_);
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
        if (const auto& unit = menu.slots(m, b); isRealUnit(unit))
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

} // namespace formats
