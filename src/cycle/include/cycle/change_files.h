// The files in the data tree that tell of the changes to the game directory.
#pragma once

#include <string>

#include "releases/game_directory.h"

namespace cycle {

/// With no name, the folder of them.
inline std::string changeFile(const releases::GameDirectory& game, std::string_view name) {
    const std::string folder = "VXL-Changes";
    return game.inDataTree(name.empty() ? folder : folder + "\\" + std::string(name));
}

/// The journal, which is read back.
inline std::string journalFile(const releases::GameDirectory& game) {
    return changeFile(game, "Internal.txt");
}

/// The same facts for people.
inline std::string humanFile(const releases::GameDirectory& game) {
    return changeFile(game, "Human.txt");
}

/// How far the journal has come.
inline std::string stateFile(const releases::GameDirectory& game) {
    return changeFile(game, "State.txt");
}

/// What could not be undone yet.
inline std::string pendingFile(const releases::GameDirectory& game) {
    return changeFile(game, "Pending.txt");
}

/// What the build-menu modifier makes.
inline std::string trellisFile(const releases::GameDirectory& game) {
    return changeFile(game, "Trellis.txt");
}

/// Gives a file that can be read no more another name in its folder, so that nothing replaces it.
/// Nothing happens without one. Throws Failure.
void keepBeside(const releases::GameDirectory& game, const std::string& file);

} // namespace cycle
