// The plan is laid in layers, the game first, so that later on a displaced file of the game has
// left its place before the release's file arrives.
#include "cycle/plan.h"

#include <optional>
#include <unordered_map>

#include "platform/text.h"

namespace cycle {

using namespace releases;

namespace {

using Names = std::vector<std::string>;

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

} // namespace

Plan Plan::make(const Selection& selection, const Listings& listings, const Answers& answers) {
    Plan plan;
    plan.gatherGame(listings);
    for (const auto& info : releases::releaseTypes())
        for (const auto& name : selection.namesOf(info.type))
            plan.gatherRelease(info.type, name, listings, answers);
    plan.chooseExe(answers);
    return plan;
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
                         const Answers& answers) {
    // A blanked selection file leaves an empty name behind.
    if (name.empty())
        return;
    const auto folder =
        std::string(dataTree) + "\\" + std::string(infoOf(type).shortName) + "-" + folderForm(name);
    StringArray subfolders;
    listings.folders(subfolders, folder);
    for (const auto& subName : subfolders.slots()) {
        if (!subName.empty())
            arrayAdd(mkdirs_, subName, Duplicates::refused);
        const auto sub = subfolder(subName);
        if (const auto files = unmistakableFiles(listings, folder + sub))
            gatherFolder(type, name, folder, *files, sub, answers);
        else if (infoOf(type).hasLooseFolder && sub.empty())
            gatherLoose(type, name, listings, answers);
    }
}

void Plan::gatherFolder(ReleaseType type, const std::string& name, const std::string& folder,
                        const Names& files, const std::string& sub, const Answers& answers) {
    for (const auto& file : files) {
        if (isDocumentation(file, sub))
            continue;
        addMove(moves_, folder + "\\" + sub + file, sub + file, type, name);
        settleLast(answers);
    }
}

void Plan::gatherLoose(ReleaseType type, const std::string& name, const Listings& listings,
                       const Answers& answers) {
    const auto looseFolder =
        std::string(dataTree) + "\\" + std::string(infoOf(type).shortName) + "-Misc";
    const auto [known, isFirst] = looseFiles_.try_emplace(type);
    if (isFirst)
        for (const auto& file : unmistakableFiles(listings, looseFolder).value_or(Names()))
            known->second.insert(platform::foldCase(file));
    if (!known->second.contains(platform::foldCase(name)))
        return;
    addMove(moves_, looseFolder + "\\" + folderForm(name), name, type, name);
    settleLast(answers);
}

void Plan::settleLast(const Answers& answers) {
    const int last = moves_.last();
    resolveClash(moves_, last, findDest(moves_, moves_[last].toPath), answers, clashes_);
}

void Plan::chooseExe(const Answers& answers) {
    for (int slot = 1; slot <= moves_.last(); ++slot) {
        const auto& asked = moves_[slot];
        if (!platform::endsWithIgnoringCase(asked.toPath, ".exe") || asked.isGames() ||
            !answers.exe({asked}))
            continue;
        const auto entry = asked;
        moves_.setToPath(slot, std::string(gameProgram));
        for (int game = 1; game <= moves_.last(); ++game) {
            if (!moves_[game].isGames() ||
                !platform::equalIgnoringCase(moves_[game].fromPath, gameProgram))
                continue;
            clashes_.push_back(
                {std::string(gameProgram), entry, moves_[game], Clash::Why::chosenAsGame, {}});
            clashes_.back().waitsAt = displace(moves_, game);
            break;
        }
        return;
    }
}

formats::Journal Plan::journal() const {
    formats::Journal journal;
    const auto folders = mkdirs_.entries();
    journal.folders.assign(folders.begin(), folders.end());
    for (const auto& entry : entries())
        if (entry.moves())
            journal.moves.push_back(
                {entry.fromPath, entry.toPath, entry.relName, static_cast<int>(entry.relType)});
    return journal;
}

} // namespace cycle
