// What the user wants in the game directory: one total conversion, one AI, any number of the
// others, and the settings of the build-menu modifier. All that a window shows of it is derived
// from here.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "releases/modArray.h"
#include "releases/release_types.h"

namespace cycle {

/// Names of types with one choice are in the form of their folders, all others in the form that
/// people see, in the order of ticking.
class Selection {
  public:
    /// Whether the apply ends in the build-menu modifier, and how.
    struct MenuModifier {
        bool enabled = false;
        bool compress = false;
        bool small = false;
    };

    /// The defaults: those of the types with one choice, nothing of the others, no modifier.
    Selection();

    std::span<const std::string> namesOf(releases::ReleaseType type) const;
    int countOf(releases::ReleaseType type) const;
    bool has(releases::ReleaseType type, std::string_view name) const;
    /// The name chosen of a type with one choice. There is always one, but there may be no release
    /// of that name.
    const std::string& theOne(releases::ReleaseType type) const;

    /// Of a type with one choice: the one that is chosen from now on.
    void choose(releases::ReleaseType type, std::string_view name);
    /// Of a type with many: one more, duplicates allowed.
    void add(releases::ReleaseType type, std::string_view name);
    /// Takes out the first entry of exactly that name, or else of that name in another case;
    /// without one nothing changes.
    void takeOut(releases::ReleaseType type, std::string_view name);
    /// A release has another name now, or is gone; both names as people see them. The order of
    /// ticking stays, and of a type with one choice the default takes the place of one that is
    /// gone. True where it was chosen.
    bool rename(releases::ReleaseType type, std::string_view name, std::string_view newName);
    bool forget(releases::ReleaseType type, std::string_view name);
    /// Back to the defaults. The settings of the modifier stay.
    void revert();

    MenuModifier modifier;

    /// The selection file of a type, as text and back: a name a line. What it says replaces what
    /// was chosen. Names are taken over as they are, whether there are such releases or not, but
    /// for blank lines; of a type with one choice the first line counts, and a blank or missing one
    /// is the default.
    std::string textOf(releases::ReleaseType type) const;
    void readText(releases::ReleaseType type, std::string_view bytes);
    /// Three lines, "True" or "False". Read back, all that is not "True" is False.
    std::string modifierText() const;
    void readModifierText(std::string_view bytes);

  private:
    releases::StringArray& arrayOf(releases::ReleaseType type);
    const releases::StringArray& arrayOf(releases::ReleaseType type) const;

    std::vector<releases::StringArray> names_;
};

} // namespace cycle
