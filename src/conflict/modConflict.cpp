// The scan takes the weapon files out of all archives and reads them line by line for two things:
// section heads and IDs.
#include "conflict/modConflict.h"

#include <algorithm>

#include "menumod/number.h"
#include "platform/failure.h"
#include "platform/text.h"

namespace conflict {
namespace {

constexpr auto unused = "Unused";
constexpr auto conflictMark = " *CONFLICT* ";
constexpr auto workFolder = "VXL-WID";

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
    const long id = menumod::numberAtStart(number).value;
    if (id < 0 || id > lastID)
        return;
    auto& name = names_[static_cast<std::size_t>(id)];
    if (name == unused)
        name = currentName_;
    else
        name += conflictMark + currentName_;
}

std::string WeaponTable::reportLine(int id) const {
    return "ID " + std::to_string(id) + ": " + (*this)[id] + std::string(platform::lineBreak);
}

void modConflict::extractFolder(int handle, const std::string& folder, const std::string& extension,
                                std::string dest, bool underTree) {
    if (underTree)
        dest = "Vexillum\\" + dest;
    const auto destination = main_.TADir + "\\" + dest;
    platform::attempt([&] { main_.machine().disk.makeFolder(destination + "\\" + folder); });
    std::string name;
    int type = 0;
    int size = 0;
    for (int next = 0; (next = archives_.HPIGetFiles(handle, next, name, type, size)) != 0;) {
        main_.machine().toolkit.doEvents();
        if (type == 0 && platform::equalIgnoringCase(name.substr(0, folder.size()), folder) &&
            platform::endsWithIgnoringCase(name, extension))
            extractEntry(handle, name, folder, destination + "\\" + name);
    }
}

/// Only what lies in the folder asked for may take a file's place. The test on the path's beginning
/// lets others through, such as a root file "guisnote.txt".
void modConflict::extractEntry(int handle, const std::string& name, const std::string& folder,
                               const std::string& destination) {
    // A hidden file would be in no listing, and so never be removed again.
    if (name.starts_with('.') || name.find("\\.") != std::string::npos)
        return;
    const bool inFolder = name.size() > folder.size() && name[folder.size()] == '\\';
    if (inFolder && takeOver && takeOver(handle, name))
        return;
    if (inFolder || !main_.DoesFileExist(destination))
        archives_.HPIExtractFile(handle, name, destination);
}

void modConflict::scanWeaponIDs(platform::TextBox& box) {
    auto& toolkit = main_.machine().toolkit;
    auto& disk = main_.machine().disk;
    engine::StringArray files;
    main_.fileArray(files, main_.TADir);
    const auto work = main_.TADir + "\\Vexillum\\" + workFolder;
    main_.totallyKillFolder(work, false);
    platform::attempt([&] { disk.makeFolder(work); });
    for (const auto& file : files.entries()) {
        toolkit.doEvents();
        const int handle = archives_.HPIOpen(main_.TADir + "\\" + file);
        if (handle != 0)
            extractFolder(handle, "weapons", "tdf", workFolder, true);
        archives_.HPIClose(handle);
    }
    WeaponTable table;
    files.clear();
    main_.fileArray(files, work + "\\weapons");
    for (const auto& file : files.entries()) {
        toolkit.doEvents();
        // A weapon file that cannot be read is passed over.
        platform::attempt([&] {
            for (const auto& line :
                 platform::splitLines(disk.readFile(work + "\\weapons\\" + file))) {
                toolkit.doEvents();
                table.readLine(line);
            }
        });
    }
    box.setText("");
    for (int id = 0; id <= WeaponTable::lastListedID; ++id) {
        toolkit.doEvents();
        box.append(table.reportLine(id));
    }
    main_.totallyKillFolder(work, false);
}

} // namespace conflict
