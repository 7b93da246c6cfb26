// Rename and remove. Both act on the data tree at once, put the selection back first, and end in
// the question whether to restart, since folder names are read only at start.
#include "engine/clsFileAPI.h"
#include "engine/frmMain.h"
#include "platform/failure.h"

namespace engine {
namespace {

bool isDefaultRelease(const std::string& name) {
    return name == defaultAI || name == defaultTC;
}

/// Whether a folder of that name would lie in the data tree and be listed again.
bool isFolderName(const std::string& name) {
    return name != "." && name != ".." &&
           name.find_first_of(std::string("\\\r\n\0", 4)) == std::string::npos;
}

} // namespace

std::string frmMain::releaseFolder(const std::string& displayName) const {
    return inDataTree(getShortSelType() + "-" + folderForm(displayName));
}

void frmMain::lblRename_Click() {
    const auto oldName = lstList.itemText(lstList.index());
    if (oldName.empty() || isDefaultRelease(oldName))
        return;
    const auto newName = toolkit()
                             .askForText({"Please Enter The New Name For The \"" + oldName + "\" " +
                                              getLongSelType() + ":",
                                          "Rename This " + getShortSelType(), oldName})
                             .value_or("");
    if (newName.empty() || newName == oldName)
        return;
    revertSels(true);
    if (const auto reason = renameRelease(oldName, folderForm(newName)); !reason.empty()) {
        tell("The " + getLongSelType() + " could not be renamed.\r\n\r\n" + reason);
        return;
    }
    tell("\"" + folderForm(oldName) + "\" has been successfully renamed to \"" +
         folderForm(newName) +
         "\".\r\n\r\nThe new name will be visible next time you start Vexillum.");
    RestartVXL(true);
}

/// Returns why it could not be done, or nothing.
std::string frmMain::renameRelease(const std::string& oldName, const std::string& newName) {
    if (!isFolderName(newName))
        return "A name cannot hold a backslash or a line break, and cannot be \"..\".";
    const auto folder = releaseFolder(oldName);
    if (!DoesFolderExist(folder))
        return "It has no folder: only releases with a folder of their own can be renamed.";
    try {
        if (!disk().renameEntry(folder, getShortSelType() + "-" + newName))
            return "A release of that name exists already.";
    } catch (const platform::Failure& failure) {
        return failure.what();
    }
    return {};
}

void frmMain::cmdRemove_Click() {
    const auto name = lstList.itemText(lstList.index());
    // Before the first click in a list nothing is current in it, but a default release may be
    // shown.
    if (isDefaultRelease(name.empty() ? lstList.itemText(curListIndex) : name))
        return cmdRemove.setEnabled(false);
    if (name.empty())
        return;
    const auto longType = getLongSelType();
    if (!askYesNo("Are you VERY VERY sure you want to remove the " + name + " " + longType +
                  "?\r\n\r\nThis is an irreversible operation!"))
        return;
    showWorking();
    revertSels(true);
    removeRelease(name);
    hideWorking();
    tell("The " + name + " " + longType +
         " has been removed successfully.\r\n\r\nIt will dissapear as soon as you close Vexillum.");
    RestartVXL(true);
}

/// Passes over every failure.
void frmMain::removeRelease(const std::string& name) {
    StringArray files;
    if (const auto folder = releaseFolder(name); fileArray(files, folder)) {
        totallyKillFolder(folder, false);
        // What no listing shows would keep the release alive.
        platform::attempt([&] { disk().removeTree(folder); });
        return;
    }
    const auto looseFolder = inDataTree(getShortSelType() + "-Misc") + "\\";
    const auto file = folderForm(name);
    DeleteFile(looseFolder + file, false, true);
    if (const int dot = fIs(file, ".", noStart, false); dot != -1)
        DeleteFile(looseFolder + file.substr(0, static_cast<std::size_t>(dot)) + "txt", false,
                   true);
}

} // namespace engine
