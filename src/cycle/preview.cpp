// The moves of the plan are made on a picture of the directory, by the rules of the disk: nothing
// is replaced, missing folders are made, a file in the way of a folder stays.
#include "cycle/preview.h"

#include <algorithm>
#include <numeric>
#include <unordered_map>
#include <unordered_set>

#include "cycle/apply.h"
#include "platform/failure.h"
#include "platform/text.h"

namespace cycle {
namespace {

const Owner theGame{releases::ReleaseType::tc, std::string(releases::defaultTC)};

bool isInDataTree(const std::string& path) {
    return platform::equalIgnoringCase(path.substr(0, path.find('\\')), releases::dataTree);
}

std::string parentOf(const std::string& path) {
    const auto cut = path.rfind('\\');
    return cut == std::string::npos ? std::string() : path.substr(0, cut);
}

class Picture {
  public:
    explicit Picture(const releases::GameDirectory& game) : game_(game) { look({}); }

    void makeFolder(const std::string& folder, std::vector<std::string>& made) {
        if (isFree(folder)) {
            note(folder);
            made.push_back(folder);
        }
    }

    /// False where the disk would refuse it.
    bool move(const formats::Journal::Move& move, const Owner& owner) {
        auto file = takeFrom(move.source, owner);
        if (!file)
            return false;
        if (!isFree(move.destination) || !makeWayTo(move.destination)) {
            // It stays where it is, and is seen there if it is the game's.
            if (!isInDataTree(move.source))
                put(std::move(*file));
            return false;
        }
        file->path = spelled(move.destination);
        put(std::move(*file));
        return true;
    }

    std::vector<Preview::File> takeFiles() {
        std::vector<Preview::File> files;
        files.reserve(files_.size());
        for (auto& [folded, file] : files_)
            files.push_back(std::move(file));
        std::ranges::sort(files, [](const auto& one, const auto& other) {
            return platform::lessIgnoringCase(one.path, other.path);
        });
        return files;
    }

  private:
    void look(const std::string& folder) {
        const auto names = game_.list(folder.empty() ? game_.TADir() : game_.at(folder));
        if (!names)
            return;
        const auto start = folder.empty() ? folder : folder + "\\";
        for (const auto& name : names->files)
            put({start + name, theGame, start + name, sizeOf(start + name), {}});
        for (const auto& name : names->folders) {
            note(start + name);
            if (!folder.empty() || !platform::equalIgnoringCase(name, releases::dataTree))
                look(start + name);
        }
    }

    std::uint64_t sizeOf(const std::string& path) const {
        return game_.disk().factsOf(game_.at(path)).size;
    }

    void put(Preview::File file) {
        auto folded = platform::foldCase(file.path);
        left_.erase(folded);
        files_.emplace(std::move(folded), std::move(file));
    }

    /// Files of the picture leave it; those of releases are taken from the disk, each once.
    std::optional<Preview::File> takeFrom(const std::string& source, const Owner& owner) {
        const auto folded = platform::foldCase(source);
        if (const auto at = files_.find(folded); at != files_.end()) {
            auto file = std::move(at->second);
            files_.erase(at);
            left_.insert(folded);
            return file;
        }
        if (!isInDataTree(source) || !taken_.insert(folded).second ||
            game_.disk().kindOf(game_.at(source)) == platform::EntryKind::none)
            return std::nullopt;
        return Preview::File{source, owner, source, sizeOf(source), {}};
    }

    /// What was moved away is not there any more, though the disk still has it.
    bool isOnDisk(const std::string& path, const std::string& folded) const {
        return !left_.contains(folded) && !taken_.contains(folded) &&
               game_.disk().kindOf(game_.at(path)) != platform::EntryKind::none;
    }

    bool isFolderOnDisk(const std::string& folder) const {
        return game_.disk().kindOf(game_.at(folder)) == platform::EntryKind::folder;
    }

    bool isFree(const std::string& path) {
        const auto folded = platform::foldCase(path);
        return !files_.contains(folded) && !folders_.contains(folded) && !isOnDisk(path, folded);
    }

    /// Folders above a place are made, unless a file has the name of one.
    bool makeWayTo(const std::string& path) {
        std::vector<std::string> made;
        for (auto folder = parentOf(path); !folder.empty(); folder = parentOf(folder)) {
            const auto folded = platform::foldCase(folder);
            if (exactFolders_.contains(folder))
                continue;
            // Beside a file of the same name in another case the disk knows which one is meant.
            if (files_.contains(folded) && (!folders_.contains(folded) || !isFolderOnDisk(folder)))
                return false;
            if (folders_.contains(folded))
                continue;
            if (game_.disk().kindOf(game_.at(folder)) == platform::EntryKind::file &&
                !left_.contains(folded))
                return false;
            made.push_back(folder);
        }
        for (auto folder = made.rbegin(); folder != made.rend(); ++folder)
            note(spelled(*folder));
        return true;
    }

