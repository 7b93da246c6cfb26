// What is typed to find releases: words of their names, and what their maps are to be like, as
// "players:4 size>=16 lakes".
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "formats/map_info.h"

namespace windows {

/// What is known of a map beside its name.
struct MapFacts {
    std::vector<int> players; ///< for how many it is made, ascending
    formats::MapSize size;
    std::string playersText; ///< "2 to 4 players"
};

/// Texts that stand beside the name of a release with these maps: players and size of the only one,
/// or how many there are.
std::vector<std::string> notesOf(const std::vector<MapFacts>& maps);

class ListFilter {
  public:
    /// A word is a condition where it is "players" or "size", one of ":", "=", "<", "<=", ">",
    /// ">=", and a number; behind "size" also two, as in "size:12x16". All other words are the
    /// text. Case is ignored.
    static ListFilter parse(std::string_view typed);

    /// Without the conditions; as it was typed where there are none.
    const std::string& text() const { return text_; }
    bool hasConditions() const { return !conditions_.empty(); }
    /// Whether one of the maps meets all conditions. A size of one number is that of the longer
    /// side; of several numbers of players one must do.
    bool accepts(const std::vector<MapFacts>& maps) const;

  private:
    struct Condition {
        bool isSize = false;
        std::string relation; ///< "=", "<", "<=", ">" or ">="
        int number = 0;
        int second = 0; ///< the height; 0 where one number was typed
    };
    static bool readCondition(std::string_view word, Condition& condition);
    static bool holds(const Condition& condition, const MapFacts& map);

    std::string text_;
    std::vector<Condition> conditions_;
};

} // namespace windows
