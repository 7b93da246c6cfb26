// A line for each file. A file's path has a backslash in it, so the two words are none.
#include "formats/trellis_notes.h"

#include "platform/relative_path.h"
#include "platform/text.h"

namespace formats {
namespace {

constexpr std::string_view madeLine = "MADE";
constexpr std::string_view lastLine = "END";

} // namespace

std::string trellisNotesText(const TrellisNotes& notes) {
    auto text = platform::joinLines(notes.files);
    if (notes.isMade)
        text.append(madeLine).append(platform::lineBreak);
    return text.append(lastLine).append(platform::lineBreak);
}

TrellisNotesRead readTrellisNotes(std::string_view text) {
    TrellisNotesRead read;
    auto lines = platform::splitLines(text);
    // A line without its end may be the start of another name.
    if (!text.ends_with('\n') && !lines.empty())
        lines.pop_back();
    read.isWhole = !lines.empty() && lines.back() == lastLine && text.ends_with('\n');
    for (auto& line : lines)
        if (line == madeLine)
            read.notes.isMade = true;
        else if (line.find('\\') != std::string::npos &&
                 platform::RelativePath::accepts(line, platform::PathRules::own()))
            read.notes.files.push_back(std::move(line));
    return read;
}

} // namespace formats
