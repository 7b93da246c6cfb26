// A launch without a window. All that it would ask is known, and answered, before the first change.
#include <algorithm>
#include <chrono>
#include <memory>
#include <ostream>
#include <thread>
#include <utility>

#include "cycle/after_reset.h"
#include "cycle/apply.h"
#include "cycle/selection_files.h"
#include "menumod/modifier_step.h"
#include "platform/failure.h"
#include "verbs.h"

namespace commandline {
namespace {

constexpr auto howToAnswer = "Nothing was changed. Answer with --yes or --no.";

/// What would be asked, worked out over what the reset will leave.
void refuseOpenQuestions(const Workspace& work, const cycle::Set& selected) {
    if (work.line.answer)
        return;
    if (work.last().lostJournal)
        throw Stop{wrongUsage, "The journal of the last launch could not be read: whether to go on "
                               "all the same is a question.\n" +
                                   std::string(howToAnswer)};
    const auto listings = cycle::listingsAfterReset(work.game, work.last());
    if (!listings)
        throw Stop{wrongUsage,
                   "Files of the last launch lie in the game directory, and not all of them as it "
                   "left them. So nobody can tell yet what this launch would ask.\n" +
                       std::string(howToAnswer) + " Or use --reset first."};
    QuestionList questions;
    auto answers = selected.answers;
    cycle::makePlan(work.game, *listings, questions, selected.selection, {nullptr, &answers});
    if (questions.texts().empty())
        return;
    for (const auto& question : questions.texts())
        work.machine.errors << printable(question) << "\n\n";
    throw Stop{wrongUsage, howToAnswer};
}

/// A loose file that could not be moved back is not where it should be, but nobody has removed it.
void leaveOutMissing(Workspace& work, cycle::Selection& selection,
                     const cycle::Unfinished& unfinished) {
    auto found = selection;
    bool isAnyWaiting = false;
    for (const auto& owner : cycle::takeOutMissing(found, work.store)) {
        const auto places = work.store.placesOf(owner.type, owner.name);
        if (std::ranges::any_of(places, [&](const auto& at) { return unfinished.touches(at); })) {
            isAnyWaiting = true;
            continue;
        }
        work.questions.warn("The " + owner.text() +
                            " is listed as selected but could not be found.");
        selection.forget(owner.type, owner.name);
    }
    if (!isAnyWaiting)
        selection = std::move(found);
}

/// From the selection to the state of the game directory. Throws Stop where nothing was moved.
void moveFiles(Workspace& work, cycle::Set& selected) {
    work.refuseRunningGame();
    refuseOpenQuestions(work, selected);
    auto unfinished = work.reset();
    leaveOutMissing(work, selected.selection, unfinished);
    const auto journal =
        cycle::makePlan(work.game, selected.selection, unfinished, {nullptr, &selected.answers})
            .journal();
    if (work.questions.open() > 0)
        throw Stop{failed,
                   "The game directory could not be made plain, and now there are questions "
                   "that neither --yes nor --no answers. No release was moved."};
    auto& modifier = selected.selection.modifier;
    std::string problem;
    const auto runModifier = [&] {
        auto outcome = menumod::runModifier(work.game, {modifier.compress, modifier.small});
        modifier.enabled = outcome.isOn;
        problem = std::move(outcome.problem);
    };
    if (!cycle::carryOut(work.game, journal, unfinished,
                         modifier.enabled ? std::function<void()>(runModifier) : nullptr))
        throw Stop{failed, "No release was moved."};
    if (!problem.empty())
        work.questions.warn(problem);
}

void save(Workspace& work, const cycle::Set& selected) {
    try {
        cycle::saveSels(work.game, selected.selection);
        if (!work.line.operands.empty() && work.answersWereRead())
            cycle::saveAnswers(work.game, selected.answers);
    } catch (const platform::Failure& failure) {
        work.questions.warn(std::string("The selection could not be saved.\r\n\r\n") +
                            failure.what());
    }
}

/// Null where it could not be started, or is not to be waited for.
std::unique_ptr<platform::RunningProgram> startGame(Workspace& work) {
    platform::Command game{platform::Command::Kind::program, work.game.at(releases::gameProgram),
                           "", platform::StartWindow::normal};
    if (const auto unread = cycle::readWrapper(work.game, game.wrapper); !unread.empty())
        work.questions.warn("What the game is to be started with could not be read, so it starts "
                            "alone: " +
                            unread);
    try {
        if (work.line.wait)
            return work.machine.programs.startWatched(game);
        work.machine.programs.start(game);
    } catch (const platform::Failure& failure) {
        work.questions.warn("The program \"" + std::string(releases::gameProgram) +
                            "\" could not be started.\r\n\r\n" + failure.what());
    }
    return nullptr;
}

/// The user may have started the game once more, by other means.
void waitForEnd(Workspace& work, platform::RunningProgram& game) {
    constexpr auto betweenLooks = std::chrono::milliseconds(250);
    work.machine.output << "The game is running." << std::endl;
    while (game.isRunning() || work.gameRuns())
        std::this_thread::sleep_for(betweenLooks);
}

} // namespace

ExitCode apply(Workspace& work) {
    auto selected = work.selected();
    moveFiles(work, selected);
    save(work, selected);
    return work.questions.told() == 0 ? done : failed;
}

/// Whatever becomes of this program while it waits, the next start finds what a launch leaves
/// without it.
ExitCode launch(Workspace& work) {
    auto selected = work.selected();
    moveFiles(work, selected);
    save(work, selected);
    const auto game = startGame(work);
    if (game)
        waitForEnd(work, *game);
    if (work.line.wait)
        work.reset();
    return work.questions.told() == 0 ? done : failed;
}

} // namespace commandline
