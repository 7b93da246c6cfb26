// Weapon files are read line by line for two things: section heads and IDs.
#include "conflict/weapon_table.h"

#include <algorithm>

#include "formats/number.h"
#include "platform/text.h"

namespace conflict {
namespace {

constexpr auto unused = "Unused";
constexpr auto conflictMark = " *CONFLICT* ";

std::string_view trimmed(std::string_view line) {
    line.remove_prefix(std::min(line.find_first_not_of(" \t"), line.size()));
    return line.substr(0, line.find_last_not_of(" \t;") + 1);
}

} // namespace

void WeaponTable::readLine(std::string_view line) {
    line = trimmed(line);
    if (line.starts_with('['))
        currentName_ = line.size() < 2 ? "" : line.substr(1, line.size() - 2);
    else if (platform::equalIgnoringCase(line.substr(0, 3), "id="))
        claim(line.substr(3));
}

void WeaponTable::claim(std::string_view number) {
    const std::int64_t id = formats::numberAtStart(number).value;
    if (id < 0 || id > lastID)
        return;
    auto& name = names_[static_cast<std::size_t>(id)];
    if (name == unused)
        name = currentName_;
    else
        name += conflictMark + currentName_;
}

bool WeaponTable::isConflict(int id) const {
    return (*this)[id].find(conflictMark) != std::string::npos;
}

std::string WeaponTable::reportLine(int id) const {
    return "ID " + std::to_string(id) + ": " + (*this)[id] + std::string(platform::lineBreak);
}

} // namespace conflict
