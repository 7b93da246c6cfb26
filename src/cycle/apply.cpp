// The two halves of the apply: the plan with its questions, then the changes.
#include "cycle/apply.h"

#include "cycle/change_files.h"
#include "platform/failure.h"

namespace cycle {

Plan makePlan(const releases::GameDirectory& game, const Selection& selection) {
    const auto listings = [&](const std::string& path) {
        return game.list(path.empty() ? game.TADir() : game.at(path));
    };
    platform::MessageRow clashes;
    platform::MessageRow programs;
    return Plan::make(selection, listings,
                      {[&](const ClashQuestion& question) {
                           return game.questions().askYesNo(question.text(), &clashes);
                       },
                       [&](const ExeQuestion& question) {
                           return game.questions().askYesNo(question.text(), &programs);
                       }});
}

void carryOut(releases::GameDirectory& game, const formats::Journal& journal,
              const std::function<void()>& modifier) {
    auto& disk = game.disk();
    auto& log = game.log();
    // What the reset moved back must not be lost once the journal that tells of it is replaced.
    platform::attempt([&] { disk.flush(); });
    platform::attempt([&] { disk.writeFile(humanFile(game), formats::humanText(journal)); });
    platform::attempt([&] { disk.replaceFile(journalFile(game), formats::journalText(journal)); });
    log.stage("Creating Needed Subdirectories...");
    for (const auto& folder : journal.folders) {
        log.line(folder);
        platform::attempt([&] { disk.makeFolder(game.at(folder)); });
        log.breathe();
    }
    log.stage("Moving Files...");
    game.beginMoves();
    std::string line;
    std::string from;
    std::string to;
    for (const auto& move : journal.moves) {
        log.line(line.assign(move.source).append(" to ").append(move.destination));
        game.MoveFile(game.at(move.source, from), game.at(move.destination, to));
        log.breathe();
    }
    if (modifier)
        modifier();
    log.stage("Done");
}

} // namespace cycle
