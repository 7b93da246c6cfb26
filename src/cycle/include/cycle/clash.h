// Two files that want one place: who they are, who gets it, and why. Kept with the plan, so that it
// can be shown before it is carried out.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "cycle/move_list.h"

namespace cycle {

/// What the user is asked while a plan is made: A is named first, and Yes is for A. A is the entry
/// of the higher type, or the later one of two of one type; where one of the two is the game's, it
/// is B.
struct ClashQuestion {
    moveEntry a;
    moveEntry b;

    std::string text() const;
};

/// Whether an EXE that a release brings shall be the game: asked of one after the other, until one
/// is chosen.
struct ExeQuestion {
    moveEntry exe;

    std::string text() const;
};

/// How it came that one of two files gets the place.
enum class Why {
    answered,     ///< the user was asked about the two
    chosen,       ///< he has chosen before the launch
    remembered,   ///< he has answered that at an earlier launch
    same,         ///< the two are one and the same, byte for byte
    open,         ///< he will be asked
    chosenAsGame, ///< the user took the winner for the game's own program
};

struct Verdict {
    Verdict(bool forA, Why how = Why::answered) : isForA(forA), why(how) {}
    bool isForA;
    Why why;
};

/// Both must be set; true is for Yes. Nothing is changed while a plan is made, so an answer may
/// take its time.
struct Answers {
    std::function<Verdict(const ClashQuestion&)> clash;
    std::function<bool(const ExeQuestion&)> exe;
};

/// A clash that is settled. Entries are copies: the plan has gone on since.
struct Clash {
    std::string place; ///< relative to the game directory
    moveEntry winner;  ///< as they were when they met
    moveEntry loser;
    Why why = Why::answered;
    /// Where a file of the game that makes room waits; empty for a release's file, which is not
    /// moved at all.
    std::string waitsAt;
};

/// Settles who gets a destination that two entries want, and notes it. The loser is cleared, but
/// for a file of the game, which goes to the holding folder. Without two entries of one destination
/// nothing happens.
void resolveClash(MoveList& moves, int idxA, int idxB, const Answers& answers,
                  std::vector<Clash>& clashes);

/// Sends a file of the game to the holding folder, by the path that it is to have there: the one it
/// has in the game directory, below that folder. Gives back that path, until the list changes.
const std::string& displace(MoveList& moves, int slot);

} // namespace cycle
