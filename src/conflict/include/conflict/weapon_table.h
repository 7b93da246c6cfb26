// Weapon IDs and who claims them.
#pragma once

#include <array>
#include <string>
#include <string_view>

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

    /// Whether more than one weapon claims an ID.
    bool isConflict(int id) const;

    /// A line of the report, with its line end.
    std::string reportLine(int id) const;

  private:
    void claim(std::string_view number);

    std::array<std::string, lastID + 1> names_;
    std::string currentName_;
};

} // namespace conflict
