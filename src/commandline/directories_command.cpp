// What an installed program can do ahead of all else: make a directory ready, and tell those it
// knows.
#include <ostream>

#include "installation/data_tree.h"
#include "json.h"
#include "platform/failure.h"
#include "verbs.h"

namespace commandline {
namespace {

struct Known {
    std::string path;
    bool hasGame = false;
    bool hasDataTree = false;
};

std::vector<Known> knownOf(installation::Installation* installation) {
    std::vector<Known> known;
    if (installation == nullptr)
        return known;
    auto& disk = installation->disk;
    for (const auto& path : installation->known.all())
        known.push_back(
            {path, installation::hasGame(disk, path), installation::hasDataTree(disk, path)});
    return known;
}

} // namespace

ExitCode setUp(const Machine& machine, const CommandLine& line) {
    const auto directory = platform::absoluteFolder(*line.directory);
    auto* installation = machine.installation;
    if (installation == nullptr || installation->stock.empty())
        throw Stop{failed, "There is no stock data beside the program to set a data tree up with."};
    if (machine.disk.kindOf(directory) != platform::EntryKind::folder)
        throw Stop{failed, "There is no folder \"" + platform::shownPath(directory) + "\"."};
    const auto lock = platform::lockFolder(directory, platform::Holder::isLeftAlone);
    if (!lock.lock)
        throw Stop{failed, "Vexillum is already running in this directory."};
    auto& disk = installation->disk;
    if (installation::hasDataTree(disk, directory))
        installation::bringUpToDate(disk, installation->stock, directory);
    else
        installation::setUp(disk, installation->stock, directory);
    installation->known.use(directory);
    machine.output << "The data tree is ready in \"" << printable(platform::shownPath(directory))
                   << "\".\n";
    if (!installation::hasGame(disk, directory))
        machine.errors << "\"totala.exe\" was not found there.\n";
    return done;
}

ExitCode directories(const Machine& machine, const CommandLine& line) {
    const auto known = knownOf(machine.installation);
    if (line.json) {
        Json document = {{"directories", Json::array()}};
        for (const auto& each : known)
            document["directories"].push_back(
                {{"path", shown(each.path)}, {"game", each.hasGame}, {"ready", each.hasDataTree}});
        print(machine.output, document);
        return done;
    }
    for (const auto& each : known)
        machine.output << printable(platform::shownPath(each.path))
                       << (each.hasGame ? "" : " (no game)")
                       << (each.hasDataTree ? "" : " (no data tree)") << '\n';
    return done;
}

} // namespace commandline
