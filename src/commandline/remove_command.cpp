// What the window asks before it removes a release is asked here too.
#include <algorithm>

#include "cycle/selection_files.h"
#include "platform/failure.h"
#include "platform/text.h"
#include "verbs.h"

namespace commandline {
namespace {

cycle::Owner wanted(const Workspace& work) {
    const auto& info = typeOf(*work.line.type);
    const auto& name = work.line.operands.front();
    if (releases::isDefaultRelease(name))
        throw Stop{failed, "\"" + name + "\" stands for the game as it came, and stays."};
    const auto names = work.store.releasesOf(info.type);
    if (std::ranges::find(names, name) == names.end())
        throw Stop{failed, "There is no " + cycle::Owner{info.type, name}.text() + "."};
    return {info.type, name};
}

void refuseWaitingFiles(const Workspace& work, const cycle::Owner& release) {
    const auto unfinished = work.unfinished();
    for (const auto& place : work.store.placesOf(release.type, release.name))
        if (unfinished.touches(place))
            throw Stop{failed, "Files of \"" + release.name +
                                   "\" could not be moved back from the game directory yet."};
}

/// It is neither chosen nor answered about any more. Sets keep its name, and show it as missing.
void forget(const Workspace& work, const cycle::Owner& release) {
    cycle::Selection selection;
    if (cycle::readSels(work.game, selection).empty() &&
        selection.forget(release.type, release.name))
        cycle::saveSels(work.game, selection);
    cycle::Decisions answers;
    if (!cycle::readAnswers(work.game, answers).empty())
        return;
    const auto before = answers.text();
    answers.forget(release.type, release.name);
    if (answers.text() != before)
        cycle::saveAnswers(work.game, answers);
}

} // namespace

ExitCode remove(Workspace& work) {
    const auto release = wanted(work);
    work.refuseRunningGame();
    work.refuseApplied("the removal of a release");
    refuseWaitingFiles(work, release);
    const bool isSure = work.questions.askWhetherSure(
        "Are you VERY VERY sure you want to remove the " + release.text() +
        "?\r\n\r\nThis is an irreversible operation!");
    if (work.questions.open() > 0)
        throw Stop{wrongUsage, "Nothing was removed. Answer with --yes or --no."};
    if (!isSure)
        throw Stop{failed, "Nothing was removed."};
    const auto removal = work.store.remove(release.type, release.name);
    forget(work, release);
    if (removal.reason.empty())
        return done;
    for (const auto& path : removal.left)
        work.machine.errors << printable(platform::shownPath(path)) << '\n';
    throw Stop{failed, "The " + release.text() + " could not be removed whole.\n" + removal.reason};
}

} // namespace commandline
