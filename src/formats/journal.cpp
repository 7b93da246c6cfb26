// Both texts of the journal, and the reading of the one that counts.
#include "formats/journal.h"

#include <algorithm>
#include <charconv>
#include <utility>

#include "platform/text.h"

namespace formats {
namespace {

constexpr std::string_view foldersHead = "MKDIRS";
constexpr std::string_view movesHead = "MOVES";
// The disk ignores case, so a folder of that name is still found by this line, which no longer
// ends the section of the folders.
constexpr std::string_view movesFolder = "Moves";

template <typename... Parts>
void addLine(std::string& text, const Parts&... parts) {
    (text.append(parts), ...);
    text.append(platform::lineBreak);
}

/// A little more than its paths take up in a text, so that it grows once.
std::size_t roomFor(const Journal& journal) {
    constexpr std::size_t aroundFolder = 40;
    constexpr std::size_t aroundMove = 40;
    std::size_t room = aroundFolder;
    for (const auto& folder : journal.folders)
        room += folder.size() + aroundFolder;
    for (const auto& move : journal.moves)
        room += move.source.size() + move.destination.size() + move.release.size() + aroundMove;
    return room;
}

constexpr std::string_view humanFolder = " Folder Made If Not Existing:";
constexpr std::string_view humanMove = " Move for ";
constexpr std::string_view arrow = "\t --> \t";
constexpr std::string_view pendingEnd = "END";

using Lines = std::vector<std::string>;

/// The lines that head the two sections; the second is the end where one of them is missing.
std::pair<Lines::iterator, Lines::iterator> headsOf(Lines& lines) {
    const auto head = std::find(lines.begin(), lines.end(), foldersHead);
    return {head, head == lines.end() ? head : std::find(head + 1, lines.end(), movesHead)};
}

/// The name and number of " Move for NAME NUMBER:".
bool readHumanHead(std::string_view line, Journal::Move& move) {
    if (!line.starts_with(humanMove) || !line.ends_with(':'))
        return false;
    line = line.substr(humanMove.size(), line.size() - humanMove.size() - 1);
    const auto cut = line.rfind(' ');
    if (cut == std::string_view::npos)
        return false;
    const auto* end = line.data() + line.size();
    const auto number = std::from_chars(line.data() + cut + 1, end, move.typeNumber);
    move.release = line.substr(0, cut);
    return number.ec == std::errc() && number.ptr == end;
}

bool readHumanMove(std::string_view line, Journal::Move& move) {
    const auto cut = line.find(arrow);
    if (cut == std::string_view::npos)
        return false;
    move.source = line.substr(0, cut);
    move.destination = line.substr(cut + arrow.size());
    return true;
}

} // namespace

std::string journalText(const Journal& journal) {
    std::string text;
    text.reserve(roomFor(journal));
    addLine(text, foldersHead);
    for (const auto& folder : journal.folders)
        addLine(text, folder == movesHead ? movesFolder : folder);
    addLine(text, movesHead);
    for (const auto& move : journal.moves) {
        addLine(text, move.source);
        addLine(text, move.destination);
    }
    return text;
}

std::string humanText(const Journal& journal) {
    std::string text;
    text.reserve(roomFor(journal));
    for (const auto& folder : journal.folders) {
        addLine(text, humanFolder);
        addLine(text, folder);
    }
    for (const auto& move : journal.moves) {
        addLine(text, humanMove, move.release, " ", std::to_string(move.typeNumber), ":");
        addLine(text, move.source, arrow, move.destination);
    }
    return text;
}

std::optional<Journal> readJournal(std::string_view text) {
    auto lines = platform::splitLines(text);
    const auto [head, middle] = headsOf(lines);
    if (middle == lines.end())
        return std::nullopt;
    Journal journal;
    journal.folders.assign(head + 1, middle);
    journal.moves.reserve(static_cast<std::size_t>(lines.end() - middle) / 2);
    for (auto at = middle + 1; at != lines.end() && at + 1 != lines.end(); at += 2)
        journal.moves.push_back({std::move(*at), std::move(*(at + 1)), {}, 0});
    return journal;
}

bool looksWhole(std::string_view journalText) {
    auto lines = platform::splitLines(journalText);
    const auto middle = headsOf(lines).second;
    return middle != lines.end() && journalText.ends_with('\n') && (lines.end() - middle) % 2 == 1;
}

std::optional<Journal> readHuman(std::string_view text) {
    const auto lines = platform::splitLines(text);
    if (lines.size() % 2 != 0 || (!text.empty() && !text.ends_with('\n')))
        return std::nullopt;
    Journal journal;
    for (auto line = lines.begin(); line != lines.end(); line += 2) {
        Journal::Move move;
        if (*line == humanFolder)
            journal.folders.push_back(*(line + 1));
        else if (readHumanHead(*line, move) && readHumanMove(*(line + 1), move))
            journal.moves.push_back(std::move(move));
        else
            return std::nullopt;
    }
    return journal;
}

std::string pendingText(const Journal& pending) {
    auto text = journalText(pending);
    addLine(text, pendingEnd);
    return text;
}

PendingRead readPending(std::string_view text) {
    const auto lines = platform::splitLines(text);
    const bool hasEnd = !lines.empty() && lines.back() == pendingEnd && text.ends_with('\n');
    const auto body = hasEnd ? text.substr(0, text.rfind(pendingEnd)) : text;
    const auto read = readJournal(body);
    return {read.value_or(Journal()), hasEnd && looksWhole(body)};
}

} // namespace formats
