// Whether journal, state and selection fit what lies on the disk. Only looks.
#include <iterator>

#include "archive_check.h"
#include "cycle/preview.h"
#include "cycle/selection_files.h"
#include "verbs.h"

namespace commandline {
namespace {

using Trust = cycle::LastLaunch::Trust;

class Check {
  public:
    explicit Check(Workspace& work) : work_(work) {}

    void run() {
        checkJournal();
        if (work_.isApplied())
            checkApplied();
        checkPending();
        checkSelection();
        checkArchives();
    }

    const std::vector<Finding>& findings() const { return findings_; }
    const conflict::ArchiveReports& reports() const { return reports_; }

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
        for (const auto& unread : cycle::readSels(work_.game, selection_))
            found("selection", "", "A file of the selection cannot be read: " + unread);
        cycle::Decisions answers;
        if (const auto unread = cycle::readAnswers(work_.game, answers); !unread.empty())
            found("selection", "", "The remembered answers cannot be read: " + unread);
        for (const auto& owner : work_.missing(selection_))
            found("not-found", "", "The " + owner.text() + " is selected, but not there");
        checkSets();
        // Over an applied directory there is no plan.
        if (work_.isApplied())
            archives_ = appliedArchives(work_);
        else
            checkPlan(answers);
    }

    void checkSets() {
        const cycle::Sets sets(work_.game);
        for (const auto& name : sets.names()) {
            cycle::Set set;
            if (const auto reason = sets.load(name, set); !reason.empty())
                found("set", "", "The set \"" + name + "\" cannot be read: " + reason);
        }
    }

    void checkPlan(const cycle::Decisions& answers) {
        const auto preview =
            cycle::makePreview(work_.game, selection_, work_.unfinished(), nullptr, &answers);
        for (const auto& blocked : preview.blocked)
            found("blocked", blocked.to,
                  "is in the way of \"" + platform::shownPath(blocked.from) + "\"");
        archives_ = conflict::archivesOf(work_.game, preview);
    }

    /// Every file is unpacked: the damage may be anywhere.
    void checkArchives() {
        platform::NoLog quiet;
        reports_ = conflict::reportOnArchives(work_.game.disk(), archives_, quiet,
                                              {selection_.modifier.compress, true});
        auto more = findingsOf(reports_, selection_.modifier.enabled);
        std::ranges::move(more, std::back_inserter(findings_));
    }

    Workspace& work_;
    cycle::Selection selection_;
    std::vector<conflict::ChosenArchive> archives_;
    std::vector<Finding> findings_;
    conflict::ArchiveReports reports_;
};

void printJson(const Workspace& work, const Check& check) {
    const auto& findings = check.findings();
    Json document = {{"directory", shown(work.game.TADir())},
                     {"state", work.state()},
                     {"gameRuns", work.gameRuns()},
                     {"ok", findings.empty()},
                     {"findings", Json::array()},
                     {"archives", jsonOf(check.reports())}};
    for (const auto& finding : findings)
        document["findings"].push_back({{"kind", finding.kind},
                                        {"path", shown(finding.path)},
                                        {"text", platform::toUtf8(finding.text)}});
    print(work.machine.output, document);
}

void printText(const Workspace& work, const Check& check) {
    const auto& findings = check.findings();
    auto& output = work.machine.output;
    for (const auto& finding : findings) {
        if (!finding.path.empty())
            output << '"' << printable(platform::shownPath(finding.path)) << "\" ";
        output << printable(finding.text) << '\n';
    }
    output << "The game directory is " << work.state() << ". "
           << (findings.empty() ? "All is well."
                                : std::to_string(findings.size()) +
                                      (findings.size() == 1 ? " finding." : " findings."))
           << '\n';
}

} // namespace

ExitCode check(Workspace& work) {
    Check all(work);
    all.run();
    (work.line.json ? printJson : printText)(work, all);
    return all.findings().empty() ? done : failed;
}

} // namespace commandline
