// What a launch would do with the game directory, without doing any of it.
#include <utility>

#include "cycle/apply.h"
#include "cycle/preview.h"
#include "json.h"
#include "verbs.h"

namespace commandline {
namespace {

struct Told {
    cycle::Preview preview;
    std::vector<cycle::Owner> missing;
    std::vector<std::string> questions;
};

std::string wordOf(cycle::Why why) {
    switch (why) {
    case cycle::Why::remembered:
    case cycle::Why::chosen:
    case cycle::Why::answered:
        return "remembered";
    case cycle::Why::same:
        return "same";
    case cycle::Why::chosenAsGame:
        return "game";
    case cycle::Why::open:
        break;
    }
    return "open";
}

cycle::Owner ownerOf(const formats::Journal::Move& move) {
    return {static_cast<releases::ReleaseType>(move.typeNumber),
            releases::displayForm(move.release)};
}

template <typename Visit>
void eachRival(const cycle::Preview& preview, Visit&& visit) {
    for (const auto& file : preview.files)
        for (const auto& rival : file.rivals)
            visit(file, rival);
}

std::uint64_t conflictsOf(const cycle::Preview& preview) {
    return static_cast<std::uint64_t>(preview.conflicts());
}

void printJson(const Workspace& work, const Told& told) {
    const auto& preview = told.preview;
    Json document = {{"files", preview.files.size()},    {"bytes", preview.size()},
                     {"displaced", preview.displaced()}, {"newFolders", Json::array()},
                     {"moves", Json::array()},           {"conflicts", Json::array()},
                     {"programs", Json::array()},        {"questions", Json::array()},
                     {"blocked", Json::array()},         {"missing", Json::array()}};
    for (const auto& folder : preview.newFolders)
        document["newFolders"].push_back(shown(folder));
    for (const auto& move : preview.journal.moves)
        document["moves"].push_back({{"from", shown(move.source)},
                                     {"to", shown(move.destination)},
                                     {"owner", jsonOf(ownerOf(move))}});
    eachRival(preview, [&](const auto& file, const auto& rival) {
        Json row = {{"path", shown(file.path)},
                    {"winner", jsonOf(rival.lostTo)},
                    {"loser", jsonOf(rival.owner)},
                    {"loserFile", shown(rival.path)},
                    {"why", wordOf(rival.why)}};
        if (!rival.waitsAt.empty())
            row["waitsAt"] = shown(rival.waitsAt);
        document["conflicts"].push_back(std::move(row));
    });
    for (const auto& question : told.questions)
        document["questions"].push_back(
            platform::replaceAll(platform::toUtf8(question), platform::lineBreak, "\n"));
    for (const auto& blocked : preview.blocked)
        document["blocked"].push_back({{"from", shown(blocked.from)},
                                       {"to", shown(blocked.to)},
                                       {"owner", jsonOf(blocked.owner)}});
    for (const auto& owner : told.missing)
        document["missing"].push_back(jsonOf(owner));
    print(work.machine.output, document);
}

void printText(const Workspace& work, const Told& told) {
    auto& output = work.machine.output;
    const auto& preview = told.preview;
    const auto figure = [&](const char* name, std::uint64_t count) {
        output << name << ": " << platform::withSeparators(count) << '\n';
    };
    const auto path = [](const std::string& text) { return printable(platform::shownPath(text)); };
    const auto head = [&](const char* text, bool hasRows) {
        if (hasRows)
            output << '\n' << text << ":\n";
    };
    figure("Files", preview.files.size());
    figure("Bytes", preview.size());
    figure("Moves", preview.journal.moves.size());
    figure("Files of the game that make room", static_cast<std::uint64_t>(preview.displaced()));
    figure("Conflicts", conflictsOf(preview));
    figure("Questions", told.questions.size());
    head("Moves", !preview.journal.moves.empty());
    for (const auto& move : preview.journal.moves)
        output << "  " << path(move.source) << " -> " << path(move.destination) << '\n';
    bool hasRivals = false;
    eachRival(preview, [&](const auto& file, const auto& rival) {
        head("Conflicts", !std::exchange(hasRivals, true));
        output << "  " << path(file.path) << ": " << printable(named(rival.lostTo)) << " over "
               << printable(named(rival.owner)) << " (" << wordOf(rival.why) << ")\n";
    });
    head("Questions", !told.questions.empty());
    for (const auto& question : told.questions)
        output << "  " << printable(platform::inOneLine(question)) << '\n';
    head("Moves that will fail, since something is in their way", !preview.blocked.empty());
    for (const auto& blocked : preview.blocked)
        output << "  " << path(blocked.from) << " -> " << path(blocked.to) << '\n';
    head("Selected, but not found", !told.missing.empty());
    for (const auto& owner : told.missing)
        output << "  " << printable(owner.text()) << '\n';
}

} // namespace

ExitCode plan(Workspace& work) {
    work.refuseApplied("a plan");
    work.tellOfDamage();
    auto selected = work.selected();
    Told told;
    told.missing = cycle::takeOutMissing(selected.selection, work.store);
    const auto unfinished = work.unfinished();
    told.preview =
        cycle::makePreview(work.game, selected.selection, unfinished, nullptr, &selected.answers);
    QuestionList questions;
    cycle::makePlan(work.game, cycle::listingsOf(work.game, unfinished), questions,
                    selected.selection, {nullptr, &selected.answers});
    told.questions = questions.texts();
    (work.line.json ? printJson : printText)(work, told);
    return work.questions.told() == 0 ? done : failed;
}

} // namespace commandline
