// The rules of a clash: the higher type is asked for first, the game never, and a file of the game
// that loses has to go somewhere.
#include "cycle/clash.h"

#include <utility>

#include "platform/disk.h"
#include "platform/text.h"

namespace cycle {
namespace {

constexpr std::string_view holdingFolder = "Vexillum\\TC-Cavedog TA\\";

std::string quoted(std::string_view text) {
    return "\"" + std::string(text) + "\"";
}

std::string typeName(const moveEntry& entry) {
    return std::string(releases::infoOf(entry.relType).typeName);
}

std::string named(const moveEntry& entry) {
    return "the " + quoted(entry.relName) + " " + typeName(entry);
}

} // namespace

std::string ClashQuestion::text() const {
    return "Both " + named(a) + " and " + named(b) + " include a file destined for " +
           quoted(platform::shownPath(a.toPath)) + ".\r\n\r\nDo you want to use the " +
           quoted(a.relName) + " one instead of the " + quoted(b.relName) +
           " one?\r\n(Choose Yes if you're not sure)";
}

std::string ExeQuestion::text() const {
    return "The " + quoted(exe.relName) + " " + typeName(exe) +
           " includes an EXE file.\r\n\r\nDo you want to use this EXE (" +
           platform::shownPath(exe.toPath) + ") instead of the CaveDog one?";
}

const std::string& displace(MoveList& moves, int slot) {
    moves.setToPath(slot, std::string(holdingFolder) + moves[slot].toPath);
    return moves[slot].toPath;
}

void resolveClash(MoveList& moves, int idxA, int idxB, const Answers& answers,
                  std::vector<Clash>& clashes) {
    if (idxA == -1 || idxB == -1 || idxA == idxB ||
        !platform::equalIgnoringCase(moves[idxA].toPath, moves[idxB].toPath))
        return;
    if (moves[idxB].relType > moves[idxA].relType)
        std::swap(idxA, idxB);
    if (moves[idxA].isGames())
        std::swap(idxA, idxB);
    const auto [isForA, why] = answers.clash({moves[idxA], moves[idxB]});
    const int winner = isForA ? idxA : idxB;
    const int loser = isForA ? idxB : idxA;
    auto& clash =
        clashes.emplace_back(Clash{moves[winner].toPath, moves[winner], moves[loser], why, {}});
    if (moves[loser].isGames())
        clash.waitsAt = displace(moves, loser);
    else
        moves.clear(loser);
}

} // namespace cycle
