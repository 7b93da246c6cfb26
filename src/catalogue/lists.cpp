// The list of each tab, filled from the folder names read at start, with the selection put back.
#include <array>
#include <unordered_map>

#include "engine/frmMain.h"
#include "platform/text.h"

namespace engine {
namespace {

/// What the four tabs of many choices say of their type.
struct ManyTexts {
    ReleaseType type;
    const char* heading;
    const char* about;
    const char* summary; ///< behind the number of names
    const char* one;     ///< in the message about a missing name
    const char* several;
};

constexpr std::array<ManyTexts, 4> manyTexts = {{
    {ReleaseType::race, "About Races:",
     "Races add entire new sides to play as to TA.\r\n\r\n"
     "Please be sure to note the difference between EXE races and Warpgate Races:\r\n"
     "  - EXE races use a custom exe to add another side.  These Races are VERY RARELY compatible "
     "with one another.  Even under the best conditions, there can be a maximum of 2 enabled.\r\n"
     "  - Warpgate Races provide a commander built from a Warpgate.  These races require the "
     "Warpgate mod to be activated, but CAN coexist with each other, although they can still "
     "conflict with each other like any other unit pack.\r\n\r\n"
     "Make sure that there are no races selected in this dialog when adding/removing races",
     " 3rd Party Races Selected", "race", "races"},
    {ReleaseType::mod, "About Modifications:",
     "Modifications generally change something put in place by the TC.\r\n\r\n"
     "Make sure that there are no modifications selected in this dialog when adding/removing "
     "modifications",
     " Modifications Selected", "modification", "modifications"},
    {ReleaseType::map, "About Maps:",
     "Maps add new fields of battle for TA.\r\n\r\n"
     "Make sure that there are no maps selected in this dialog when adding/removing maps",
     " 3rd Party Maps Selected", "map", "maps"},
    {ReleaseType::unit, "About Units:",
     "Units are new structures or mobile units to play with.\r\n\r\n"
     "Make sure that there are no units selected in this dialog when adding/removing units",
     " 3rd Party Units Selected", "unit", "units"},
}};

const ManyTexts& textsOf(ReleaseType type) {
    for (const auto& texts : manyTexts)
        if (texts.type == type)
            return texts;
    return manyTexts.front();
}

std::string missingMessage(const std::string& name, const ManyTexts& texts) {
    const std::string several = texts.several;
    return "The \"" + name + "\" " + texts.one +
           " is listed as selected but could not be found.\r\n\r\nVexillum has removed it from "
           "the selected " +
           several + " list, but reminds you that you should disable ALL " + several +
           " before adding or removing any.";
}

} // namespace

void frmMain::fillList() {
    switch (currentType().type) {
    case ReleaseType::ai:
        return doAIlist();
    case ReleaseType::race:
        return doRacelist();
    case ReleaseType::mod:
        return doModlist();
    case ReleaseType::map:
        return doMaplist();
    case ReleaseType::unit:
        return doUnitlist();
    default:
        return doTClist();
    }
}

void frmMain::doTClist() {
    listSingle(ReleaseType::tc, selTC);
}

void frmMain::doAIlist() {
    listSingle(ReleaseType::ai, selAI);
}

void frmMain::doRacelist() {
    listMany(ReleaseType::race);
}

void frmMain::doModlist() {
    listMany(ReleaseType::mod);
}

void frmMain::doMaplist() {
    listMany(ReleaseType::map);
}

void frmMain::doUnitlist() {
    listMany(ReleaseType::unit);
}

StringArray& frmMain::selectionOf(ReleaseType type) {
    switch (type) {
    case ReleaseType::race:
        return selRaces;
    case ReleaseType::mod:
        return selMods;
    case ReleaseType::map:
        return selMaps;
    default:
        return selUnits;
    }
}

platform::TextBox& frmMain::summaryOf(ReleaseType type) {
    switch (type) {
    case ReleaseType::race:
        return txtSelRaces;
    case ReleaseType::mod:
        return txtSelMods;
    case ReleaseType::map:
        return txtSelMaps;
    default:
        return txtSelUnits;
    }
}

void frmMain::showSummary(ReleaseType type) {
    summaryOf(type).setText(std::to_string(selectionOf(type).upperBound()) + textsOf(type).summary);
}

void frmMain::listSingle(ReleaseType type, const std::string& selected) {
    lstList.clear();
    for (std::string_view folder : storeFolders.entries())
        if (cutPrefix(folder, type))
            lstList.add(displayForm(folder));
    curListIndex = listFind(lstList, displayForm(selected));
    pickListItem(curListIndex);
}

void frmMain::listMany(ReleaseType type) {
    lstList.clear();
    for (std::string_view folder : storeFolders.entries()) {
        if (!cutPrefix(folder, type))
            continue;
        if (isLooseFolder(folder, type))
            for (const auto& file : looseFiles(type))
                lstList.add(file);
        else
            lstList.add(displayForm(folder));
    }
    restoreMarks(type);
    lblAbout.setText(textsOf(type).heading);
    txtAbout.setText(textsOf(type).about);
    curListIndex = -1;
    cmdExplore.setEnabled(false);
    cmdRemove.setEnabled(false);
}

std::vector<std::string> frmMain::looseFiles(ReleaseType type) {
    StringArray files;
    fileArray(files, inDataTree(std::string(namesOf(type).shortName) + "-Misc"));
    std::vector<std::string> releases;
    for (const auto& file : files.entries())
        if (!platform::endsWithIgnoringCase(file, ".txt"))
            releases.push_back(file);
    return releases;
}

void frmMain::restoreMarks(ReleaseType type) {
    auto& selected = selectionOf(type);
    MessageRow missing;
    std::unordered_map<std::string_view, int> indexOf;
    for (int i = 0; i < lstList.count(); ++i)
        indexOf.emplace(lstList.itemText(i), i);
    fillingList = true;
    for (int i = 1; i <= selected.upperBound(); ++i) {
        const auto found = indexOf.find(selected[i]);
        curListIndex = found == indexOf.end() ? -1 : found->second;
        if (curListIndex >= 0) {
            lstList.setMarked(curListIndex, true);
            continue;
        }
        askInRow(missing, missingMessage(selected[i], textsOf(type)), {"OK"});
        arrayRemoveAt(selected, i--);
    }
    showSummary(type);
    fillingList = false;
}

} // namespace engine
