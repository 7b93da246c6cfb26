// What a release brings, as values: how much of what, and its maps and units with their pictures.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "formats/map_info.h"
#include "formats/picture.h"
#include "formats/unit_file.h"

namespace releases {

/// Null where there is none.
using PicturePtr = std::shared_ptr<const formats::Picture>;

/// Texts out of files are in the bytes that these have: `platform::toUtf8` shows them.
struct MapContent {
    std::string path; ///< of its files below the game directory, without the ending: "maps\divide"
    std::string name; ///< its own, or that of its files where it has none; never empty
    formats::MapInfo info; ///< the size is that of the `.tnt` where the `.ota` tells none
    PicturePtr picture;
    /// Why there is no picture although a file should have one, as the end of a sentence: "it is a
    /// map of another game". Empty where there is one, or where the release brings no `.tnt`.
    std::string fault;
};

struct UnitContent {
    std::string path; ///< of its file below the game directory, without the ending: "units\armcom"
    std::string name; ///< its own, or the short one, or that of its file; never empty
    formats::UnitInfo info;
    PicturePtr picture;
    std::string fault; ///< as that of a map
};

struct Contents {
    std::uint64_t archives = 0;
    std::uint64_t files = 0; ///< in archives and beside them
    std::uint64_t weapons = 0;
    std::vector<MapContent> maps;   ///< in the order of their names
    std::vector<UnitContent> units; ///< in the order of their names
    /// Archives and settings files that could not be read, or not wholly, a sentence each.
    std::vector<std::string> faults;
    /// Whether more was found than is kept: no release has so much.
    bool isCut = false;

    bool hasPictures() const;
};

/// "1 archive, 12 files, 2 maps, 1 unit, 3 weapons", without what there is none of; "No files".
std::string summaryText(const Contents& contents);

/// What a picture is told as to those who cannot see it: "map Great Divide, 12 x 12, 2 to 4
/// players", "unit Hover Crane, Lifts what cannot swim". UTF-8.
std::string spokenText(const MapContent& map);
std::string spokenText(const UnitContent& unit);

/// What is known of one beside its name, in a few lines for people. UTF-8, without a line break at
/// the end.
std::string factsText(const MapContent& map);
std::string factsText(const UnitContent& unit);

/// A text about a release to begin with, for whoever adds it: the description, and what else is
/// known in a line. Lines end in line breaks; empty where nothing is known. In the file's bytes.
std::string aboutText(const formats::MapInfo& info);
std::string aboutText(const formats::UnitInfo& info);

} // namespace releases
