// Statements end at a semicolon, a brace or the line's end: people write several in one line.
#include "formats/unit_file.h"

#include <algorithm>

#include "platform/text.h"

namespace formats {
namespace {

constexpr std::string_view folder = "units\\";
constexpr std::string_view ending = ".fbi";
constexpr std::string_view key = "unitname";
constexpr std::size_t longestName = 255;

std::string_view trimmed(std::string_view text) {
    constexpr std::string_view blanks = " \t";
    text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
    return text.substr(0, text.find_last_not_of(blanks) + 1);
}

/// Cuts what stands ahead of the next end of a statement.
std::string_view cutStatement(std::string_view& text) {
    const auto end = std::min(text.find_first_of(";{}]\r\n"), text.size());
    const auto statement = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    return statement;
}

std::string withoutComments(std::string_view text) {
    std::string plain;
    for (std::size_t at = 0; at < text.size();) {
        const auto start = std::min(text.find('/', at), text.size());
        plain += text.substr(at, start - at);
        const auto mark = text.substr(start, 2);
        if (mark == "//") {
            at = std::min(text.find_first_of("\r\n", start), text.size());
        } else if (mark == "/*") {
            const auto end = text.find("*/", start + 2);
            at = end == std::string_view::npos ? text.size() : end + 2;
        } else {
            plain += text.substr(start, 1);
            at = start + 1;
        }
    }
    return plain;
}

bool isName(std::string_view text) {
    return !text.empty() && text.size() <= longestName &&
           std::ranges::none_of(text, [](char c) { return static_cast<unsigned char>(c) < ' '; });
}

} // namespace

bool isUnitFile(std::string_view path) {
    return platform::equalIgnoringCase(path.substr(0, folder.size()), folder) &&
           path.find('\\', folder.size()) == std::string_view::npos &&
           platform::endsWithIgnoringCase(path, ending);
}

std::optional<std::string> unitNameIn(std::string_view text) {
    const auto plain = withoutComments(text);
    for (std::string_view rest = plain; !rest.empty();) {
        const auto statement = cutStatement(rest);
        const auto equals = statement.find('=');
        if (equals == std::string_view::npos ||
            !platform::equalIgnoringCase(trimmed(statement.substr(0, equals)), key))
            continue;
        const auto name = trimmed(statement.substr(equals + 1));
        return isName(name) ? std::optional(std::string(name)) : std::nullopt;
    }
    return std::nullopt;
}

} // namespace formats
