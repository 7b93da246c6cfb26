// A GUI page shows its buttons in its own order: the first page is menu 2. Placeholders on it are
// the buttons that download files may name. The merged menu is the modifier's, by the same table.
#include "menu_overflow.h"

#include <algorithm>

#include "formats/menu_files.h"
#include "platform/text.h"

namespace conflict {
namespace {

constexpr std::size_t longestName = 255;

/// Names are shown to people, whatever a file says.
bool isName(std::string_view text) {
    return text.size() <= longestName &&
           std::ranges::none_of(text, [](char c) { return static_cast<unsigned char>(c) < ' '; });
}

template <typename Reader>
void readLines(Reader&& reader, std::string_view text) {
    for (const auto& line : platform::splitLines(text))
        reader.readLine(line);
}

} // namespace

MenuOverflow::MenuOverflow(bool compress)
    : compress_(compress), merged_([this](const std::string& builder, const std::string& unit) {
          const auto folded = platform::foldCase(builder);
          if (formats::isRealUnit(unit) && isName(unit) && isName(builder) &&
              told_.insert(folded + '\n' + platform::foldCase(unit)).second) {
              leftOut_[folded].push_back({unit, *source_});
              spellings_.try_emplace(folded, builder);
          }
      }) {}

void MenuOverflow::readGuiPage(const Source& source, std::string_view text) {
    const auto page = formats::guiPageName(source.path.substr(source.path.rfind('\\') + 1));
    if (!page)
        return;
    source_ = &source;
    readLines(formats::GuiPageReader(merged_, page->builder, compress_), text);
    const int menu = page->page + formats::firstMenu - 1;
    if (menu < formats::firstMenu || menu > formats::lastMenu)
        return;
    int button = 0;
    const auto add = [&](const auto& builder, const auto& unit, int, int) {
        if (button < formats::buttonCount)
            want(builder, unit, menu, button++);
    };
    readLines(formats::GuiPageReader(add, page->builder, false), text);
}

void MenuOverflow::readDownload(const Source& source, std::string_view text) {
    source_ = &source;
    readLines(
        formats::DownloadReader([&](const auto& builder, const auto& unit, int menu, int button) {
            merged_.addMenuUnit(builder, unit, menu, button);
            want(builder, unit, menu, button);
        }),
        text);
}

void MenuOverflow::want(const std::string& builder, const std::string& unit, int menu, int button) {
    if (!formats::isRealUnit(unit) || !isName(unit) || !isName(builder))
        return;
    const auto folded = platform::foldCase(builder);
    spellings_.try_emplace(folded, builder);
    auto& units = wanted_[{folded, menu, button}];
    if (std::ranges::none_of(units, [&](const Entry& entry) {
            return platform::equalIgnoringCase(entry.unit, unit);
        }))
        units.push_back({unit, *source_});
}

std::vector<OverflowingMenu> MenuOverflow::menus() const {
    std::map<std::string, OverflowingMenu> byBuilder;
    for (const auto& [where, units] : wanted_)
        if (const auto& [builder, menu, button] = where; units.size() > 1)
            byBuilder[builder].sharedButtons.push_back({menu, button, units});
    for (const auto& [builder, units] : leftOut_)
        byBuilder[builder].leftOut = units;
    std::vector<OverflowingMenu> menus;
    for (auto& [builder, menu] : byBuilder) {
        menu.builder = spellings_.at(builder);
        menus.push_back(std::move(menu));
    }
    return menus;
}

} // namespace conflict
