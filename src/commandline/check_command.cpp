// Whether journal, state and selection fit what lies on the disk. Only looks.
#include "cycle/preview.h"
#include "cycle/selection_files.h"
#include "json.h"
#include "verbs.h"

namespace commandline {
namespace {

using Trust = cycle::LastLaunch::Trust;

/// The kinds are for programs: docs/vexillum.6 names them.
struct Finding {
    std::string kind;
    std::string path; ///< relative to the game directory; empty where it is about none
    std::string text;
};

class Check {
  public:
    explicit Check(Workspace& work) : work_(work) {}

    std::vector<Finding> run() {
        checkJournal();
        if (work_.isApplied())
            checkApplied();
        checkPending();
        checkSelection();
        return std::move(findings_);
    }

  private:
    void found(const char* kind, const std::string& path, std::string text) {
        findings_.push_back({kind, path, std::move(text)});
    }

    bool isFile(const std::string& path) const {
        return work_.game.disk().kindOf(work_.game.at(path)) == platform::EntryKind::file;
    }

    void checkJournal() {
        const auto& last = work_.last();
        const auto& game = work_.game.TADir();
        for (const auto* damage : {&last.lostJournal, &last.damagedPending})
            if (*damage)
                found("journal", (*damage)->file.substr(game.size() + 1),
                      "is missing or damaged, so files of the last launch may still lie in the "
                      "game directory");
        if (last.wasRecovered)
            found("journal", "",
                  "The journal was missing or damaged, and is read out of its twin "
                  "\"Human.txt\"");
        if (work_.isApplied() && !last.lostJournal && last.trust == Trust::interrupted)
            found("interrupted", "", "The last launch was cut off: nobody knows how far it came");
    }

    /// Files of a launch that was cut off may lie at either end.
    void checkApplied() {
        const auto& last = work_.last();
        const auto& moves = last.journal.moves;
        for (std::size_t number = 0; number < moves.size(); ++number) {
            const auto& move = moves[number];
            if (last.failedMoves.contains(number))
                found("not-moved", move.source,
                      "could not be moved to \"" + platform::shownPath(move.destination) + "\"");
            else if (!isFile(move.destination) &&
                     (last.trust == Trust::carriedOut || !isFile(move.source)))
                found("missing", move.destination,
                      "is not there, where the last launch has moved \"" +
                          platform::shownPath(move.source) + "\"");
        }
    }

    void checkPending() {
        for (const auto& move : work_.last().pending.moves)
            if (isFile(move.destination))
                found("waiting", move.destination,
                      "waits to be moved back to \"" + platform::shownPath(move.source) + "\"");
            else
                found("missing", move.destination,
                      "was to be moved back to \"" + platform::shownPath(move.source) +
                          "\", and is not there");
    }

    void checkSelection() {
        cycle::Selection selection;
        for (const auto& unread : cycle::readSels(work_.game, selection))
            found("selection", "", "A file of the selection cannot be read: " + unread);
        cycle::Decisions answers;
        if (const auto unread = cycle::readAnswers(work_.game, answers); !unread.empty())
            found("selection", "", "The remembered answers cannot be read: " + unread);
        for (const auto& owner : work_.missing(selection))
            found("not-found", "", "The " + owner.text() + " is selected, but not there");
        checkSets();
        // Over an applied directory there is no plan.
        if (!work_.isApplied())
            checkPlan(selection, answers);
    }

    void checkSets() {
        const cycle::Sets sets(work_.game);
        for (const auto& name : sets.names()) {
            cycle::Set set;
            if (const auto reason = sets.load(name, set); !reason.empty())
                found("set", "", "The set \"" + name + "\" cannot be read: " + reason);
        }
    }

    void checkPlan(const cycle::Selection& selection, const cycle::Decisions& answers) {
        const auto preview =
            cycle::makePreview(work_.game, selection, work_.unfinished(), nullptr, &answers);
        for (const auto& blocked : preview.blocked)
            found("blocked", blocked.to,
                  "is in the way of \"" + platform::shownPath(blocked.from) + "\"");
    }

    Workspace& work_;
    std::vector<Finding> findings_;
};

void printJson(const Workspace& work, const std::vector<Finding>& findings) {
    Json document = {{"directory", shown(work.game.TADir())},
                     {"state", work.state()},
                     {"gameRuns", work.gameRuns()},
                     {"ok", findings.empty()},
                     {"findings", Json::array()}};
    for (const auto& finding : findings)
        document["findings"].push_back({{"kind", finding.kind},
                                        {"path", shown(finding.path)},
                                        {"text", platform::toUtf8(finding.text)}});
    print(work.machine.output, document);
}

void printText(const Workspace& work, const std::vector<Finding>& findings) {
    auto& output = work.machine.output;
    for (const auto& finding : findings) {
        if (!finding.path.empty())
            output << '"' << printable(platform::shownPath(finding.path)) << "\" ";
        output << printable(finding.text) << '\n';
    }
    output << "The game directory is " << work.state() << ". "
           << (findings.empty() ? "All is well." : std::to_string(findings.size()) + " findings.")
           << '\n';
}

} // namespace

ExitCode check(Workspace& work) {
    const auto findings = Check(work).run();
    (work.line.json ? printJson : printText)(work, findings);
    return findings.empty() ? done : failed;
}

} // namespace commandline
