// The six types of release and the two forms of a release's name.
#pragma once

#include <array>
#include <string>
#include <string_view>

namespace engine {

/// The number decides wherever two releases are weighed against each other. 0 marks a plan entry
/// that was cleared.
enum class ReleaseType { none = 0, map = 1, unit = 2, tc = 3, race = 4, mod = 5, ai = 6 };

struct ReleaseTypeNames {
    ReleaseType type;
    std::string_view shortName; ///< stands in front of the dash in the folder's name
    std::string_view typeName;  ///< in questions to the user
    std::string_view tabCaption;
    bool hasLooseFolder; ///< files in its "Misc" folder are releases of their own
};

/// In the order of their numbers.
inline constexpr std::array<ReleaseTypeNames, 6> releaseTypes = {{
    {ReleaseType::map, "Map", "Map", "Maps", true},
    {ReleaseType::unit, "Unit", "Unit", "Units", true},
    {ReleaseType::tc, "TC", "Total Conversion", "Total Conversions", false},
    {ReleaseType::race, "Race", "Race", "Races", false},
    {ReleaseType::mod, "Mod", "Modification", "Mods", false},
    {ReleaseType::ai, "AI", "AI", "AIs", false},
}};

const ReleaseTypeNames& namesOf(ReleaseType type);
const ReleaseTypeNames& namesOfTab(std::string_view caption);

/// The release types that stand for the game as it came.
inline constexpr std::string_view defaultTC = "Cavedog TA";
inline constexpr std::string_view defaultAI = "Cavedog AI";

/// The folder of the data tree, below the game directory.
inline constexpr std::string_view dataTree = "Vexillum";

/// Cuts the prefix off the name of a release's folder; false, with nothing changed, for another
/// type's.
bool cutPrefix(std::string_view& folder, ReleaseType type);
/// Whether what stands behind the prefix is the folder of loose releases.
bool isLooseFolder(std::string_view name, ReleaseType type);

/// A display name may hold "/", which stands as "~" in the folder's name.
std::string folderForm(std::string_view displayName);
std::string displayForm(std::string_view folderName);

} // namespace engine
