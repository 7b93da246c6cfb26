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

void carryOut(releases::GameDirectory& game, const Plan& plan,
              const std::function<void()>& modifier) {
    auto& disk = game.disk();
    auto& log = game.log();
    const auto journal = plan.journal();
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
    for (const auto& move : journal.moves) {
        log.line(move.source + " to " + move.destination);
        game.MoveFile(game.at(move.source), game.at(move.destination));
        log.breathe();
    }
    if (modifier)
        modifier();
    log.stage("Done");
}

} // namespace cycle
