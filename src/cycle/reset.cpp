// The moves are undone from the last to the first: a release's file leaves the place of the game's
// before that one comes back.
#include "cycle/reset.h"

#include <string>
#include <unordered_map>
#include <unordered_set>

#include "cycle/change_files.h"
#include "platform/failure.h"
#include "platform/text.h"

namespace cycle {
namespace {

using Move = formats::Journal::Move;

class Undo {
  public:
    Undo(releases::GameDirectory& game, const formats::Journal& journal)
        : game_(game), journal_(journal) {
        for (const auto& folder : journal.folders)
            folders_.insert(platform::foldCase(folder));
    }

    void moves() {
        game_.beginMoves();
        for (auto move = journal_.moves.rbegin(); move != journal_.moves.rend(); ++move) {
            game_.log().line(line_.assign(move->destination).append(" to ").append(move->source));
            moveBack(*move);
            game_.log().breathe();
        }
    }

  private:
    void moveBack(const Move& move) {
        const auto& from = game_.at(move.destination, from_);
        const auto& to = game_.at(move.source, to_);
        // A folder of the journal may stand where a file was that made room for a release's.
        if (move.source.find('\\') == std::string::npos &&
            folders_.contains(platform::foldCase(move.source)))
            platform::attempt([&] { game_.disk().removeFolder(to); });
        if (!isThere(std::string_view(to).substr(0, to.rfind('\\'))) && isGamesOwn(move))
            game_.tellOfFailedMove(from, to);
        else
            game_.MoveFile(from, to);
    }

    /// Neighbours in a journal mostly share their folder.
    bool isThere(std::string_view folder) {
        if (folder != lastFolder_) {
            lastFolder_ = folder;
            lastIsThere_ = game_.DoesFolderExist(lastFolder_);
        }
        return lastIsThere_;
    }

    /// Whether the entry at a move's destination is not the release's file, of a release that is
    /// gone: it is a folder, or the file of the game that had to make room there does not wait
    /// elsewhere, so it is back. A journal undone once more must not move that entry away.
    bool isGamesOwn(const Move& move) {
        if (game_.disk().kindOf(game_.at(move.destination)) == platform::EntryKind::folder)
            return true;
        if (displaced_.empty())
            for (const auto& each : journal_.moves)
                displaced_.emplace(platform::foldCase(each.source), each.destination);
        const auto waiting = displaced_.find(platform::foldCase(move.destination));
        return waiting != displaced_.end() && !game_.DoesFileExist(game_.at(waiting->second));
    }

    releases::GameDirectory& game_;
    const formats::Journal& journal_;
    /// Where the files of the game that had to make room wait, by their places, case folded.
    std::unordered_map<std::string, std::string> displaced_;
    std::unordered_set<std::string> folders_;
    // Their room is used again for each move.
    std::string line_;
    std::string from_;
    std::string to_;
    std::string lastFolder_;
    bool lastIsThere_ = true;
};

} // namespace

std::optional<formats::Journal> lastJournal(const releases::GameDirectory& game) {
    return formats::readJournal(game.disk().readFile(journalFile(game)));
}

void undo(releases::GameDirectory& game, const formats::Journal& journal, bool modifierWasOn) {
    auto& log = game.log();
    log.stage("Unmoving Files...");
    Undo(game, journal).moves();
    log.stage("Removing Extra Subdirectories...");
    for (const auto& folder : journal.folders) {
        log.line(folder);
        platform::attempt([&] { game.disk().removeFolder(game.at(folder)); });
        log.breathe();
    }
    log.stage("Removing Trellis Data Files...");
    if (modifierWasOn)
        for (const auto* folder : {"anims", "download", "guis"})
            game.totallyKillFolder(game.at(folder), true);
    log.stage("Done");
}

} // namespace cycle
