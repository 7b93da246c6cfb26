// Both texts of the journal, and the reading of the one that counts.
#include "formats/journal.h"

#include <algorithm>
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
        addLine(text, " Folder Made If Not Existing:");
        addLine(text, folder);
    }
    for (const auto& move : journal.moves) {
        addLine(text, " Move for ", move.release, " ", std::to_string(move.typeNumber), ":");
        addLine(text, move.source, "\t --> \t", move.destination);
    }
    return text;
}

std::optional<Journal> readJournal(std::string_view text) {
    auto lines = platform::splitLines(text);
    const auto head = std::find(lines.begin(), lines.end(), foldersHead);
    if (head == lines.end())
        return std::nullopt;
    const auto middle = std::find(head + 1, lines.end(), movesHead);
    if (middle == lines.end())
        return std::nullopt;
    Journal journal;
    journal.folders.assign(head + 1, middle);
    journal.moves.reserve(static_cast<std::size_t>(lines.end() - middle) / 2);
    for (auto at = middle + 1; at != lines.end() && at + 1 != lines.end(); at += 2)
        journal.moves.push_back({std::move(*at), std::move(*(at + 1)), {}, 0});
    return journal;
}

} // namespace formats
