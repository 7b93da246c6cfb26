// What is known comes first, then what was found beside it when the window was made.
#include "windows/frmDirectories.h"

#include <algorithm>

#include "installation/data_tree.h"
#include "installation/search.h"
#include "platform/failure.h"
#include "platform/programs.h"
#include "platform/text.h"
#include "windows/choose_directory.h"
#include "windows/title.h"

namespace windows {
namespace {

/// The directory as it is listed: links may lead to one by several names.
std::optional<std::string> listedAs(const std::vector<std::string>& directories,
                                    const std::string& directory) {
    const auto real = platform::realFolder(directory);
    const auto at = std::find_if(directories.begin(), directories.end(), [&](const auto& each) {
        return each == directory || platform::realFolder(each) == real;
    });
    return at == directories.end() ? std::nullopt : std::optional(*at);
}

} // namespace

frmDirectories::frmDirectories(Toolkit& toolkit, installation::Installation& installation,
                               std::string current)
    : Window("frmDirectories", "Game Directory"), toolkit_(toolkit), installation_(installation),
      current_(std::move(current)) {
    if (current_.empty()) {
        lblDirectories.setText("Which Game Directory Is Vexillum To Work In?");
        cmdSwitch.setText("Open");
        cmdClose.setText("Leave");
    }
    lstDirectories.onClick = [this](const std::string& name) { choose(name); };
    lstDirectories.onRead = [this](const std::string& name) { choose(name); };
    cmdAdd.onClick = [this] { cmdAdd_Click(); };
    cmdForget.onClick = [this] { cmdForget_Click(); };
    cmdSwitch.onClick = [this] { cmdSwitch_Click(); };
    cmdClose.onClick = [this] { closeWindow(); };
    onClose = [this] { closeWindow(); };
    defaultButton = &cmdSwitch;
    found_ = installation::findDirectories(installation_.disk, installation_.places);
    gather();
    toolkit_.load(*this);
}

frmDirectories::~frmDirectories() {
    toolkit_.unload(*this);
}

/// A list that cannot be read is told of when it would be written.
void frmDirectories::gather() {
    known_.clear();
    platform::attempt([this] { known_ = installation_.known.all(); });
    fill();
}

void frmDirectories::fill() {
    auto all = known_;
    for (const auto& directory : found_)
        if (!listedAs(all, directory))
            all.push_back(directory);
    if (!current_.empty()) {
        if (!listedAs(all, current_))
            all.insert(all.begin(), current_);
        current_ = *listedAs(all, current_);
    }
    if (chosen_)
        chosen_ = listedAs(all, *chosen_);
    if (!chosen_ && !all.empty())
        chosen_ = all.front();
    std::vector<MarkList::Item> items;
    items.reserve(all.size());
    for (const auto& directory : all)
        items.push_back({directory, directory == chosen_});
    lstDirectories.setItems(std::move(items));
    txtDirectory.setText(chosen_ ? about(*chosen_)
                                 : "The game was found nowhere. Please add its directory.\r\n");
    cmdSwitch.setIdle(!chosen_ || *chosen_ == current_);
    cmdForget.setIdle(!chosen_ || *chosen_ == current_ || !isKnown(*chosen_));
}

void frmDirectories::choose(const std::string& directory) {
    chosen_ = directory;
    fill();
}

bool frmDirectories::isKnown(const std::string& directory) const {
    return listedAs(known_, directory).has_value();
}

std::string frmDirectories::about(const std::string& directory) const {
    auto& disk = installation_.disk;
    if (disk.kindOf(directory) != platform::EntryKind::folder)
        return "This folder is not there now.\r\n";
    std::string text;
    if (directory == current_)
        text += "Vexillum works in this directory now.\r\n";
    text += installation::hasGame(disk, directory) ? "The game is there.\r\n"
                                                   : "\"totala.exe\" was not found there.\r\n";
    if (!installation::hasDataTree(disk, directory))
        text += "Vexillum has no data tree there yet.\r\n";
    if (const auto prefix = platform::winePrefixOf(directory); !prefix.empty())
        text += "The game starts with the wine prefix \"" + platform::shownPath(prefix) + "\".\r\n";
    if (!isKnown(directory))
        text += "It was found here, and is noted when it is used.\r\n";
    return text;
}

void frmDirectories::change(const std::function<void()>& step) {
    try {
        step();
    } catch (const platform::Failure& failure) {
        toolkit_.showMessage({"The list of game directories could not be saved.",
                              applicationTitle,
                              {"OK"},
                              false,
                              0,
                              failure.what(),
                              true});
    }
    gather();
}

/// A folder that holds the game further down stands for that.
void frmDirectories::cmdAdd_Click() {
    const auto picked = toolkit_.askForFolder(
        {"Add A Game Directory", {}, chosen_ ? *chosen_ : installation_.places.home});
    if (!picked)
        return;
    const auto folder = platform::absoluteFolder(*picked);
    auto directories = installation::findBelow(installation_.disk, folder);
    if (directories.empty() || installation::hasDataTree(installation_.disk, folder))
        directories = {folder};
    chosen_ = directories.front();
    change([&] {
        for (const auto& directory : directories)
            installation_.known.add(directory);
    });
}

void frmDirectories::cmdForget_Click() {
    if (!chosen_ || *chosen_ == current_)
        return;
    const auto directory = *chosen_;
    change([&] { installation_.known.forget(directory); });
}

void frmDirectories::cmdSwitch_Click() {
    if (!chosen_ || *chosen_ == current_ || !isReady(toolkit_, installation_, *chosen_))
        return fill();
    wanted_ = chosen_;
    closeWindow();
}

void frmDirectories::closeWindow() {
    toolkit_.hide(*this);
}

} // namespace windows
