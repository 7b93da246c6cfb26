// The journal is gone through from its end, as the reset does, on the names alone.
#include "cycle/after_reset.h"

#include <algorithm>
#include <map>
#include <memory>
#include <unordered_set>

#include "cycle/change_files.h"
#include "formats/trellis_notes.h"
#include "platform/failure.h"
#include "platform/text.h"

namespace cycle {
namespace {

using Trust = LastLaunch::Trust;

class AfterReset {
  public:
    explicit AfterReset(const releases::GameDirectory& game) : game_(game) {}

    /// False where the reset may do otherwise.
    bool undo(const LastLaunch& last) {
        if (last.lostJournal || last.damagedPending || !last.pending.moves.empty())
            return false;
        if (last.trust != Trust::undone && !last.journal.moves.empty()) {
            if (last.trust != Trust::carriedOut)
                return false;
            for (auto number = last.journal.moves.size(); number > 0; --number)
                if (!last.failedMoves.contains(number - 1) &&
                    !moveBack(last.journal.moves[number - 1], last.carriedOutAt))
                    return false;
        }
        return takeAwayModifierOutput();
    }

    std::optional<platform::FolderNames> list(const std::string& folder) const {
        auto names = game_.list(folder.empty() ? game_.TADir() : game_.at(folder));
        const auto start = folder.empty() ? folder : folder + "\\";
        if (names && !gone_.empty())
            std::erase_if(names->files, [&](const auto& name) {
                return gone_.contains(platform::foldCase(start + name));
            });
        const auto back = back_.find(platform::foldCase(folder));
        if (!names || back == back_.end())
            return names;
        names->files.insert(names->files.end(), back->second.begin(), back->second.end());
        std::ranges::sort(names->files, platform::lessIgnoringCase);
        return names;
    }

  private:
    bool moveBack(const formats::Journal::Move& move, std::int64_t carriedOutAt) {
        const auto file = game_.disk().factsOf(game_.at(move.destination));
        const bool isAsItWas = file.kind == platform::EntryKind::file && carriedOutAt != 0 &&
                               file.changed != 0 && file.changed <= carriedOutAt;
        const auto source = platform::foldCase(move.source);
        const bool isFree = gone_.contains(source) ||
                            game_.disk().kindOf(game_.at(move.source)) == platform::EntryKind::none;
        const auto cut = move.source.rfind('\\');
        const auto folder = cut == std::string::npos ? std::string() : move.source.substr(0, cut);
        if (!isAsItWas || !isFree || (!folder.empty() && !game_.DoesFolderExist(game_.at(folder))))
            return false;
        gone_.insert(platform::foldCase(move.destination));
        back_[platform::foldCase(folder)].push_back(move.source.substr(cut + 1));
        return true;
    }

    bool takeAwayModifierOutput() {
        const auto file = trellisFile(game_);
        if (game_.disk().kindOf(file) == platform::EntryKind::none)
            return true;
        formats::TrellisNotesRead read;
        platform::attempt([&] { read = formats::readTrellisNotes(game_.disk().readFile(file)); });
        if (!read.isWhole || !read.notes.isMade)
            return false;
        const auto madeAt = game_.disk().factsOf(file).changed;
        return std::ranges::all_of(read.notes.files, [&](const auto& path) {
            const auto facts = game_.disk().factsOf(game_.at(path));
            gone_.insert(platform::foldCase(path));
            return facts.kind == platform::EntryKind::none || facts.changed <= madeAt;
        });
    }

    const releases::GameDirectory& game_;
    std::unordered_set<std::string> gone_; ///< files, case folded
    /// Files that are back, by their folders, case folded.
    std::map<std::string, std::vector<std::string>> back_;
};

} // namespace

std::optional<Listings> listingsAfterReset(const releases::GameDirectory& game,
                                           const LastLaunch& last) {
    const auto after = std::make_shared<AfterReset>(game);
    if (!after->undo(last))
        return std::nullopt;
    return [after](const std::string& path) { return after->list(path); };
}

} // namespace cycle
