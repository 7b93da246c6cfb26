// Both texts of the journal, and the reading of the one that counts.
#include "engine/journal.h"

#include <algorithm>

#include "platform/text.h"

namespace engine {
namespace {

constexpr std::string_view foldersHead = "MKDIRS";
constexpr std::string_view movesHead = "MOVES";
// The disk ignores case, so a folder of that name is still found by this line, which no longer
// ends the section of the folders.
constexpr std::string_view movesFolder = "Moves";

void addLine(std::string& text, std::string_view line) {
    text += line;
    text += platform::lineBreak;
}

} // namespace

std::string journalText(const Plan& plan) {
    std::string text;
    addLine(text, foldersHead);
    for (const auto& folder : plan.mkdirs().entries())
        addLine(text, folder == movesHead ? movesFolder : folder);
    addLine(text, movesHead);
    for (const auto& entry : plan.entries()) {
        if (!entry.moves())
            continue;
        addLine(text, entry.fromPath);
        addLine(text, entry.toPath);
    }
    return text;
}

std::string humanText(const Plan& plan) {
    std::string text;
    for (const auto& folder : plan.mkdirs().entries()) {
        addLine(text, " Folder Made If Not Existing:");
        addLine(text, folder);
    }
    for (const auto& entry : plan.entries()) {
        if (!entry.moves())
            continue;
        addLine(text, " Move for " + entry.relName + " " +
                          std::to_string(static_cast<int>(entry.relType)) + ":");
        addLine(text, entry.fromPath + "\t --> \t" + entry.toPath);
    }
    return text;
}

std::optional<Journal> readJournal(std::string_view text) {
    const auto lines = platform::splitLines(text);
    const auto head = std::find(lines.begin(), lines.end(), foldersHead);
    if (head == lines.end())
        return std::nullopt;
    const auto middle = std::find(head + 1, lines.end(), movesHead);
    if (middle == lines.end())
        return std::nullopt;
    Journal journal;
    journal.folders.assign(head + 1, middle);
    for (auto at = middle + 1; at != lines.end() && at + 1 != lines.end(); at += 2)
        journal.moves.push_back({*at, *(at + 1)});
    return journal;
}

} // namespace engine
