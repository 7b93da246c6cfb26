// A list of known directories that cannot be read counts as blank here.
#include "installation/installation.h"

#include <utility>

#include "installation/data_tree.h"
#include "platform/failure.h"

namespace installation {

Installation::Installation(platform::Disk& theDisk, platform::UserPlaces thePlaces,
                           std::string theFolder, std::string theName, std::string theStock)
    : disk(theDisk), places(std::move(thePlaces)), programFolder(std::move(theFolder)),
      programName(std::move(theName)), stock(std::move(theStock)), known(disk, places.settings) {}

bool Installation::isInstalled() const {
    return !stock.empty() && !hasDataTree(disk, programFolder);
}

std::optional<std::string> Installation::programFor(const std::string& directory) const {
    if (programName.empty() || directory == programFolder)
        return std::nullopt;
    return disk.systemPath(programFolder + "\\" + programName);
}

std::optional<std::string> Installation::usual() const {
    if (!isInstalled())
        return programFolder;
    std::optional<std::string> last;
    platform::attempt([&] {
        const auto directories = known.all();
        if (!directories.empty() && hasDataTree(disk, directories.front()))
            last = directories.front();
    });
    return last;
}

} // namespace installation
