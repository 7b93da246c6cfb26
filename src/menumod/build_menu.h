// The build menus of all builders as one table: read out of GUI pages and download TDFs,
// compressed, converted, and written as texts. Data in, data out.
#pragma once

#include <array>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace menumod {

inline constexpr int firstMenu = 2;
inline constexpr int menuCount = 7;
inline constexpr int buttonCount = 6;
/// Stands for "any free position" in a menu or button number.
inline constexpr int anyPosition = -1;

/// One builder's menu: seven menus, numbered from 2, of six buttons. An empty string is a free
/// position. The name "igpatch" holds a position and produces nothing.
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

/// The builders in the order in which they were first met.
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
    /// gets the first free one.
    void addMenuUnit(const std::string& builder, const std::string& unit, int menu, int button);

    /// The first real unit of a record at or behind a position; -1 and -1 if there is none.
    MenuPosition nextMenuUnit(int index, int menu, int button) const;

    /// Moves the real units of each menu to its head, in their order.
    void compress();

  private:
    std::vector<BuildMenu> menus_;
    std::unordered_map<std::string, int> byName_; ///< by the builder's name, case folded
    NoRoom noRoom_;
};

/// A line without what follows its first ";", and without the blanks and tabs ahead.
std::string_view cleanLine(std::string_view line);

/// Takes in a GUI page line by line.
class GuiPageReader {
  public:
    /// `skipPlaceholders` passes over the lines that name one.
    GuiPageReader(MenuTable& table, std::string builder, bool skipPlaceholders)
        : table_(table), builder_(std::move(builder)), skipPlaceholders_(skipPlaceholders) {}

    void readLine(std::string_view line);
    bool hasButtons() const { return hasButtons_; }

  private:
    MenuTable& table_;
    std::string builder_;
    bool skipPlaceholders_;
    std::string pending_;
    bool hasButtons_ = false;
};

/// Takes in a download TDF line by line. A record is whole with the last of its four values, in any
/// order; values carry over section heads until then.
class DownloadReader {
  public:
    explicit DownloadReader(MenuTable& table) : table_(table) {}

    void readLine(std::string_view line);

  private:
    MenuTable& table_;
    std::string unitMenu_;
    std::string unitName_;
    int menu_ = anyPosition;
    int button_ = anyPosition;
};

/// One place of a unit on a builder's menu.
struct DownloadEntry {
    int menu;
    int button;
    std::string builder;
};

/// One generated file.
struct DownloadUnit {
    std::string unitName;
    std::vector<DownloadEntry> entries;
};

/// The units in the order in which they were first met, told apart by case.
class DownloadTable {
  public:
    const std::vector<DownloadUnit>& downloads() const { return downloads_; }

    int findDownload(const std::string& unit) const;
    /// Without `small` two menus of six buttons become one of twelve.
    void addDownloadEntry(const std::string& unit, const std::string& builder, int menu, int button,
                          bool small);
    /// Adds all real units of a builder's menu.
    void addMenu(const BuildMenu& menu, bool small);

  private:
    std::vector<DownloadUnit> downloads_;
    std::unordered_map<std::string, int> byName_;
};

std::string downloadText(const DownloadUnit& unit);

/// `text` with blanks up to a width; a longer one unchanged.
std::string padRight(std::string_view text, std::size_t width);

/// The table for a person to read.
std::string menuListText(const std::vector<BuildMenu>& menus);

} // namespace menumod
