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
        std::vector<std::pair<std::string_view, Preview::File*>> order;
        order.reserve(files_.size());
        for (auto& [folded, file] : files_)
            order.emplace_back(folded, &file);
        std::ranges::sort(order, [](const auto& one, const auto& other) {
            return one.first != other.first ? one.first < other.first
                                            : one.second->path < other.second->path;
        });
        std::vector<Preview::File> files;
        files.reserve(order.size());
        for (const auto& [folded, file] : order)
            files.push_back(std::move(*file));
        return files;
    }

  private:
    void look(const std::string& folder) {
        const auto names = game_.list(folder.empty() ? game_.TADir() : game_.at(folder));
        if (!names)
            return;
        onDisk_.insert(platform::foldCase(folder));
        const auto start = folder.empty() ? folder : folder + "\\";
        for (const auto& name : names->files)
            put({start + name, theGame(), start + name, sizeOf(start + name), {}});
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
        if (!isInDataTree(source) || !taken_.insert(folded).second)
            return std::nullopt;
        const auto facts = game_.disk().factsOf(game_.at(source));
        if (facts.kind == platform::EntryKind::none)
            return std::nullopt;
        return Preview::File{source, owner, source, facts.size, {}};
    }

    /// What was moved away is not there any more, though the disk still has it. Hidden files are in
    /// no listing.
    bool isOnDisk(const std::string& path, const std::string& folded) const {
        const auto cut = folded.rfind('\\');
        const bool hasFolder = cut == std::string::npos ||
                               onDisk_.contains(folded.substr(0, cut)) || isInDataTree(path);
        return hasFolder && !left_.contains(folded) && !taken_.contains(folded) &&
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
    std::unordered_set<std::string> onDisk_; ///< the folders that were listed, case folded
    std::unordered_set<std::string> taken_;  ///< of the data tree
    std::unordered_set<std::string> left_;   ///< of the game
};

/// A program that a release brings, and whether it will be the game.
struct Program {
    moveEntry exe;
    Verdict isGame;
};

/// Losers stand with the file that has the place in the end. The disk may hold more than one.
void addRivals(std::vector<Preview::File>& files, const std::vector<Clash>& clashes,
               const std::vector<Program>& programs) {
    std::unordered_map<std::string, std::vector<Preview::Rival>> byPlace;
    for (const auto& clash : clashes)
        if (clash.why != Why::chosenAsGame)
            byPlace[platform::foldCase(clash.place)].push_back(
                {ownerOf(clash.loser), ownerOf(clash.winner), clash.why, clash.loser.fromPath,
                 clash.waitsAt});
    auto& forGame = byPlace[std::string(releases::gameProgram)];
    for (const auto& [exe, verdict] : programs) {
        if (!verdict.isForA) {
            forGame.push_back({ownerOf(exe), theGame(), verdict.why, exe.fromPath, {}});
            continue;
        }
        const auto clash = std::ranges::find(clashes, Why::chosenAsGame, &Clash::why);
        forGame.push_back({theGame(), ownerOf(exe), verdict.why,
                           clash == clashes.end() ? std::string() : clash->loser.fromPath,
                           clash == clashes.end() ? std::string() : clash->waitsAt});
    }
    for (auto& file : files)
        if (const auto at = byPlace.find(platform::foldCase(file.path)); at != byPlace.end())
            file.rivals = at->second;
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

std::vector<Owner> Preview::File::contenders() const {
    std::vector<Owner> all{owner};
    for (const auto& rival : rivals)
        for (const auto& each : {rival.owner, rival.lostTo})
            if (std::ranges::find(all, each) == all.end())
                all.push_back(each);
    return all;
}

Preview makePreview(const releases::GameDirectory& game, const Selection& selection,
                    const Unfinished& unfinished, const Decisions* chosen,
                    const Decisions* remembered) {
    Preview preview;
    std::vector<Program> programs;
    const Answers answers = {
        [&](const ClashQuestion& question) {
            if (const auto known = knownVerdict(question, chosen, remembered))
                return *known;
            return Verdict(true, holdSame(question, game) ? Why::same : Why::open);
        },
        [&](const ExeQuestion& question) {
            programs.push_back(
                {question.exe,
                 knownVerdict(question, chosen, remembered).value_or(Verdict(true, Why::open))});
            return programs.back().isGame.isForA;
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
        return isInDataTree(file.path) && !isInDataTree(file.from);
    });
    addRivals(preview.files, plan.clashes(), programs);
    return preview;
}

std::vector<Decision> decisionsFor(const Preview::File& file, const Owner& winner, Reach reach) {
    const auto folder = file.path.substr(0, file.path.rfind('\\') + 1);
    const auto place = reach == Reach::file     ? file.path
                       : reach == Reach::folder ? folder
                                                : std::string();
    std::vector<Decision> decisions;
    for (const auto& other : file.contenders()) {
        if (other == winner)
            continue;
        decisions.push_back({place, winner, other});
        // Who is to be the game is never told by another file.
        if (reach != Reach::file && platform::equalIgnoringCase(file.path, releases::gameProgram))
            decisions.push_back({file.path, winner, other});
    }
    return decisions;
}

} // namespace cycle
