// The plan is laid in layers, the game first, so that later on a displaced file of the game has
// left its place before the release's file arrives.
#include "engine/plan.h"

#include <algorithm>
#include <optional>
#include <unordered_map>

#include "platform/disk.h"
#include "platform/text.h"

namespace engine {
namespace {

using Names = std::vector<std::string>;

constexpr std::string_view holdingFolder = "Vexillum\\TC-Cavedog TA\\";
constexpr std::string_view gameProgram = "totala.exe";

/// Text files at the root of a release, or of the game, are documentation.
bool isDocumentation(std::string_view file, std::string_view sub) {
    return sub.empty() && platform::endsWithIgnoringCase(file, ".txt");
}

std::string subfolder(std::string_view name) {
    return name.empty() ? std::string() : "\\" + std::string(name) + "\\";
}

/// The files of a folder whose names stand for one entry whatever their case; nothing where the
/// folder cannot be listed. A disk that tells case apart may hold two names alike, which could be
/// moved, but not told apart on the way back.
std::optional<Names> unmistakableFiles(const Listings& listings, const std::string& folder) {
    StringArray files;
    StringArray folders;
    if (!listings.files(files, folder))
        return std::nullopt;
    listings.folders(folders, folder);
    std::unordered_map<std::string, int> counts;
    for (const auto& names : {files.entries(), folders.entries()})
        for (const auto& name : names)
            ++counts[platform::foldCase(name)];
    Names names;
    for (const auto& file : files.entries())
        if (counts[platform::foldCase(file)] == 1)
            names.push_back(file);
    return names;
}

std::string quoted(std::string_view text) {
    return "\"" + std::string(text) + "\"";
}

std::string typeName(const moveEntry& entry) {
    return std::string(namesOf(entry.relType).typeName);
}

std::string clashQuestion(const moveEntry& a, const moveEntry& b) {
    return "Both the " + quoted(a.relName) + " " + typeName(a) + " and the " + quoted(b.relName) +
           " " + typeName(b) + " include a file destined for " +
           quoted(platform::shownPath(a.toPath)) + ".\r\n\r\nDo you want to use the " +
           quoted(a.relName) + " one instead of the " + quoted(b.relName) +
           " one?\r\n(Choose Yes if you're not sure)";
}

std::string exeQuestion(const moveEntry& entry) {
    return "The " + quoted(entry.relName) + " " + typeName(entry) +
           " includes an EXE file.\r\n\r\nDo you want to use this EXE (" +
           platform::shownPath(entry.toPath) + ") instead of the CaveDog one?";
}

} // namespace

void MoveList::add(moveEntry entry) {
    slots_.push_back(std::move(entry));
    remember(last());
}

void MoveList::setToPath(int slot, std::string toPath) {
    forget(slot);
    at(slot).toPath = std::move(toPath);
    remember(slot);
}

void MoveList::clear(int slot) {
    forget(slot);
    at(slot) = {};
}

int MoveList::firstWithDest(std::string_view toPath) const {
    const auto found = byDest_.find(platform::foldCase(toPath));
    if (found == byDest_.end() || found->second.empty())
        return -1;
    return *std::min_element(found->second.begin(), found->second.end());
}

void MoveList::forget(int slot) {
    std::erase(byDest_[platform::foldCase(at(slot).toPath)], slot);
}

void MoveList::remember(int slot) {
    byDest_[platform::foldCase(at(slot).toPath)].push_back(slot);
}

std::string cleanRelPath(std::string_view path) {
    path.remove_prefix(std::min(path.find_first_not_of('\\'), path.size()));
    return platform::replaceAll(path, "\\\\", "\\");
}

void addMove(MoveList& moves, std::string_view fromPath, std::string_view toPath, ReleaseType type,
             std::string_view relName) {
    moves.add({cleanRelPath(fromPath), cleanRelPath(toPath), type, std::string(relName)});
}

int findDest(const MoveList& moves, std::string_view toPath) {
    return moves.firstWithDest(toPath);
}

void resolveClash(MoveList& moves, int idxA, int idxB, const AskYesNo& ask) {
    if (idxA == -1 || idxB == -1 || idxA == idxB ||
        !platform::equalIgnoringCase(moves[idxA].toPath, moves[idxB].toPath))
        return;
    if (moves[idxB].relType > moves[idxA].relType)
        std::swap(idxA, idxB);
    if (moves[idxA].isGames())
        std::swap(idxA, idxB);
    const int loser = ask(clashQuestion(moves[idxA], moves[idxB])) ? idxB : idxA;
    if (moves[loser].isGames())
        moves.setToPath(loser, std::string(holdingFolder) + moves[loser].toPath);
    else
        moves.clear(loser);
}

void Plan::gatherGame(const Listings& listings) {
    StringArray folders;
    listings.folders(folders, "");
    for (const auto& folder : folders.slots()) {
        const auto sub = subfolder(folder);
        for (const auto& file : unmistakableFiles(listings, sub).value_or(Names()))
            if (!isDocumentation(file, sub))
                addMove(moves_, sub + file, sub + file, ReleaseType::tc, defaultTC);
    }
}

void Plan::gatherRelease(ReleaseType type, const std::string& name, const Listings& listings,
                         const AskYesNo& ask) {
    // A blanked selection file leaves an empty name behind.
    if (name.empty())
        return;
    const auto folder = std::string(dataTree) + "\\" + std::string(namesOf(type).shortName) + "-" +
                        folderForm(name);
    StringArray subfolders;
    listings.folders(subfolders, folder);
    for (const auto& subName : subfolders.slots()) {
        if (!subName.empty())
            arrayAdd(mkdirs_, subName, Duplicates::refused);
        const auto sub = subfolder(subName);
        if (const auto files = unmistakableFiles(listings, folder + sub))
            gatherFolder(type, name, folder, *files, sub, ask);
        else if (namesOf(type).hasLooseFolder && sub.empty())
            gatherLoose(type, name, listings, ask);
    }
}

void Plan::gatherFolder(ReleaseType type, const std::string& name, const std::string& folder,
                        const Names& files, const std::string& sub, const AskYesNo& ask) {
    for (const auto& file : files) {
        if (isDocumentation(file, sub))
            continue;
        addMove(moves_, folder + "\\" + sub + file, sub + file, type, name);
        settleLast(ask);
    }
}

void Plan::gatherLoose(ReleaseType type, const std::string& name, const Listings& listings,
                       const AskYesNo& ask) {
    const auto looseFolder =
        std::string(dataTree) + "\\" + std::string(namesOf(type).shortName) + "-Misc";
    const auto [known, isFirst] = looseFiles_.try_emplace(type);
    if (isFirst)
        for (const auto& file : unmistakableFiles(listings, looseFolder).value_or(Names()))
            known->second.insert(platform::foldCase(file));
    if (!known->second.contains(platform::foldCase(name)))
        return;
    addMove(moves_, looseFolder + "\\" + folderForm(name), name, type, name);
    settleLast(ask);
}

void Plan::settleLast(const AskYesNo& ask) {
    const int last = moves_.last();
    resolveClash(moves_, last, findDest(moves_, moves_[last].toPath), ask);
}

void Plan::chooseExe(const AskYesNo& ask) {
    for (int slot = 1; slot <= moves_.last(); ++slot) {
        const auto& entry = moves_[slot];
        if (!platform::endsWithIgnoringCase(entry.toPath, ".exe") || entry.isGames() ||
            !ask(exeQuestion(entry)))
            continue;
        moves_.setToPath(slot, std::string(gameProgram));
        for (int game = 1; game <= moves_.last(); ++game)
            if (moves_[game].isGames() &&
                platform::equalIgnoringCase(moves_[game].fromPath, gameProgram)) {
                moves_.setToPath(game, std::string(holdingFolder) + moves_[game].toPath);
                break;
            }
        return;
    }
}

} // namespace engine
