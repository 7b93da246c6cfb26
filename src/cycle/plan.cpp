// The plan is laid in layers, the game first, so that later on a displaced file of the game has
// left its place before the release's file arrives.
#include "cycle/plan.h"

#include <algorithm>

#include "platform/text.h"

namespace cycle {

using namespace releases;

namespace {

/// They live as long as the listing.
using Names = std::vector<std::string_view>;

/// The path of what lies in a folder, with a backslash behind it, but for the game directory
/// itself.
std::string below(const std::string& folder) {
    return folder.empty() ? folder : folder + "\\";
}

std::string joined(std::string_view start, std::string_view name) {
    std::string path;
    path.reserve(start.size() + name.size());
    return path.append(start).append(name);
}

/// The files of a folder whose names stand for one entry whatever their case. A disk that tells
/// case apart may hold two names alike, which could be moved, but not told apart on the way back.
/// In a listing they are neighbours.
Names unmistakableFiles(const platform::FolderNames& names) {
    Names files;
    files.reserve(names.files.size());
    const auto isBefore = [](std::string_view a, std::string_view b) {
        return platform::lessIgnoringCase(a, b) && !platform::equalIgnoringCase(a, b);
    };
    for (auto file = names.files.begin(); file != names.files.end();) {
        const auto next = std::find_if(file + 1, names.files.end(), [&](const auto& other) {
            return !platform::equalIgnoringCase(*file, other);
        });
        if (next == file + 1 &&
            !std::binary_search(names.folders.begin(), names.folders.end(), *file, isBefore))
            files.push_back(*file);
        file = next;
    }
    return files;
}

} // namespace

bool isDocumentation(std::string_view file, bool atRoot) {
    return atRoot && platform::endsWithIgnoringCase(file, ".txt");
}

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
    const auto book = [&](const std::string& folder, const platform::FolderNames& names) {
        const auto start = below(folder);
        for (const auto& file : unmistakableFiles(names))
            if (!isDocumentation(file, folder.empty()))
                addMove(moves_, joined(start, file), joined(start, file), ReleaseType::tc,
                        defaultTC);
    };
    const auto root = listings("");
    if (!root)
        return;
    book("", *root);
    for (const auto& folder : root->folders)
        if (const auto names = listings(folder))
            book(folder, *names);
}

void Plan::gatherRelease(ReleaseType type, const std::string& name, const Listings& listings,
                         const Answers& answers) {
    // A blanked selection file leaves an empty name behind.
    if (name.empty())
        return;
    const auto folder =
        std::string(dataTree) + "\\" + std::string(infoOf(type).shortName) + "-" + folderForm(name);
    const auto root = listings(folder);
    if (!root)
        return gatherLoose(type, name, listings, answers);
    gatherFolder(type, name, folder, "", *root, answers);
    for (const auto& sub : root->folders) {
        arrayAdd(mkdirs_, sub, Duplicates::refused);
        if (const auto names = listings(below(folder) + sub))
            gatherFolder(type, name, below(folder) + sub, sub, *names, answers);
    }
}

void Plan::gatherFolder(ReleaseType type, const std::string& name, const std::string& from,
                        const std::string& to, const platform::FolderNames& names,
                        const Answers& answers) {
    const auto fromStart = below(from);
    const auto toStart = below(to);
    for (const auto& file : unmistakableFiles(names)) {
        if (isDocumentation(file, to.empty()))
            continue;
        addMove(moves_, joined(fromStart, file), joined(toStart, file), type, name);
        settleLast(answers);
    }
}

/// A release without a folder is one file, where its type has such releases.
void Plan::gatherLoose(ReleaseType type, const std::string& name, const Listings& listings,
                       const Answers& answers) {
    if (!infoOf(type).hasLooseFolder)
        return;
    const auto looseFolder =
        std::string(dataTree) + "\\" + std::string(infoOf(type).shortName) + "-Misc";
    const auto [known, isFirst] = looseFiles_.try_emplace(type);
    if (isFirst)
        if (const auto names = listings(looseFolder))
            for (const auto& file : unmistakableFiles(*names))
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
                {std::string(gameProgram), entry, moves_[game], Why::chosenAsGame, {}});
            clashes_.back().waitsAt = displace(moves_, game);
            break;
        }
        return;
    }
}

formats::Journal Plan::journal() const& {
    return Plan(*this).journal();
}

formats::Journal Plan::journal() && {
    formats::Journal journal;
    const auto folders = mkdirs_.entries();
    journal.folders.assign(folders.begin(), folders.end());
    auto slots = moves_.takeSlots();
    journal.moves.reserve(slots.size());
    for (auto& entry : slots)
        if (entry.moves())
            journal.moves.push_back({std::move(entry.fromPath), std::move(entry.toPath),
                                     std::move(entry.relName), static_cast<int>(entry.relType)});
    return journal;
}

} // namespace cycle
