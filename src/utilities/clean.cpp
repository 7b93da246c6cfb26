// Clears the game directory of all that came neither with the game nor with this program.
#include <algorithm>
#include <array>

#include "engine/frmMain.h"
#include "platform/failure.h"
#include "platform/text.h"

namespace engine {
namespace {

using Names = std::span<const std::string_view>;

constexpr std::array<std::string_view, 2> programs = {"vexillum.exe", "totala.exe"};
constexpr std::array<std::string_view, 4> libraries = {"hpiutil.dll", "dplayx.dll", "smackw32.dll",
                                                       "spank.dll"};
constexpr std::array<std::string_view, 9> others = {"totala1.hpi", "ccdata.ccx", "ccmiss.ccx",
                                                    "ccmaps.ccx",  "btdata.ccx", "btmiss.ccx",
                                                    "btmaps.ccx",  "rev31.gp3",  "totala.ini"};

bool stays(const std::string& file) {
    const auto name = platform::foldCase(file);
    const Names names = name.ends_with(".exe")   ? Names(programs)
                        : name.ends_with(".dll") ? Names(libraries)
                                                 : Names(others);
    return std::find(names.begin(), names.end(), name) != names.end();
}

} // namespace

void frmMain::cmdClean_Click() {
    if (!askYesNo("This will move ALL non-CD/non-VXL files from your TA Directory into a "
                  "CleanedFiles subdirectory.\r\n\r\nAre you sure you want to do this?"))
        return;
    showWorking();
    revertSels(false);
    cleanGameDirectory();
    hideWorking();
}

/// Passes over every failure but those that MoveFile tells of.
void frmMain::cleanGameDirectory() {
    const auto cleaned = TADir + "\\CleanedFiles";
    platform::attempt([&] { disk().makeFolder(cleaned); });
    moveFailures_ = {};
    StringArray names;
    fileArray(names, TADir);
    for (const auto& name : names.entries()) {
        toolkit().doEvents();
        if (!stays(name) && !platform::equalIgnoringCase(name, machine_.programName))
            MoveFile(TADir + "\\" + name, cleaned + "\\" + name, false);
    }
    folderArray(names, TADir);
    for (const auto& name : names.entries()) {
        toolkit().doEvents();
        if (!platform::equalIgnoringCase(name, dataTree))
            MoveFile(TADir + "\\" + name, cleaned + "\\" + name, false);
    }
}

} // namespace engine
