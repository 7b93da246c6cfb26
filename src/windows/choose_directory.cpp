// Asked before there is a main window.
#include "windows/choose_directory.h"

#include "installation/data_tree.h"
#include "platform/failure.h"
#include "windows/frmDirectories.h"
#include "windows/title.h"

namespace windows {
namespace {

void warn(Toolkit& toolkit, const std::string& text, const std::string& reason = {}) {
    toolkit.showMessage({text, applicationTitle, {"OK"}, false, 0, reason, true});
}

bool wishesDataTree(Toolkit& toolkit, installation::Installation& installation,
                    const std::string& directory) {
    const bool hasGame = installation::hasGame(installation.disk, directory);
    const std::string doubt =
        hasGame ? "" : "\"totala.exe\" was not found there, so it may be the wrong folder.\r\n\r\n";
    const auto answer = toolkit.showMessage(
        {"Vexillum has no data tree in \"" + platform::shownPath(directory) + "\" yet.\r\n\r\n" +
             doubt + "Would you like to set it up there? Nothing that is there is changed.",
         applicationTitle,
         {"Yes", "No"},
         false,
         hasGame ? 0U : 1U});
    return answer.button == 0;
}

std::optional<std::string> pick(Toolkit& toolkit, installation::Installation& installation) {
    frmDirectories window(toolkit, installation, {});
    toolkit.showModal(window);
    return window.wanted();
}

/// What fails is told where it matters: a folder that cannot be written is at the start.
void prepare(Toolkit& toolkit, installation::Installation& installation,
             const std::string& directory) {
    platform::attempt(
        [&] { installation::bringUpToDate(installation.disk, installation.stock, directory); });
    try {
        installation.known.use(directory);
    } catch (const platform::Failure& failure) {
        warn(toolkit, "The game directory could not be noted, so it may be asked for again.",
             failure.what());
    }
}

} // namespace

bool isReady(Toolkit& toolkit, installation::Installation& installation,
             const std::string& directory) {
    auto& disk = installation.disk;
    const auto shown = platform::shownPath(directory);
    if (disk.kindOf(directory) != platform::EntryKind::folder) {
        warn(toolkit, "There is no folder \"" + shown + "\".");
        return false;
    }
    if (installation::hasDataTree(disk, directory))
        return true;
    if (installation.stock.empty()) {
        warn(toolkit, "Vexillum has no data tree in \"" + shown +
                          "\", and there is no stock data beside the program to set one up.");
        return false;
    }
    if (!wishesDataTree(toolkit, installation, directory))
        return false;
    try {
        installation::setUp(disk, installation.stock, directory);
    } catch (const platform::Failure& failure) {
        warn(toolkit, "The data tree could not be set up in \"" + shown + "\".", failure.what());
        return false;
    }
    return true;
}

std::optional<std::string> chooseDirectory(Toolkit& toolkit,
                                           installation::Installation& installation,
                                           const std::optional<std::string>& named) {
    if (named) {
        const auto directory = platform::absoluteFolder(*named);
        if (!isReady(toolkit, installation, directory))
            return std::nullopt;
        if (installation.isInstalled())
            prepare(toolkit, installation, directory);
        return directory;
    }
    auto directory = installation.usual();
    if (!installation.isInstalled())
        return directory;
    if (!directory)
        directory = pick(toolkit, installation);
    if (directory)
        prepare(toolkit, installation, *directory);
    return directory;
}

} // namespace windows
