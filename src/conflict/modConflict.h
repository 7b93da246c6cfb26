// Weapon IDs that are claimed twice, and the extraction out of archives that the scan and the
// build-menu modifier share.
#pragma once

#include <array>
#include <functional>
#include <string>
#include <string_view>

#include "engine/frmMain.h"
#include "menumod/modHPIUtil.h"

namespace conflict {

/// Who claims which weapon ID.
class WeaponTable {
  public:
    static constexpr int lastID = 256;
    static constexpr int lastListedID = 255;

    WeaponTable() { names_.fill("Unused"); }

    /// Takes in a line of a weapon file. The name of the weapon carries over from line to line, and
    /// from file to file.
    void readLine(std::string_view line);

    const std::string& operator[](int id) const { return names_[static_cast<std::size_t>(id)]; }

    /// A line of the report, with its line end.
    std::string reportLine(int id) const;

  private:
    void claim(std::string_view number);

    std::array<std::string, lastID + 1> names_;
    std::string currentName_;
};

class modConflict {
  public:
    explicit modConflict(engine::frmMain& main) : main_(main), archives_(main.machine().disk) {}

    menumod::modHPIUtil& archives() { return archives_; }

    /// Asked before an entry is written to a file in the folder that is extracted; true if the
    /// entry has been taken over. `name` is relative to the folder's parent.
    std::function<bool(int handle, const std::string& name)> takeOver;

    /// Extracts the entries whose path begins with `folder` and ends in `extension`, both in lower
    /// case, to the folder `dest` of the game directory, or of the data tree with `underTree`.
    /// Passes over every failure.
    void extractFolder(int handle, const std::string& folder, const std::string& extension,
                       std::string dest, bool underTree);

    /// Writes the report of all archives in the game directory into `box`.
    void scanWeaponIDs(platform::TextBox& box);

  private:
    void extractEntry(int handle, const std::string& name, const std::string& folder,
                      const std::string& destination);

    engine::frmMain& main_;
    menumod::modHPIUtil archives_;
};

} // namespace conflict
