// The types of release and the two forms of a release's name. All that the program knows of a type
// stands in its row of one table; docs/release-types.md reads it field by field.
#pragma once

#include <array>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace releases {

/// The number of a type. It decides wherever two releases are weighed against each other, and it is
/// the order in which releases are laid over the game. 0 marks a plan entry that was cleared. Only
/// types that the code has to name have a name here.
enum class ReleaseType : int { none = 0, map = 1, unit = 2, tc = 3, race = 4, mod = 5, ai = 6 };

/// How many releases of a type can be chosen at once.
enum class Choice { one, many };

/// Texts that only types with one choice, or with many, have are empty for the others.
struct TypeInfo {
    ReleaseType type = ReleaseType::none;
    std::string_view shortName = {}; ///< stands in front of the dash in the folder's name
    std::string_view typeName = {};  ///< in questions to the user
    Choice choice = Choice::many;
    bool hasLooseFolder = false; ///< files in its "Misc" folder are releases of their own
    int tab = 0;                 ///< its place among the tabs and the selection files, from 0
    std::string_view tabCaption = {};
    int wizardRow = 0; ///< its place in the add wizard's list of types, from 0
    std::string_view selectionFile = {};
    std::string_view defaultName = {}; ///< chosen where nothing else is; of types with one choice
    std::string_view controlName = {}; ///< of the label "lblSel..." in the main window
    std::string_view boxName = {};     ///< of the box "txtSel..." beside it
    std::string_view label = {};
    std::string_view firstSummary = {}; ///< in the box before the selection was read
    std::string_view enabled =
        {}; ///< behind the number of names, as long as its tab was not opened
    std::string_view selected = {};     ///< behind the number of names, from then on
    std::string_view aboutHeading = {}; ///< of its tab, as the two texts below; of types with many
    std::string_view about = {};
    std::string_view one = {}; ///< in the message about a missing name
    std::string_view several = {};

    bool isSingle() const { return choice == Choice::one; }
};

/// In the order of their numbers.
std::span<const TypeInfo> releaseTypes();
/// In the order of their tabs.
std::span<const TypeInfo* const> typesByTab();

/// The row of a type, which is not `none`.
const TypeInfo& infoOf(ReleaseType type);
/// Null for a caption that no tab has.
const TypeInfo* typeOfTab(std::string_view caption);

/// The releases that stand for the game as it came.
inline constexpr std::string_view defaultTC = "Cavedog TA";
/// What is started at a launch, whoever brought it.
inline constexpr std::string_view gameProgram = "totala.exe";
inline constexpr std::string_view defaultAI = "Cavedog AI";
/// Whether that is the default of any type, whatever type the release is of.
bool isDefaultRelease(std::string_view displayName);

/// The folder of the data tree, below the game directory.
inline constexpr std::string_view dataTree = "Vexillum";

/// What stands behind a type's prefix in the name of a release's folder, in the form that folders
/// have; nothing for another type's. The prefix counts in any case.
std::optional<std::string_view> withoutPrefix(std::string_view folder, ReleaseType type);
/// Whether what stands behind the prefix is the folder of loose releases.
bool isLooseFolder(std::string_view name, ReleaseType type);

/// A display name may hold "/", which stands as "~" in the folder's name. So a "~" in the name of a
/// folder shows as "/", and comes back as what it was.
std::string folderForm(std::string_view displayName);
std::string displayForm(std::string_view folderName);

} // namespace releases
