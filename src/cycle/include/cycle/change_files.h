// Where the journal lies in the data tree: the one that is read back, and the same facts for
// people.
#pragma once

#include <string>

#include "releases/game_directory.h"

namespace cycle {

inline std::string journalFile(const releases::GameDirectory& game) {
    return game.inDataTree("VXL-Changes\\Internal.txt");
}

inline std::string humanFile(const releases::GameDirectory& game) {
    return game.inDataTree("VXL-Changes\\Human.txt");
}

} // namespace cycle
