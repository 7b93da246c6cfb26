// Build menus as the game shows them and as the modifier merges them: what has no button there.
#pragma once

#include <map>
#include <set>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "conflict/archive_reports.h"
#include "formats/build_menu.h"

namespace conflict {

/// Takes in GUI pages and then download files, each kind ascending by name, which is the order in
/// which the modifier merges them.
class MenuOverflow {
  public:
    explicit MenuOverflow(bool compress);
    MenuOverflow(const MenuOverflow&) = delete;
    MenuOverflow& operator=(const MenuOverflow&) = delete;

    void readGuiPage(const Source& source, std::string_view text);
    void readDownload(const Source& source, std::string_view text);

    /// By builders, case ignored.
    std::vector<OverflowingMenu> menus() const;

  private:
    using Entry = OverflowingMenu::Entry;
    using Button = std::tuple<std::string, int, int>; ///< builder, case folded; menu; button

    void want(const std::string& builder, const std::string& unit, int menu, int button);

    bool compress_;
    formats::MenuTable merged_;
    const Source* source_ = nullptr; ///< of the file at hand
    std::map<Button, std::vector<Entry>> wanted_;
    std::map<std::string, std::vector<Entry>> leftOut_;
    std::set<std::string> told_;
    std::map<std::string, std::string> spellings_;
};

} // namespace conflict
