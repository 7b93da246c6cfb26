// The files that define units, `.fbi` in the folder `units`.
#pragma once

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

} // namespace formats
