// Byte strings as text: case, line ends and what a person gets to see of them.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

/// The line break of every text that the program builds or writes.
inline constexpr std::string_view lineBreak = "\r\n";

/// Case taken away letter by letter, by Unicode simple folding. Bytes that are not UTF-8 stay as
/// they are. For comparing and looking up: nobody is to see it.
std::string foldCase(std::string_view text);

bool equalIgnoringCase(std::string_view a, std::string_view b);
bool endsWithIgnoringCase(std::string_view text, std::string_view ending);

/// Texts that are equal whatever their case have the same hash.
std::size_t hashIgnoringCase(std::string_view text);

/// The order of every listing: ascending, case ignored; names that differ in case alone by bytes.
bool lessIgnoringCase(std::string_view a, std::string_view b);

/// What a person sees: the bytes themselves where they are UTF-8, else read as Windows-1252. Never
/// to be written back: no byte is changed between disk and disk.
std::string toUtf8(std::string_view bytes);

/// Appends a letter as UTF-8.
void appendCodePoint(std::string& text, char32_t letter);

/// From left to right; what was put in is not looked at again. `what` must not be empty.
std::string replaceAll(std::string_view text, std::string_view what, std::string_view by);

/// The lines of a text file. CR LF, LF or CR ends a line; a last line without an end counts.
std::vector<std::string> splitLines(std::string_view bytes);

/// The lines of a list as a text: the line break stands behind each, the last one too.
template <typename Lines>
std::string joinLines(const Lines& lines) {
    std::string text;
    for (const auto& line : lines) {
        text += line;
        text += lineBreak;
    }
    return text;
}

/// Names for a message, a line each, with a limit to what a person would read.
std::string shownList(const std::vector<std::string>& names);

/// A number as people read it: "1,234".
std::string withSeparators(std::uint64_t number);

/// A message as one line of a log: line breaks and blank lines become a blank.
std::string inOneLine(std::string_view text);

/// The lines of a text, however they end there, each with a line break of the program's own.
std::string withLineBreaks(std::string_view bytes);

} // namespace platform
