// The procedures through which the whole program looks at the disk and changes it.
#include "releases/game_directory.h"

#include <algorithm>

#include "platform/failure.h"
#include "platform/text.h"
#include "releases/clsFileAPI.h"
#include "releases/release_types.h"

namespace releases {
namespace {

std::string failedMoveText(const std::string& from, const std::string& to) {
    return "I was trying to move \"" + platform::shownPath(from) + "\" to \"" +
           platform::shownPath(to) +
           "\" and failed.\r\n\r\nEither the source file was not found, or the destination file "
           "already exists";
}

} // namespace

void GameDirectory::open(const std::string& folder) {
    TADir_ = folder;
    disk_.setGameDirectory(folder);
    dontXPSwitch_ = DoesFileExist(inDataTree("DontXPSwitch.txt"));
}

std::string GameDirectory::at(std::string_view relativePath) const {
    std::string path;
    at(relativePath, path);
    return path;
}

const std::string& GameDirectory::at(std::string_view relativePath, std::string& path) const {
    path.clear();
    path.reserve(TADir_.size() + 1 + relativePath.size());
    return path.append(TADir_).append(1, '\\').append(relativePath);
}

std::string GameDirectory::inDataTree(std::string_view relativePath) const {
    return at(std::string(dataTree) + "\\" + std::string(relativePath));
}

std::optional<platform::FolderNames> GameDirectory::list(const std::string& thePath) const {
    std::optional<platform::FolderNames> names;
    platform::attempt([&] { names = disk_.list(thePath); });
    log_.breathe();
    return names;
}

bool GameDirectory::folderArray(StringArray& theArray, const std::string& thePath) const {
    theArray.clear();
    return platform::attempt([&] {
        for (auto& name : disk_.folderNames(thePath)) {
            log_.breathe();
            theArray.add(std::move(name));
        }
    });
}

bool GameDirectory::fileArray(StringArray& theArray, const std::string& thePath) const {
    return platform::attempt([&] {
        auto names = disk_.fileNames(thePath);
        theArray.clear();
        for (auto& name : names) {
            log_.breathe();
            theArray.add(std::move(name));
        }
    });
}

int GameDirectory::fIs(std::string_view inString, std::string_view findString, int startPos,
                       bool goL2R) {
    const int length = static_cast<int>(inString.size());
    int at = startPos != noStart ? startPos : (goL2R ? 1 : length);
    at = goL2R ? std::max(at, 1) : std::min(at, length);
    for (; at >= 1 && at <= length; at += goL2R ? 1 : -1)
        if (inString.substr(static_cast<std::size_t>(at) - 1, findString.size()) == findString)
            return at;
    return -1;
}

bool GameDirectory::DoesFileExist(const std::string& fileToCheck) const {
    return clsFileAPI(disk_).DoesFileExist(fileToCheck);
}

bool GameDirectory::DoesFolderExist(const std::string& folderToCheck) const {
    return clsFileAPI(disk_).DoesFolderExist(folderToCheck);
}

bool GameDirectory::MoveFile(const std::string& FromFile, const std::string& ToFile) {
    if (FromFile.empty() || ToFile.empty() || FromFile == ToFile)
        return false;
    const auto outcome = tryMove(FromFile, ToFile);
    if (!outcome.isDone)
        tellOfFailedMove(FromFile, ToFile, outcome.reason);
    return outcome.isDone;
}

GameDirectory::MoveOutcome GameDirectory::tryMove(const std::string& from, const std::string& to) {
    try {
        return {disk_.isInside(from) && disk_.isInside(to) && disk_.moveEntry(from, to), {}};
    } catch (const platform::Failure& failure) {
        return {false, failure.reason()};
    }
}

void GameDirectory::tellOfFailedMove(const std::string& from, const std::string& to,
                                     const std::string& reason) {
    const bool isAnswered = moveFailures_.answerForRest().has_value();
    questions_.ask({failedMoveText(from, to), {"OK"}, 0, reason}, &moveFailures_);
    // What is answered alike is in the log already.
    if (!isAnswered)
        log_.line(platform::inOneLine(failedMoveText(from, to)) +
                  (reason.empty() ? "" : ": " + reason));
}

void GameDirectory::logFailedMove(const std::string& from, const std::string& to) const {
    log_.line(platform::inOneLine(failedMoveText(from, to)));
}

bool GameDirectory::CopyFile(const std::string& FromFile, const std::string& ToFile) const {
    clsFileAPI operation(disk_);
    operation.onProgress = [this](std::uint64_t /*bytes*/) { log_.breathe(); };
    return operation.CopyFile(FromFile, ToFile);
}

void GameDirectory::DeleteFile(const std::string& delFile, bool doCheck) const {
    if (doCheck && !DoesFileExist(delFile))
        return;
    if (dontXPSwitch_)
        platform::attempt([&] { disk_.removeFile(delFile); });
    else
        clsFileAPI(disk_).DeleteFile(delFile);
}

void GameDirectory::totallyKillFolder(const std::string& folderToKill,
                                      bool showDelInShowReadme) const {
    if (showDelInShowReadme)
        log_.line("Removing Directory \"" + platform::shownPath(folderToKill) + "\"");
    StringArray names;
    if (folderArray(names, folderToKill))
        for (const auto& name : names.entries()) {
            log_.breathe();
            totallyKillFolder(folderToKill + "\\" + name, false);
        }
    names.clear();
    if (fileArray(names, folderToKill))
        for (const auto& name : names.entries()) {
            log_.breathe();
            DeleteFile(folderToKill + "\\" + name, false);
        }
    platform::attempt([&] { disk_.removeFolder(folderToKill); });
}

} // namespace releases
