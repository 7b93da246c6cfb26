// The right side of the main window for the release just picked, and the one place where a release
// is held against the total conversion.
#include <algorithm>

#include "engine/frmMain.h"
#include "platform/failure.h"
#include "platform/text.h"

namespace engine {
namespace {

constexpr auto noInformation = "* No Information Available *";
constexpr auto noCodes = "* None Specified, Assuming Universal *";

bool isWildcard(const std::string& code) {
    return code == "*" || platform::equalIgnoringCase(code, "any");
}

/// Codes may be in one encoding in the conversion and in another in the release.
bool isSame(const std::string& code, const std::string& other) {
    return platform::equalIgnoringCase(platform::toUtf8(code), platform::toUtf8(other));
}

} // namespace

void frmMain::showInfo(const std::string& forFolder) {
    const auto folder = inDataTree(forFolder);
    StringArray files;
    const bool isLoose = !fileArray(files, folder);
    showReadmeButton(!isLoose && arrayFind(files, "readme.txt") != -1, folder);
    if (isLoose)
        showTextOf(companionOf(forFolder));
    else
        showTextOf(arrayFind(files, "info.txt") != -1 ? folder + "\\info.txt" : "");
    const bool isTC = currentType().type == ReleaseType::tc;
    auto& codes = isTC ? tcCCodes : relCCodes;
    const bool hasCodes = !isLoose && arrayFind(files, "ccodes.txt") != -1 &&
                          readCodes(folder + "\\ccodes.txt", codes);
    if (!hasCodes) {
        txtCCodes.setText(noCodes);
        if (isTC)
            tcCCodes.clear();
    } else if (!isTC && !isCompatible()) {
        offerToDisable();
    }
}

void frmMain::showReadmeButton(bool hasReadme, const std::string& folder) {
    cmdReadme.setText(hasReadme ? "Author Readme" : "No Readme Available");
    cmdReadme.setEnabled(hasReadme);
    if (hasReadme)
        cmdReadme.tag = folder + "\\readme.txt";
}

/// The text file beside a loose release, or nothing if there is none.
std::string frmMain::companionOf(const std::string& forFolder) {
    const auto dash = static_cast<std::size_t>(fIs(forFolder, "-", noStart, true));
    const auto name = forFolder.substr(dash);
    const int dot = fIs(name, ".", noStart, false);
    const auto looseFolder = inDataTree(forFolder.substr(0, dash) + "Misc");
    StringArray files;
    if (dot == -1 || !fileArray(files, looseFolder))
        return {};
    const auto companion = name.substr(0, static_cast<std::size_t>(dot)) + "txt";
    return arrayFind(files, companion) == -1 ? "" : looseFolder + "\\" + companion;
}

/// A path that is empty or cannot be read shows as a release without information.
void frmMain::showTextOf(const std::string& path) {
    std::string text = noInformation;
    if (!path.empty())
        platform::attempt([&] {
            const auto bytes = disk().readFile(path);
            text.clear();
            for (const auto& line : platform::splitLines(bytes))
                text += line + std::string(platform::lineBreak);
        });
    txtAbout.setText(text);
}

/// False, with nothing changed, for a file that cannot be read.
bool frmMain::readCodes(const std::string& path, StringArray& codes) {
    return platform::attempt([&] {
        const auto bytes = disk().readFile(path);
        codes.clear();
        std::string text;
        for (const auto& code : platform::splitLines(bytes)) {
            text += code + " ";
            arrayAdd(codes, code);
        }
        txtCCodes.setText(text);
    });
}

bool frmMain::isCompatible() const {
    const auto codes = relCCodes.entries();
    // With slot 0, in which the empty code is found.
    const auto wanted = tcCCodes.slots();
    return tcCCodes.empty() || std::any_of(codes.begin(), codes.end(), [&](const auto& code) {
               return isWildcard(code) ||
                      std::any_of(wanted.begin(), wanted.end(),
                                  [&](const auto& w) { return isSame(code, w); });
           });
}

void frmMain::offerToDisable() {
    if (!askYesNo("The selected " + getLongSelType() +
                  " is not listed as compatible with the currently selected TC."
                  "\r\n\r\nWould you like to disable it?"))
        return;
    fillingList = true;
    lstList.setMarked(curListIndex, false);
    fillingList = false;
    const auto type = currentType().type;
    if (type == ReleaseType::ai) {
        curListIndex = listFind(lstList, defaultAI);
        fallsBackToDefaultAI = true;
        return;
    }
    auto& selected = selectionOf(type);
    const auto& name = lstList.itemText(curListIndex);
    const auto entries = selected.entries();
    if (std::find(entries.begin(), entries.end(), name) != entries.end())
        takeOut(selected, name);
    showSummary(type);
}

} // namespace engine
