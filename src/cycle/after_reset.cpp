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
        const auto path = folder.empty() ? game_.TADir() : game_.at(folder);
        auto names = game_.list(path);
        const auto changed = changes_.find(game_.disk().systemPath(path));
        if (!names || changed == changes_.end())
            return names;
        std::erase_if(names->files,
                      [&](const auto& name) { return changed->second.gone.contains(name); });
        for (const auto& name : changed->second.back)
            names->files.push_back(name);
        std::ranges::sort(names->files, platform::lessIgnoringCase);
        return names;
    }

  private:
    /// In one folder, in the spelling that the disk has.
    struct Changes {
        std::unordered_set<std::string> gone;
        std::vector<std::string> back;
    };
    struct Place {
        std::string folder; ///< in the system's form: a disk may hold two that differ in case alone
        std::string name;
    };

    Place placeOf(const std::string& path) const {
        const auto full = game_.disk().systemPath(game_.at(path));
        const auto cut = full.find_last_of("/\\");
        return {full.substr(0, cut), full.substr(cut + 1)};
    }

    bool isGone(const Place& place) const {
        const auto changed = changes_.find(place.folder);
        return changed != changes_.end() && changed->second.gone.contains(place.name);
    }

    void takeAway(const Place& place) { changes_[place.folder].gone.insert(place.name); }

    bool moveBack(const formats::Journal::Move& move, std::int64_t carriedOutAt) {
        auto& disk = game_.disk();
        const auto file = disk.factsOf(game_.at(move.destination));
        const bool isAsItWas = file.kind == platform::EntryKind::file && carriedOutAt != 0 &&
                               file.changed != 0 && file.changed <= carriedOutAt;
        const auto source = placeOf(move.source);
        const bool isFree =
            isGone(source) || disk.kindOf(game_.at(move.source)) == platform::EntryKind::none;
        const auto cut = move.source.rfind('\\');
        const bool hasFolder =
            cut == std::string::npos || game_.DoesFolderExist(game_.at(move.source.substr(0, cut)));
        if (!isAsItWas || !isFree || !hasFolder)
            return false;
        takeAway(placeOf(move.destination));
        changes_[source.folder].back.push_back(move.source.substr(cut + 1));
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
            takeAway(placeOf(path));
            return facts.kind == platform::EntryKind::none || facts.changed <= madeAt;
        });
    }

    const releases::GameDirectory& game_;
    std::map<std::string, Changes> changes_; ///< by their folders
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
