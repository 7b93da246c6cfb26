// Releases are no records: they are folder names with a type's prefix, and files in loose folders.
#include "releases/store.h"

#include <algorithm>

#include "formats/codes.h"
#include "platform/failure.h"
#include "platform/relative_path.h"
#include "platform/text.h"

namespace releases {
namespace {

std::string folderName(ReleaseType type, std::string_view displayName) {
    return std::string(infoOf(type).shortName) + "-" + folderForm(displayName);
}

} // namespace

void Store::read() {
    game_.folderArray(storeFolders_, game_.inDataTree(""));
}

std::vector<std::string> Store::releasesOf(ReleaseType type) const {
    std::vector<std::string> names;
    for (const auto& folder : storeFolders_.entries()) {
        const auto name = withoutPrefix(folder, type);
        if (!name)
            continue;
        if (isLooseFolder(*name, type))
            std::ranges::move(looseFiles(type), std::back_inserter(names));
        else
            names.push_back(displayForm(*name));
    }
    return names;
}

int Store::countOf(ReleaseType type) const {
    int count = 0;
    for (const auto& folder : storeFolders_.entries())
        if (const auto name = withoutPrefix(folder, type))
            count += isLooseFolder(*name, type) ? static_cast<int>(looseFiles(type).size()) : 1;
    return count;
}

bool Store::hasFolder(ReleaseType type, std::string_view folderName) const {
    return arrayFind(storeFolders_,
                     std::string(infoOf(type).shortName) + "-" + std::string(folderName)) != -1;
}

bool Store::isThere(ReleaseType type, std::string_view displayName) const {
    return game_.DoesFolderExist(folderOf(type, displayName)) ||
           looseFileOf(type, displayName).has_value();
}

std::string Store::folderOf(ReleaseType type, std::string_view displayName) const {
    return game_.inDataTree(folderName(type, displayName));
}

std::vector<std::string> Store::placesOf(ReleaseType type, std::string_view displayName) const {
    std::vector<std::string> places = {folderOf(type, displayName),
                                       looseFolderOf(type) + "\\" + folderForm(displayName)};
    for (auto& place : places)
        place.erase(0, game_.TADir().size() + 1);
    return places;
}

std::string Store::looseFolderOf(ReleaseType type) const {
    return game_.inDataTree(std::string(infoOf(type).shortName) + "-Misc");
}

std::vector<std::string> Store::looseFiles(ReleaseType type) const {
    StringArray files;
    game_.fileArray(files, looseFolderOf(type));
    std::vector<std::string> releases;
    for (const auto& file : files.entries())
        if (!platform::endsWithIgnoringCase(file, ".txt"))
            releases.push_back(file);
    return releases;
}

ReleaseTexts Store::textsOf(ReleaseType type, std::string_view displayName) const {
    ReleaseTexts texts;
    const auto folder = folderOf(type, displayName);
    StringArray files;
    if (!game_.fileArray(files, folder)) {
        if (const auto companion = companionOf(type, folderForm(displayName)))
            texts.about = readText(*companion);
        return texts;
    }
    const auto has = [&](const char* file) { return arrayFind(files, file) != -1; };
    if (has("readme.txt"))
        texts.readme = folder + "\\readme.txt";
    if (has("info.txt"))
        texts.about = readText(folder + "\\info.txt");
    if (has("ccodes.txt"))
        platform::attempt([&] {
            texts.codes = formats::readCodes(game_.disk().readFile(folder + "\\ccodes.txt"));
        });
    return texts;
}

/// The text file beside a loose release, or nothing if there is none.
std::optional<std::string> Store::companionOf(ReleaseType type, std::string_view file) const {
    const int dot = GameDirectory::fIs(file, ".", GameDirectory::noStart, false);
    const auto folder = looseFolderOf(type);
    StringArray files;
    if (dot == -1 || !game_.fileArray(files, folder))
        return std::nullopt;
    const auto companion = std::string(file.substr(0, static_cast<std::size_t>(dot))) + "txt";
    return arrayFind(files, companion) == -1 ? std::nullopt
                                             : std::optional(folder + "\\" + companion);
}

std::optional<std::string> Store::readText(const std::string& path) const {
    std::optional<std::string> text;
    platform::attempt([&] { text = platform::withLineBreaks(game_.disk().readFile(path)); });
    return text;
}

std::optional<std::string> Store::looseFileOf(ReleaseType type,
                                              std::string_view displayName) const {
    if (!infoOf(type).hasLooseFolder || game_.DoesFolderExist(folderOf(type, displayName)))
        return std::nullopt;
    const auto file = looseFolderOf(type) + "\\" + folderForm(displayName);
    return game_.DoesFileExist(file) ? std::optional(file) : std::nullopt;
}

std::string Store::shownFolderOf(ReleaseType type, std::string_view displayName) const {
    return looseFileOf(type, displayName) ? looseFolderOf(type) : folderOf(type, displayName);
}

std::optional<std::string> Store::placeOfText(ReleaseType type, std::string_view displayName,
                                              Text text) const {
    const auto loose = looseFileOf(type, displayName);
    if (!loose)
        return folderOf(type, displayName) + (text == Text::about ? "\\info.txt" : "\\ccodes.txt");
    const auto dot = loose->rfind('.');
    // A file without one has no text beside it.
    if (text == Text::codes || dot == std::string::npos || dot < loose->rfind('\\'))
        return std::nullopt;
    return loose->substr(0, dot) + ".txt";
}

Tally Store::tallyOf(ReleaseType type, std::string_view displayName) const {
    return {game_.disk(), {pathOf(type, displayName)}};
}

std::string Store::pathOf(ReleaseType type, std::string_view displayName) const {
    const auto loose = looseFileOf(type, displayName);
    return loose ? *loose : folderOf(type, displayName);
}

std::int64_t Store::dateOf(ReleaseType type, std::string_view displayName) const {
    constexpr int shortLook = 24;
    auto tally = tallyOf(type, displayName);
    tally.step(shortLook);
    return tally.newest();
}

std::string Store::rename(ReleaseType type, std::string_view oldName,
                          std::string_view newName) const {
    const auto newFolder = folderForm(newName);
    if (!platform::isPlainName(newFolder))
        return "A name cannot hold a backslash or a line break, and cannot be \"..\".";
    const auto folder = folderOf(type, oldName);
    if (!game_.DoesFolderExist(folder))
        return "It has no folder: only releases with a folder of their own can be renamed.";
    try {
        if (!game_.disk().renameEntry(folder, folderName(type, newName)))
            return "A release of that name exists already.";
        game_.disk().flush();
    } catch (const platform::Failure& failure) {
        return failure.what();
    }
    return {};
}

Store::Removal Store::remove(ReleaseType type, std::string_view displayName) const {
    Removal removal;
    const auto step = [&removal](auto&& work) {
        try {
            work();
        } catch (const platform::Failure& failure) {
            removal.reason = failure.what();
        }
    };
    StringArray files;
    if (const auto folder = folderOf(type, displayName); game_.fileArray(files, folder)) {
        game_.totallyKillFolder(folder, false);
        // What no listing shows would keep the release alive.
        if (game_.DoesFolderExist(folder))
            step([&] { game_.disk().removeTree(folder); });
        addFilesOf(folder, removal.left);
    } else {
        const auto file = looseFolderOf(type) + "\\" + folderForm(displayName);
        const auto companion = companionOf(type, folderForm(displayName));
        for (const auto& path : {std::optional(file), companion}) {
            if (!path)
                continue;
            game_.DeleteFile(*path, true);
            if (game_.DoesFileExist(*path))
                step([&] { game_.disk().removeFile(*path); });
            if (game_.DoesFileExist(*path))
                removal.left.push_back(*path);
        }
    }
    step([&] { game_.disk().flush(); });
    return removal;
}

void Store::addFilesOf(const std::string& folder, std::vector<std::string>& files) const {
    const auto names = game_.list(folder);
    if (!names)
        return;
    for (const auto& file : names->files)
        files.push_back(folder + "\\" + file);
    for (const auto& name : names->folders)
        addFilesOf(folder + "\\" + name, files);
}

} // namespace releases
