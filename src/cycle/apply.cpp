// The two halves of the apply: the plan with its questions, then the changes.
#include "cycle/apply.h"

#include "cycle/change_files.h"
#include "formats/state.h"
#include "platform/failure.h"

namespace cycle {
namespace {

using formats::Journal;
using formats::State;

/// The old journal is the only one that tells what still lies in the game directory.
bool mayReplaceJournal(releases::GameDirectory& game, const Unfinished& unfinished) {
    return !unfinished.isJournalLost() ||
           game.questions().askWhetherSure(
               "The journal of the last launch could not be read, so files of that launch may "
               "still lie in the game directory and would be taken for the game's own from now "
               "on.\r\n\r\nDo you want to go on all the same? The old journal is kept in \"" +
               platform::shownPath(changeFile(game, "")) + "\".");
}

/// Throws Failure. What the reset moved back is on the disk before its journal is replaced.
void write(releases::GameDirectory& game, const Journal& journal, const std::string& journalText,
           Unfinished& unfinished) {
    auto& disk = game.disk();
    disk.flush();
    if (!unfinished.isNoted()) {
        if (!unfinished.pending().moves.empty())
            disk.replaceFile(pendingFile(game), formats::pendingText(unfinished.pending()));
        unfinished.setNoted();
    }
    if (unfinished.isJournalLost()) {
        keepBeside(game, journalFile(game));
        keepBeside(game, humanFile(game));
        unfinished.setJournalLost(false);
    }
    disk.replaceFile(humanFile(game), formats::humanText(journal));
    disk.replaceFile(journalFile(game), journalText);
    disk.replaceFile(stateFile(game),
                     formats::stateText(formats::stateOf(journalText, State::Stage::applied)));
}

std::vector<std::size_t> move(releases::GameDirectory& game, const Journal& journal) {
    auto& log = game.log();
    std::vector<std::size_t> failed;
    game.beginMoves();
    std::string line;
    std::string from;
    std::string to;
    std::size_t number = 0;
    for (const auto& move : journal.moves) {
        ++number;
        log.line(line.assign(move.source).append(" to ").append(move.destination));
        if (!game.MoveFile(game.at(move.source, from), game.at(move.destination, to)))
            failed.push_back(number);
        log.progress(number, journal.moves.size());
        log.breathe();
    }
    return failed;
}

Verdict settle(const ClashQuestion& clash, const releases::GameDirectory& game,
               platform::Questions& questions, const Settled& settled, platform::MessageRow& row) {
    platform::Question question{clash.text(), {"Yes", "No"}};
    if (const auto known = knownVerdict(clash, settled.chosen, settled.remembered)) {
        questions.noteAnswered(question, known->isForA ? 0 : 1);
        return *known;
    }
    if (settled.skipsSame && holdSame(clash, game))
        return {true, Why::same};
    const auto a = ownerOf(clash.a);
    const auto b = ownerOf(clash.b);
    bool remember = false;
    // A release that is chosen twice is its own rival.
    if (settled.remembered != nullptr && a != b)
        question.remember = &remember;
    const bool isForA = questions.ask(question, &row) == 0;
    if (remember)
        settled.remembered->decide({clash.a.toPath, isForA ? a : b, isForA ? b : a});
    return isForA;
}

} // namespace

bool holdSame(const ClashQuestion& clash, const releases::GameDirectory& game) {
    bool isSame = false;
    platform::attempt([&] {
        isSame = game.disk().holdSame(game.at(clash.a.fromPath), game.at(clash.b.fromPath));
    });
    return isSame;
}

Listings listingsOf(const releases::GameDirectory& game, const Unfinished& unfinished) {
    return [&](const std::string& path) {
        auto names = game.list(path.empty() ? game.TADir() : game.at(path));
        if (names && !unfinished.pending().moves.empty())
            std::erase_if(names->files, [&](const auto& name) {
                return unfinished.isPending(path.empty() ? name : path + "\\" + name);
            });
        return names;
    };
}

Plan makePlan(const releases::GameDirectory& game, const Selection& selection,
              const Unfinished& unfinished, const Settled& settled) {
    return makePlan(game, listingsOf(game, unfinished), game.questions(), selection, settled);
}

Plan makePlan(const releases::GameDirectory& game, const Listings& listings,
              platform::Questions& questions, const Selection& selection, const Settled& settled) {
    platform::MessageRow clashes;
    platform::MessageRow programs;
    return Plan::make(selection, listings,
                      {[&](const ClashQuestion& question) {
                           return settle(question, game, questions, settled, clashes);
                       },
                       [&](const ExeQuestion& question) {
                           if (const auto known =
                                   knownVerdict(question, settled.chosen, settled.remembered))
                               return known->isForA;
                           return questions.askYesNo(question.text(), &programs);
                       }});
}

bool carryOut(releases::GameDirectory& game, const Journal& journal, Unfinished& unfinished,
              const std::function<void()>& modifier) {
    if (!mayReplaceJournal(game, unfinished))
        return false;
    const auto text = formats::journalText(journal);
    try {
        write(game, journal, text, unfinished);
    } catch (const platform::Failure& failure) {
        game.questions().ask({"The journal of the changes could not be written, so nothing was "
                              "moved.\r\n\r\nPlease make room on the disk or allow writing to \"" +
                                  platform::shownPath(changeFile(game, "")) + "\", and try again.",
                              {"OK"},
                              0,
                              failure.what()});
        return false;
    }
    auto& log = game.log();
    log.stage("Creating Needed Subdirectories...");
    for (const auto& folder : journal.folders) {
        log.line(folder);
        platform::attempt([&] { game.disk().makeFolder(game.at(folder)); });
        log.breathe();
    }
    log.stage("Moving Files...");
    auto state = formats::stateOf(text, State::Stage::applied);
    state.failedMoves = move(game, journal);
    state.isCarriedOut = true;
    // It must not be on the disk ahead of the moves. Without it the next reset looks closer at
    // each.
    platform::attempt([&] {
        game.disk().flush();
        game.disk().replaceFile(stateFile(game), formats::stateText(state));
    });
    if (modifier)
        modifier();
    log.stage("Done");
    return true;
}

} // namespace cycle
