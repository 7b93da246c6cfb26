// The program writes to the game directory and the folders right in it, and in the data tree to the
// releases' folders and those right in them.
#include "left_overs.h"

#include <string>

#include "platform/text.h"
#include "releases/release_types.h"
#include "trellis_removal.h"

namespace cycle {
namespace {

void removeBelow(const releases::GameDirectory& game, const std::string& folder, int depth) {
    game.disk().removeLeftOvers(folder);
    if (depth == 0)
        return;
    const auto names = game.list(folder);
    if (!names)
        return;
    for (const auto& name : names->folders)
        if (folder != game.TADir() || !platform::equalIgnoringCase(name, releases::dataTree))
            removeBelow(game, folder + "\\" + name, depth - 1);
}

} // namespace

void removeLeftOvers(const releases::GameDirectory& game, bool everywhere) {
    removeBelow(game, game.TADir(), everywhere ? 1 : 0);
    if (everywhere)
        return removeBelow(game, game.at(releases::dataTree), 2);
    for (const auto* folder : modifierFolders)
        removeBelow(game, game.at(folder), 0);
    for (const auto* folder : {"VXL-Cache", "VXL-Changes", "VXL-Sel", "VXL-Sets"})
        removeBelow(game, game.inDataTree(folder), 0);
}

} // namespace cycle