    void note(const std::string& folder) {
        folders_.try_emplace(platform::foldCase(folder), folder);
        exactFolders_.insert(folder);
    }

    /// Folders on the way keep the spelling that they have.
    std::string spelled(const std::string& path) const {
        const auto parent = parentOf(path);
        if (parent.empty())
            return path;
        const auto leaf = path.substr(parent.size());
        if (exactFolders_.contains(parent))
            return path;
        const auto folder = folders_.find(platform::foldCase(parent));
        return (folder == folders_.end() ? spelled(parent) : folder->second) + leaf;
    }

    const releases::GameDirectory& game_;
    /// By their paths, case folded; a disk that tells case apart may hold two of one.
    std::unordered_multimap<std::string, Preview::File> files_;
    /// Their spelling, by their paths, case folded.
    std::unordered_map<std::string, std::string> folders_;
    std::unordered_set<std::string> exactFolders_;
    std::unordered_set<std::string> taken_; ///< of the data tree
    std::unordered_set<std::string> left_;  ///< of the game
};

/// What the plan is asked, answered from what is known. The two files are looked at only where
/// nobody has decided yet.
Verdict verdictOf(const ClashQuestion& question, const releases::GameDirectory& game,
                  const Decisions* chosen, const Decisions* remembered) {
    for (const auto& [known, why] :
         {std::pair(chosen, Why::chosen), std::pair(remembered, Why::remembered)})
        if (const auto isForA = known == nullptr ? std::nullopt : known->isForA(question))
            return {*isForA, why};
    bool isSame = false;
    platform::attempt([&] {
        isSame = game.disk().holdSame(game.at(question.a.fromPath), game.at(question.b.fromPath));
    });
    return {true, isSame ? Why::same : Why::open};
}

/// Losers stand with the file that has the place in the end.
void addRivals(std::vector<Preview::File>& files, const std::vector<Clash>& clashes) {
    std::unordered_map<std::string, std::vector<const Clash*>> byPlace;
    for (const auto& clash : clashes)
        if (clash.why != Why::chosenAsGame)
            byPlace[platform::foldCase(clash.place)].push_back(&clash);
    if (byPlace.empty())
        return;
    for (auto& file : files)
        if (const auto at = byPlace.find(platform::foldCase(file.path)); at != byPlace.end())
            for (const auto* clash : at->second)
                file.rivals.push_back({ownerOf(clash->loser), ownerOf(clash->winner), clash->why,
                                       clash->loser.fromPath, clash->waitsAt});
}

} // namespace

bool Preview::File::isConflict() const {
    return std::ranges::any_of(rivals, [](const auto& rival) { return rival.why != Why::same; });
}

bool Preview::File::isOpen() const {
    return std::ranges::any_of(rivals, [](const auto& rival) { return rival.why == Why::open; });
}

std::uint64_t Preview::size() const {
    return std::accumulate(files.begin(), files.end(), std::uint64_t{0},
                           [](auto sum, const auto& file) { return sum + file.size; });
}

int Preview::conflicts() const {
    return static_cast<int>(std::ranges::count_if(files, &File::isConflict));
}

int Preview::open() const {
    return static_cast<int>(std::ranges::count_if(files, &File::isOpen));
}

int Preview::displaced() const {
    return static_cast<int>(std::ranges::count_if(
        journal.moves, [](const auto& move) { return !isInDataTree(move.source); }));
}

Preview makePreview(const releases::GameDirectory& game, const Selection& selection,
                    const Unfinished& unfinished, const Decisions* chosen,
                    const Decisions* remembered) {
    Preview preview;
    const Answers answers = {[&](const ClashQuestion& question) {
                                 const auto verdict = verdictOf(question, game, chosen, remembered);
                                 if (verdict.why == Why::same)
                                     preview.sameFiles.push_back({question.a.toPath,
                                                                  ownerOf(question.a),
                                                                  ownerOf(question.b)});
                                 return verdict;
                             },
                             [&](const ExeQuestion& question) {
                                 const auto isGame = exeDecision(question, chosen);
                                 preview.programs.push_back({question.exe, isGame.value_or(true),
                                                             isGame ? Why::chosen : Why::open});
                                 return preview.programs.back().isGame;
                             }};
    const auto plan = Plan::make(selection, listingsOf(game, unfinished), answers);
    preview.journal = plan.journal();
    Picture picture(game);
    for (const auto& folder : preview.journal.folders)
        picture.makeFolder(folder, preview.newFolders);
    for (const auto& move : preview.journal.moves) {
        const Owner owner{static_cast<releases::ReleaseType>(move.typeNumber),
                          releases::displayForm(move.release)};
        if (!picture.move(move, owner))
            preview.blocked.push_back({move.source, move.destination, owner});
    }
    preview.files = picture.takeFiles();
    std::erase_if(preview.files, [](const auto& file) {
        return isInDataTree(file.path) && isInDataTree(file.from) == false;
    });
    addRivals(preview.files, plan.clashes());
    return preview;
}

} // namespace cycle
