// The files that hold build menus: GUI pages and download TDFs, read line by line into a menu
// table, and the download TDFs that are generated out of one.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "formats/build_menu.h"

namespace formats {

/// A line without what follows its first ";", and without the blanks and tabs ahead.
std::string_view cleanLine(std::string_view line);

/// Takes a unit on a builder's menu, as `MenuTable::addMenuUnit` does.
using AddMenuUnit =
    std::function<void(const std::string& builder, const std::string& unit, int menu, int button)>;
AddMenuUnit addTo(MenuTable& table);

/// The builder that a GUI page is named for, and the number of the page. Nothing for a name that is
/// too short for a digit and the extension; a page without a digit has the number -1.
struct GuiPageName {
    std::string builder;
    int page = -1;
};
std::optional<GuiPageName> guiPageName(std::string_view fileName);

/// Takes in a GUI page line by line. A gadget is a button of the menu by its height, 64 pixels, and
/// its name is the unit's; each goes to any free position of the builder that the page is named
/// for.
class GuiPageReader {
  public:
    /// `skipPlaceholders` passes over the lines that name one.
    GuiPageReader(AddMenuUnit add, std::string builder, bool skipPlaceholders)
        : add_(std::move(add)), builder_(std::move(builder)), skipPlaceholders_(skipPlaceholders) {}
    GuiPageReader(MenuTable& table, std::string builder, bool skipPlaceholders)
        : GuiPageReader(addTo(table), std::move(builder), skipPlaceholders) {}

    void readLine(std::string_view line);
    /// Whether a button of a menu was met so far.
    bool hasButtons() const { return hasButtons_; }

  private:
    AddMenuUnit add_;
    std::string builder_;
    bool skipPlaceholders_;
    std::string pending_;
    bool hasButtons_ = false;
};

/// Takes in a download TDF line by line. A record is whole with the last of its four values, in any
/// order; values carry over section heads until then. Numbers out of range are folded into it, and
/// a record that the file leaves unfinished is dropped.
class DownloadReader {
  public:
    explicit DownloadReader(AddMenuUnit add) : add_(std::move(add)) {}
    explicit DownloadReader(MenuTable& table) : DownloadReader(addTo(table)) {}

    void readLine(std::string_view line);

  private:
    AddMenuUnit add_;
    std::string unitMenu_;
    std::string unitName_;
    int menu_ = anyPosition;
    int button_ = anyPosition;
};

/// One place of a unit on a builder's menu, in the numbers that the file is to have.
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

    /// The place in `downloads`, or -1.
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

/// The file, with a section for each entry that has a builder.
std::string downloadText(const DownloadUnit& unit);

} // namespace formats
