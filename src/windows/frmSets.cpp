// A set is read anew whenever it comes to hand: its file may be changed by hand meanwhile.
#include "windows/frmSets.h"

#include <algorithm>

#include "platform/text.h"
#include "windows/frmMain.h"

namespace windows {
namespace {

/// The set of that name, or else in another case, or else the first one.
std::optional<std::string> listedAs(const std::vector<std::string>& names,
                                    const std::string& wanted) {
    auto at = std::find(names.begin(), names.end(), wanted);
    if (at == names.end())
        at = std::find_if(names.begin(), names.end(), [&](const auto& name) {
            return platform::equalIgnoringCase(name, wanted);
        });
    if (at == names.end())
        at = names.begin();
    return at == names.end() ? std::nullopt : std::optional(*at);
}

} // namespace

frmSets::frmSets(frmMain& main, std::string current)
    : Window("frmSets", "Sets"), main_(main), toolkit_(main.machine().toolkit),
      current_(std::move(current)), chosen_(current_) {
    lstSets.onClick = [this](const std::string& name) { choose(name); };
    lstSets.onRead = [this](const std::string& name) { choose(name); };
    cmdRename.onClick = [this] { cmdRename_Click(); };
    cmdDelete.onClick = [this] { cmdDelete_Click(); };
    cmdExport.onClick = [this] { cmdExport_Click(); };
    cmdList.onClick = [this] { cmdList_Click(); };
    cmdSwitch.onClick = [this] { cmdSwitch_Click(); };
    cmdClose.onClick = [this] { closeWindow(); };
    onClose = [this] { closeWindow(); };
    defaultButton = &cmdSwitch;
    fill();
    toolkit_.load(*this);
}

frmSets::~frmSets() {
    toolkit_.unload(*this);
}

void frmSets::fill() {
    const auto names = main_.sets().names();
    chosen_ = listedAs(names, chosen_.value_or(""));
    set_ = {};
    failure_ = chosen_ ? main_.sets().load(*chosen_, set_) : "";
    std::vector<MarkList::Item> items;
    items.reserve(names.size());
    for (const auto& name : names)
        items.push_back({name, name == chosen_});
    lstSets.setItems(std::move(items));
    txtSet.setText(contents());
    for (auto* button : {&cmdRename, &cmdDelete})
        button->setIdle(!chosen_);
    for (auto* button : {&cmdExport, &cmdList, &cmdSwitch})
        button->setIdle(!chosen_ || !failure_.empty());
}

void frmSets::choose(const std::string& name) {
    chosen_ = name;
    fill();
}

std::string frmSets::contents() const {
    if (!chosen_)
        return "";
    if (!failure_.empty())
        return "This set cannot be read.\r\n\r\n" + failure_;
    auto there = set_.selection;
    const auto missing = cycle::takeOutMissing(there, main_.store());
    std::string text;
    for (const auto* info : releases::typesByTab())
        for (const auto& name : set_.selection.namesOf(info->type)) {
            const cycle::Owner release{info->type,
                                       info->isSingle() ? releases::displayForm(name) : name};
            const bool isMissing =
                std::find(missing.begin(), missing.end(), release) != missing.end();
            text += release.text() + (isMissing ? " (not there)" : "") + "\r\n";
        }
    const auto& modifier = set_.selection.modifier;
    if (modifier.enabled)
        text += std::string("\r\nMenu Modifier") + (modifier.small ? ", Small Version" : "") +
                (modifier.compress ? ", Compress Menus" : "") + "\r\n";
    if (const auto answers = set_.answers.all().size(); answers > 0)
        text += "\r\n" + platform::withSeparators(answers) +
                (answers == 1 ? " Remembered Answer" : " Remembered Answers") + "\r\n";
    return text;
}

void frmSets::cmdRename_Click() {
    if (!chosen_)
        return;
    const auto oldName = *chosen_;
    const auto newName = main_.askForSetName(
        "Please Enter The New Name For The Set \"" + oldName + "\":", "Rename This Set", oldName);
    if (!newName || *newName == oldName)
        return;
    if (const auto reason = main_.sets().rename(oldName, *newName); !reason.empty())
        return main_.game().questions().warn("The set could not be renamed.\r\n\r\n" + reason);
    // With "~" in it the new name is listed as another one.
    chosen_ = releases::displayForm(*newName);
    if (platform::equalIgnoringCase(current_, oldName))
        current_ = *chosen_;
    fill();
}

void frmSets::cmdDelete_Click() {
    if (!chosen_ || !main_.game().questions().askWhetherSure(
                        "Are you sure you want to delete the set \"" + *chosen_ +
                        "\"?\r\n\r\nIts releases stay where they are."))
        return;
    if (const auto reason = main_.sets().remove(*chosen_); !reason.empty())
        main_.game().questions().warn("The set could not be deleted.\r\n\r\n" + reason);
    else if (platform::equalIgnoringCase(current_, *chosen_))
        current_.clear();
    fill();
}

void frmSets::cmdExport_Click() {
    if (!chosen_ || !failure_.empty())
        return;
    const auto failure =
        toolkit_.saveText({"Export This Set", setFileFilter, {}},
                          releases::folderForm(*chosen_) + ".txt", cycle::textOf(set_));
    if (!failure.empty())
        main_.game().questions().warn("The set could not be exported.\r\n\r\n" + failure);
}

void frmSets::cmdList_Click() {
    if (!chosen_ || !failure_.empty())
        return;
    setResting(true);
    main_.saveListOf(set_.selection, *chosen_);
    setResting(false);
}

void frmSets::cmdSwitch_Click() {
    if (!chosen_ || !failure_.empty())
        return;
    wanted_ = chosen_;
    closeWindow();
}

void frmSets::closeWindow() {
    toolkit_.hide(*this);
}

} // namespace windows
