// The selection between two runs: text files in the data tree, one for each type and one for the
// modifier.
#pragma once

#include <string>
#include <vector>

#include "cycle/decisions.h"
#include "cycle/selection.h"
#include "releases/game_directory.h"

namespace cycle {

/// Reads all files in their order. Gives back why those cannot be read that count as blank, each
/// with its path.
std::vector<std::string> readSels(const releases::GameDirectory& game, Selection& selection);

/// Writes all files, which are there to stay when it returns. Throws Failure, mostly with none
/// written; a crash leaves each file old or new, whole.
void saveSels(const releases::GameDirectory& game, const Selection& selection);

/// Blanks all files, which marks that a run has begun. Fails as saveSels does. A power cut may
/// bring the old ones back, whole.
void killSels(const releases::GameDirectory& game);

/// The answers that the user wished to be remembered, in a file that people can read and change.
/// Without the file there are none. Reading fails with why, for a file that is there; writing
/// throws Failure, with the old file whole.
std::string readAnswers(const releases::GameDirectory& game, Decisions& answers);
void saveAnswers(const releases::GameDirectory& game, const Decisions& answers);

/// Whether the program comes back when the game ends, in a file likewise. Without the file, or
/// where it says nothing of it, it does not. Fails as for the answers.
std::string readComesBack(const releases::GameDirectory& game, bool& comesBack);
void saveComesBack(const releases::GameDirectory& game, bool comesBack);

/// What the game is started with (`platform::Command::wrapper`), in a file likewise; empty without
/// it. A wrapper of several lines is one. Fails as for the answers.
std::string readWrapper(const releases::GameDirectory& game, std::string& wrapper);
void saveWrapper(const releases::GameDirectory& game, const std::string& wrapper);

/// A selection as one text and back, without the modifier: a line for each name, behind its type.
std::string textOf(const Selection& selection);
void readText(std::string_view text, Selection& selection);

} // namespace cycle
