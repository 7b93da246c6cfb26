// What stays is told by name: a list for programs, one for libraries, one for all other files.
#include "cycle/clean.h"

#include <algorithm>
#include <array>
#include <span>
#include <string>

#include "platform/failure.h"
#include "platform/text.h"
#include "releases/release_types.h"

namespace cycle {
namespace {

constexpr std::string_view cleanedFiles = "CleanedFiles";

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

void cleanGameDirectory(releases::GameDirectory& game, std::string_view programName,
                        const Unfinished& unfinished) {
    const auto cleaned = game.at(cleanedFiles);
    platform::attempt([&] { game.disk().makeFolder(cleaned); });
    game.beginMoves();
    const auto move = [&](const std::string& name) {
        game.MoveFile(game.at(name), cleaned + "\\" + name);
    };
    std::vector<std::string> left;
    releases::StringArray names;
    game.fileArray(names, game.TADir());
    for (const auto& name : names.entries()) {
        game.log().breathe();
        if (stays(name) || platform::equalIgnoringCase(name, programName))
            continue;
        if (unfinished.isPending(name))
            left.push_back(name);
        else
            move(name);
    }
    game.folderArray(names, game.TADir());
    for (const auto& name : names.entries()) {
        game.log().breathe();
        if (platform::equalIgnoringCase(name, releases::dataTree) ||
            platform::equalIgnoringCase(name, cleanedFiles))
            continue;
        if (unfinished.touches(name))
            left.push_back(name);
        else
            move(name);
    }
    if (!left.empty())
        game.questions().warn("These stay, because files of releases that could not be moved back "
                              "yet lie there:\r\n\r\n" +
                              platform::shownList(left));
}

} // namespace cycle
