// Steps forward and back. What a step has made on the disk stays, whatever the user does next.
#include "windows/frmAdd.h"

#include <utility>

#include "formats/codes.h"
#include "formats/display_name.h"
#include "platform/failure.h"
#include "platform/text.h"
#include "platform/write_batch.h"
#include "releases/guess.h"
#include "releases/member_import.h"
#include "releases/release_types.h"
#include "windows/frmMain.h"

namespace windows {
namespace {

constexpr auto alreadyThere = "Already There";

std::string trimmedBlanks(const std::string& text) {
    const auto first = text.find_first_not_of(' ');
    if (first == std::string::npos)
        return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string countText(int count, const std::string& thing) {
    return std::to_string(count) + " " + thing + (count == 1 ? "" : "s");
}

std::vector<std::string> typeNames() {
    std::vector<std::string> names(releases::releaseTypes().size());
    for (const auto& type : releases::releaseTypes())
        names[static_cast<std::size_t>(type.wizardRow)] = type.shortName;
    return names;
}

} // namespace

frmAdd::frmAdd(frmMain& main, std::string shortType, const std::vector<std::string>& files)
    : Window("frmAdd", "Add A " + shortType), cbo1Type(*this, "cbo1Type", typeNames()), main_(main),
      toolkit_(main.machine().toolkit), disk_(main.machine().disk), steps_(*this),
      shortType_(std::move(shortType)) {
    cbo1Type.pick(shortType_);
    cdc.title = "Locate Readme File";
    cdc.filter = "Plain Text (*.txt)|*.txt|All Files (*.*)|*.*";
    cdc.defaultExtension = "*.txt";
    txt1Name.onLeave = [this] { txt1Name_LostFocus(); };
    cmd1Prev.onClick = [this] { closeWindow(); };
    cmd1Next.onClick = [this] { cmd1Next_Click(); };
    lbl2Copy.onClick = [this] { lbl2Copy_Click(); };
    cmd2Files.onClick = [this] { cmd2Files_Click(); };
    cmd2Files.wish = &stopCopying_;
    cmd2Folder.onClick = [this] { cmd2Folder_Click(); };
    cmd2Prev.onClick = [this] { cmd2Prev_Click(); };
    cmd2Next.onClick = [this] { cmd2Next_Click(); };
    cmd3Browse.onClick = [this] { cmd3Browse_Click(); };
    cmd3prev.onClick = [this] { GotoStep(2); };
    cmd3next.onClick = [this] { cmd3next_Click(); };
    onClose = [this] { closeWindow(); };
    onEscape = [this] { cancel(); };
    cmdCancel.onClick = [this] { cancel(); };
    closeWish = &closeIt_;
    escapeWish = &stopCopying_;
    onDrop = [this](const auto& paths) {
        if (fraS1.enabled())
            takeFiles(paths);
        else if (fraS2.enabled())
            copyMembers(paths);
    };
    toolkit_.load(*this);
    GotoStep(1);
    takeFiles(files);
}

/// What the user has chosen or typed himself stays.
void frmAdd::takeFiles(const std::vector<std::string>& files) {
    if (files.empty())
        return;
    const bool isFirst = taken_.empty();
    taken_.insert(taken_.end(), files.begin(), files.end());
    const auto guess = releases::guessRelease(disk_, files);
    if (isFirst && guess.type != releases::ReleaseType::none) {
        shortType_ = releases::infoOf(guess.type).shortName;
        cbo1Type.pick(shortType_);
        setText("Add A " + shortType_);
    }
    if (txt1Name.text().empty() && !guess.name.empty()) {
        txt1Name.setText(guess.name);
        txt1Name_LostFocus();
    }
    if (txt1About.text().empty())
        txt1About.setText(platform::toUtf8(guess.about));
    std::string names;
    for (const auto& path : taken_)
        names += (names.empty() ? "" : ", ") + path.substr(path.find_last_of("/\\") + 1);
    lblFiles.setText("To be copied in step 2: " + names);
    GotoStep(1);
}

void frmAdd::copyTakenFiles() {
    if (taken_.empty())
        return;
    lblFiles.setVisible(false);
    copyMembers(std::exchange(taken_, {}));
}

/// What has been made stays, so the user is to know.
void frmAdd::cancel() {
    if (!isMade_ || main_.game().questions().ask(
                        {"The directory \"" + platform::shownPath(releaseFolder_) +
                             "\" has been made already, and stays with what is in it.\r\n\r\nWould "
                             "you like to leave off here?",
                         {"Yes", "No"},
                         1}) == 0)
        closeWindow();
}

frmAdd::~frmAdd() {
    toolkit_.unload(*this);
}

void frmAdd::GotoStep(int stepNum) {
    steps_.goTo(stepNum);
    bar2Files.setVisible(false);
    lbl1Done.setText("Step 1: " + cbo1Type.text() + " \"" + releases::displayForm(txt1Name.text()) +
                     "\"" + (txt1About.text().empty() ? "" : ", with an about text"));
    lbl1Done.setVisible(stepNum > 1);
    lbl2Done.setText("Step 2: " + countText(copied_, "file") + " copied to \"" + txt2Where.text() +
                     "\"");
    lbl2Done.setVisible(stepNum > 2);
    lblFiles.setVisible(stepNum == 1 && !taken_.empty());
    cmdCancel.setVisible(stepNum > 1);
    defaultButton = stepNum == 1 ? &cmd1Next : stepNum == 2 ? &cmd2Next : &cmd3next;
}

void frmAdd::closeWindow() {
    toolkit_.hide(*this);
}

std::string frmAdd::folderFor(const std::string& name) const {
    return main_.game().inDataTree(cbo1Type.text() + "-" + name);
}

/// A release that is there already offers its about text for editing.
void frmAdd::txt1Name_LostFocus() {
    platform::attempt([&] {
        const auto path = folderFor(releases::folderForm(txt1Name.text())) + "\\info.txt";
        txt1About.setText(txt1About.text() + platform::withLineBreaks(disk_.readFile(path)));
    });
}

void frmAdd::cmd1Next_Click() {
    const auto taken = txt1Name.text();
    txt1Name.setText(formats::permittedPart(taken));
    if (txt1Name.text() != taken)
        return tellOf(main_.game().questions(), txt1Name,
                      "Not all ASCII characters are permitted in display names.\r\n\r\n"
                      "The offending characters have been removed, but you may want to "
                      "change it.");
    if (txt1Name.text().empty())
        return tellOf(main_.game().questions(), txt1Name,
                      "You have to enter a display name.\r\n\r\nPlease do so now.");
    txt1Name.setText(releases::folderForm(taken));
    releaseFolder_ = folderFor(txt1Name.text());
    txt2Where.setText(platform::shownPath(releaseFolder_));
    platform::attempt([&] { disk_.makeFolder(releaseFolder_); });
    if (!saveAboutText()) {
        txt1Name.setText(taken);
        return;
    }
    lbl2Files.setText("");
    lst2Files.clear();
    isMade_ = true;
    GotoStep(2);
    copyTakenFiles();
}

/// An empty box leaves a text that is there already. Tells of a failure.
bool frmAdd::saveAboutText() {
    if (txt1About.text().empty())
        return true;
    try {
        disk_.replaceFile(releaseFolder_ + "\\info.txt",
                          txt1About.text() + std::string(platform::lineBreak));
        return true;
    } catch (const platform::Failure& failure) {
        main_.game().questions().warn("The about text could not be saved.\r\n\r\n" +
                                      failure.reason());
        return false;
    }
}

void frmAdd::lbl2Copy_Click() {
    toolkit_.setClipboard(txt2Where.text());
}

void frmAdd::cmd2Files_Click() {
    const auto files = toolkit_.askForFiles(
        {"Copy Files Here", "All Files (*.*)|*.*|Zip Archives (*.zip)|*.zip", {}});
    if (!files.empty())
        copyMembers(files);
}

void frmAdd::cmd2Folder_Click() {
    if (const auto folder = toolkit_.askForFolder({"Copy A Folder Here", "", {}}))
        copyMembers({*folder});
}

/// While files are copied, the same button stops it, and so do Escape and closing the window.
void frmAdd::copyMembers(const std::vector<std::string>& paths) {
    using releases::MemberImport;
    stopCopying_.noted = closeIt_.noted = false;
    const auto stops = [this] { return stopCopying_.noted || closeIt_.noted; };
    cmd2Files.setText("Stop Copying");
    for (auto* button : {&cmd2Folder, &cmd2Prev, &cmd2Next, &cmdCancel})
        button->setEnabled(false);
    bar2Files.setDone(0);
    bar2Files.setVisible(true);
    MemberImport import(main_.game(), releaseFolder_, [&](const MemberImport::Progress& progress) {
        lbl2Files.setText(progress.file);
        bar2Files.setDone(progress.done * ProgressBar::whole / MemberImport::whole);
        toolkit_.doEvents();
        return !stops();
    });
    const auto result = import.copy(paths);
    notCopied_ += result.failed;
    copied_ += result.copied();
    for (const auto& file : result.files)
        lst2Files.add(platform::shownPath(file));
    bar2Files.setVisible(false);
    lbl2Files.setText(countText(result.copied(), "file") + " copied" +
                      (result.leftOut > 0 ? ", " + std::to_string(result.leftOut) + " not" : "") +
                      (stops() ? ", then stopped." : "."));
    cmd2Files.setText("Copy Files Here...");
    for (auto* button : {&cmd2Folder, &cmd2Prev, &cmd2Next, &cmdCancel})
        button->setEnabled(true);
    if (closeIt_.noted)
        closeWindow();
}

void frmAdd::cmd2Prev_Click() {
    txt1Name.setText(releases::displayForm(txt1Name.text()));
    GotoStep(1);
}

void frmAdd::cmd2Next_Click() {
    GotoStep(3);
    loadCCodes();
    if (!platform::attempt([&] { disk_.mapFile(releaseFolder_ + "\\readme.txt"); }))
        return;
    lbl3ReadMe.setEnabled(false);
    txt3ReadMe.setEnabled(false);
    txt3ReadMe.setText(alreadyThere);
}

/// Codes that the user has typed or changed stay as they are.
void frmAdd::loadCCodes() {
    if (txt3CCodes.text() != loadedCodes_)
        return;
    loadedCodes_.clear();
    platform::attempt([&] {
        loadedCodes_ = formats::shownCodes(
            formats::readCodes(disk_.readFile(releaseFolder_ + "\\ccodes.txt")));
    });
    if (!loadedCodes_.empty())
        loadedCodes_.pop_back();
    txt3CCodes.setText(loadedCodes_);
}

void frmAdd::cmd3Browse_Click() {
    cdc.folder = txt2Where.text();
    const auto file = toolkit_.askForFile({cdc.title, cdc.filter, cdc.folder});
    if (!file)
        return;
    cdc.fileName = *file;
    txt3ReadMe.setText(*file);
}

void frmAdd::cmd3next_Click() {
    const auto release = "The " + releases::displayForm(txt1Name.text()) + " " + shortType_;
    if (const auto problem = saveTexts(); !problem.empty()) {
        main_.game().questions().ask(
            {release + " could not be saved whole.\r\n\r\nPlease see that \"" +
                 platform::shownPath(releaseFolder_) +
                 "\" can be written and that the readme is there, and try again.",
             {"OK"},
             0,
             problem});
        return;
    }
    const auto* outcome = notCopied_ == 0
                              ? " has been added successfully!"
                              : " has been added without the files that could not be copied.";
    main_.game().questions().tell(release + outcome +
                                  "\r\n\r\nIt will be available next time you run Vexillum");
    closeWindow();
}

/// Why codes and readme could not be saved, or nothing. Behind it all of the release is there to
/// stay.
std::string frmAdd::saveTexts() {
    try {
        saveCCodes();
        platform::WriteBatch files(disk_);
        const auto readme = txt3ReadMe.text();
        if (!readme.empty() && readme != alreadyThere)
            disk_.copyFile(readme, releaseFolder_ + "\\readme.txt");
        files.commit();
        disk_.flush();
    } catch (const platform::Failure& failure) {
        return failure.what();
    }
    return {};
}

/// An empty box leaves codes that are there already.
void frmAdd::saveCCodes() {
    txt3CCodes.setText(trimmedBlanks(txt3CCodes.text()));
    if (!txt3CCodes.text().empty())
        disk_.replaceFile(releaseFolder_ + "\\ccodes.txt", formats::codesText(txt3CCodes.text()));
}

} // namespace windows
