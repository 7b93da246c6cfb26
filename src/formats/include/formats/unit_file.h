// The files that define units, `.fbi` in the folder `units`.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace formats {

/// Whether a path in an archive is that of a file that defines a unit.
bool isUnitFile(std::string_view path);

/// What a unit file names its unit: the first value of the key UnitName, without the blanks around
/// it. Comments are passed over. Nothing where there is none, or one that no unit can have: longer
/// than 255 bytes, or with control characters.
std::optional<std::string> unitNameIn(std::string_view text);

/// What a unit file tells people of its unit. Texts are empty and numbers missing where the file
/// has none; of a key that occurs twice the first value counts.
struct UnitInfo {
    std::string unitName; ///< the short one, by which other files name the unit
    std::string name;
    std::string description;
    std::string side;
    std::string category;
    std::optional<std::int64_t> energy; ///< BuildCostEnergy
    std::optional<std::int64_t> metal;  ///< BuildCostMetal
    std::optional<std::int64_t> maxDamage;
    std::optional<std::int64_t> buildTime;
};

/// Nothing where the text has no section UNITINFO.
std::optional<UnitInfo> readUnitInfo(std::string_view text);

} // namespace formats
