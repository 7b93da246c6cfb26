// The build menus of all builders as one table, which can be compressed and listed. What it is read
// out of and written to is in menu_files.h.
#pragma once

#include <array>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace formats {

// Menu and button numbers are the game's: menus from 2 to 8, buttons from 0 to 5. Whoever reads
// them out of a file brings them into that range; nothing here looks again.
inline constexpr int firstMenu = 2;
inline constexpr int menuCount = 7;
inline constexpr int lastMenu = firstMenu + menuCount - 1;
inline constexpr int buttonCount = 6;
/// Stands for "any free position" in a menu or button number.
inline constexpr int anyPosition = -1;

/// One builder's menu: seven menus, numbered from 2, of six buttons. An empty string is a free
/// position. The name "igpatch", in any case, holds a position and produces nothing.
struct BuildMenu {
    std::string builderName;
    std::array<std::array<std::string, buttonCount>, menuCount> grid;

    std::string& slots(int menu, int button);
    const std::string& slots(int menu, int button) const;
};

struct MenuPosition {
    int menu;
    int button;
};

bool isPlaceholder(std::string_view unit);
/// Neither a free position nor a placeholder.
bool isRealUnit(std::string_view unit);

/// Visits all positions, menu by menu, button by button, until `visit` returns false.
template <typename Visit>
void forEachPosition(Visit&& visit) {
    for (int menu = firstMenu; menu <= lastMenu; ++menu)
        for (int button = 0; button < buttonCount; ++button)
            if (!visit(menu, button))
                return;
}

/// The builders in the order in which they were first met. Names of builders and units are compared
/// with no regard to case.
class MenuTable {
  public:
    /// Told of a unit that found no free position.
    using NoRoom = std::function<void(const std::string& builder, const std::string& unit)>;

    explicit MenuTable(NoRoom noRoom = {}) : noRoom_(std::move(noRoom)) {}

    const std::vector<BuildMenu>& menus() const { return menus_; }

    /// The first record of that name, case ignored, or -1.
    int findBuilder(std::string_view name) const;
    bool builderHasUnit(std::string_view builder, std::string_view unit) const;
    /// Puts a unit on a builder's menu, once. Where the position is taken, or any is asked for, it
    /// gets the first free one; without one it is told of and left out. The builder has the
    /// spelling given last.
    void addMenuUnit(const std::string& builder, const std::string& unit, int menu, int button);

    /// The first real unit of a record, by its place in `menus`, at or behind a position; -1 and -1
    /// if there is none.
    MenuPosition nextMenuUnit(int index, int menu, int button) const;

    /// Moves the real units of each builder to the head of its menus, in their order. Placeholders
    /// on the way give up their positions; those behind the last unit stay.
    void compress();

  private:
    std::vector<BuildMenu> menus_;
    std::unordered_map<std::string, int> byName_; ///< by the builder's name, case folded
    NoRoom noRoom_;
};

/// `text` with blanks up to a width in bytes; a longer one unchanged.
std::string padRight(std::string_view text, std::size_t width);

/// The table for a person to read, all seven menus of every builder. No program reads it back.
std::string menuListText(const std::vector<BuildMenu>& menus);

} // namespace formats
