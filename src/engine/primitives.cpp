// The procedures through which the whole program looks at the disk and changes it.
#include <algorithm>
#include <chrono>

#include "engine/clsFileAPI.h"
#include "engine/frmMain.h"
#include "platform/failure.h"
#include "platform/text.h"

namespace engine {
namespace {

constexpr auto isLong = std::chrono::milliseconds(500);

} // namespace

/// Catches failures: False, with the array empty, for a folder that cannot be listed.
bool frmMain::folderArray(StringArray& theArray, const std::string& thePath) {
    theArray.clear();
    return platform::attempt([&] {
        for (auto& name : disk().folderNames(thePath)) {
            toolkit().doEvents();
            theArray.add(std::move(name));
        }
    });
}

/// Catches failures: False, with the array as it was, for a folder that cannot be listed.
bool frmMain::fileArray(StringArray& theArray, const std::string& thePath) {
    return platform::attempt([&] {
        auto names = disk().fileNames(thePath);
        theArray.clear();
        for (auto& name : names) {
            toolkit().doEvents();
            theArray.add(std::move(name));
        }
    });
}

int frmMain::fIs(std::string_view inString, std::string_view findString, int startPos, bool goL2R) {
    const int length = static_cast<int>(inString.size());
    int at = startPos != noStart ? startPos : (goL2R ? 1 : length);
    at = goL2R ? std::max(at, 1) : std::min(at, length);
    for (; at >= 1 && at <= length; at += goL2R ? 1 : -1)
        if (inString.substr(static_cast<std::size_t>(at) - 1, findString.size()) == findString)
            return at;
    return -1;
}

bool frmMain::DoesFileExist(const std::string& fileToCheck) {
    return fileOrFolderExists(fileToCheck, "");
}

bool frmMain::DoesFolderExist(const std::string& folderToCheck) {
    return fileOrFolderExists("", folderToCheck);
}

/// The file test does not tell files from folders.
bool frmMain::fileOrFolderExists(const std::string& theFile, std::string theFolder) {
    if (!theFile.empty())
        theFolder.clear();
    if (!theFolder.empty()) {
        while (theFolder.ends_with('\\'))
            theFolder.pop_back();
        return disk().kindOf(theFolder) == platform::EntryKind::folder;
    }
    const auto leafAt = theFile.rfind('\\') + 1;
    const auto leaf = theFile.substr(leafAt);
    if (leaf.empty())
        return false;
    if (leaf == "." || leaf == "..")
        return leafAt > 0 &&
               disk().kindOf(theFile.substr(0, leafAt - 1)) == platform::EntryKind::folder;
    return disk().kindOf(theFile) != platform::EntryKind::none;
}

/// Never overwrites: refuses, with a message, unless the source is there and its place free.
void frmMain::MoveFile(const std::string& FromFile, const std::string& ToFile, bool useConfirm) {
    if (FromFile.empty() || ToFile.empty() || FromFile == ToFile)
        return;
    if (disk().isInside(FromFile) && disk().isInside(ToFile)) {
        clsFileAPI operation(disk());
        operation.SetFlags(false, false, !useConfirm, true, false);
        operation.SourceFile(FromFile);
        operation.DestinationFile(ToFile);
        operation.MoveFile();
        if (!operation.refused())
            return;
    }
    tellOfFailedMove(FromFile, ToFile);
}

void frmMain::tellOfFailedMove(const std::string& from, const std::string& to) {
    askInRow(moveFailures_,
             "I was trying to move \"" + platform::shownPath(from) + "\" to \"" +
                 platform::shownPath(to) +
                 "\" and failed.\r\n\r\nEither the source file was not found, or the "
                 "destination file already exists",
             {"OK"});
}

/// A copy that takes long shows that it goes on.
void frmMain::CopyFile(const std::string& FromFile, const std::string& ToFile, bool useConfirm) {
    clsFileAPI operation(disk());
    operation.SetFlags(false, false, !useConfirm, true, false);
    operation.SourceFile(FromFile);
    operation.DestinationFile(ToFile);
    bool showsWorking = false;
    const auto began = std::chrono::steady_clock::now();
    operation.onProgress = [&](std::uint64_t /*bytes*/) {
        if (!working_ && std::chrono::steady_clock::now() - began > isLong) {
            showWorking();
            showsWorking = true;
        }
        toolkit().doEvents();
    };
    operation.CopyFile();
    if (showsWorking)
        hideWorking();
}

void frmMain::DeleteFile(const std::string& delFile, bool useShow, bool doCheck) {
    if (doCheck && !DoesFileExist(delFile))
        return;
    if (dontXPSwitch) {
        platform::attempt([&] { disk().removeFile(delFile); });
        return;
    }
    clsFileAPI operation(disk());
    operation.SetFlags(false, false, true, !useShow, false);
    operation.SourceFile(delFile);
    operation.DeleteFile();
}

/// Passes over every failure: a folder that could not be emptied stays.
void frmMain::totallyKillFolder(const std::string& folderToKill, bool showDelInShowReadme) {
    if (showDelInShowReadme)
        showReadme_.appendLogLine("Removing Directory \"" + platform::shownPath(folderToKill) +
                                  "\"");
    StringArray names;
    if (folderArray(names, folderToKill))
        for (const auto& name : names.entries()) {
            toolkit().doEvents();
            totallyKillFolder(folderToKill + "\\" + name, false);
        }
    names.clear();
    if (fileArray(names, folderToKill))
        for (const auto& name : names.entries()) {
            toolkit().doEvents();
            DeleteFile(folderToKill + "\\" + name, true, false);
        }
    platform::attempt([&] { disk().removeFolder(folderToKill); });
}

void frmMain::showWorking() {
    setEnabled(false);
    working_ = std::make_unique<utilities::frmWorking>(toolkit());
    toolkit().load(*working_);
    toolkit().show(*working_);
    toolkit().doEvents();
}

void frmMain::hideWorking() {
    toolkit().doEvents();
    toolkit().hide(*working_);
    working_.reset();
    setEnabled(true);
}

} // namespace engine
