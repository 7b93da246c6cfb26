// Case folding by utf8proc, with a short way for plain ASCII, which nearly all names are.
#include "platform/text.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <span>

#include <utf8proc.h>

namespace platform {
namespace {

bool isPlain(char c) {
    return static_cast<unsigned char>(c) < 0x80;
}

bool isAscii(std::string_view text) {
    return std::all_of(text.begin(), text.end(), isPlain);
}

char foldAscii(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
}

/// How far two texts agree in plain letters, whatever their case.
std::size_t lengthOfPlainHeadAlike(std::string_view a, std::string_view b) {
    const auto most = std::min(a.size(), b.size());
    std::size_t at = 0;
    while (at < most && isPlain(a[at]) && isPlain(b[at]) && foldAscii(a[at]) == foldAscii(b[at]))
        ++at;
    return at;
}

utf8proc_int32_t foldCodePoint(utf8proc_int32_t code) {
    std::array<utf8proc_int32_t, 8> folded{};
    int boundClass = 0;
    const auto count =
        utf8proc_decompose_char(code, folded.data(), folded.size(), UTF8PROC_CASEFOLD, &boundClass);
    if (count == 1)
        return folded[0];
    // Simple folding has no place for a fold to several characters, but most of these letters have
    // a lower case of their own. The capital I with a dot has none.
    constexpr utf8proc_int32_t capitalDottedI = 0x130;
    return code == capitalDottedI ? code : utf8proc_tolower(code);
}

/// Length of the UTF-8 character at the head of `text` and its code, or 0 for no such character.
std::size_t firstCodePoint(std::string_view text, utf8proc_int32_t& code) {
    const auto length = utf8proc_iterate(reinterpret_cast<const utf8proc_uint8_t*>(text.data()),
                                         static_cast<utf8proc_ssize_t>(text.size()), &code);
    return length > 0 ? static_cast<std::size_t>(length) : 0;
}

bool isUtf8(std::string_view text) {
    while (!text.empty()) {
        utf8proc_int32_t code = 0;
        const auto length = firstCodePoint(text, code);
        if (length == 0)
            return false;
        text.remove_prefix(length);
    }
    return true;
}

/// Windows-1252 from 0x80 to 0x9F; the five holes stand for themselves.
constexpr std::array<char32_t, 32> upperControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

} // namespace

std::string foldCase(std::string_view text) {
    std::string folded;
    folded.reserve(text.size());
    if (isAscii(text)) {
        for (const char c : text)
            folded += foldAscii(c);
        return folded;
    }
    while (!text.empty()) {
        utf8proc_int32_t code = 0;
        const auto length = firstCodePoint(text, code);
        if (length == 0) {
            folded += text.front();
            text.remove_prefix(1);
        } else {
            appendCodePoint(folded, static_cast<char32_t>(foldCodePoint(code)));
            text.remove_prefix(length);
        }
    }
    return folded;
}

bool equalIgnoringCase(std::string_view a, std::string_view b) {
    const auto at = lengthOfPlainHeadAlike(a, b);
    if (at == a.size() || at == b.size())
        return a.size() == b.size();
    // Letters fold one by one, so two plain ones that differ settle it whatever follows.
    if (isPlain(a[at]) && isPlain(b[at]))
        return false;
    return foldCase(a.substr(at)) == foldCase(b.substr(at));
}

std::size_t hashIgnoringCase(std::string_view text) {
    // FNV-1a. Some letters fold to plain ASCII, so both ways must hash alike.
    const auto hashOf = [](std::string_view plain) {
        std::uint64_t hash = 0xCBF29CE484222325U;
        for (const char c : plain)
            hash = (hash ^ static_cast<unsigned char>(foldAscii(c))) * 0x100000001B3U;
        return static_cast<std::size_t>(hash);
    };
    return isAscii(text) ? hashOf(text) : hashOf(foldCase(text));
}

bool endsWithIgnoringCase(std::string_view text, std::string_view ending) {
    return text.size() >= ending.size() &&
           equalIgnoringCase(text.substr(text.size() - ending.size()), ending);
}

bool lessIgnoringCase(std::string_view a, std::string_view b) {
    // What both have in common, letter by letter, does not count.
    const auto at = lengthOfPlainHeadAlike(a, b);
    const auto restA = a.substr(at);
    const auto restB = b.substr(at);
    if (restA.empty() || restB.empty() || (isPlain(restA.front()) && isPlain(restB.front()))) {
        if (restA.empty() && restB.empty())
            return a < b;
        if (restA.empty() || restB.empty())
            return restA.empty();
        return foldAscii(restA.front()) < foldAscii(restB.front());
    }
    const auto foldedA = foldCase(restA);
    const auto foldedB = foldCase(restB);
    return foldedA != foldedB ? foldedA < foldedB : a < b;
}

void appendCodePoint(std::string& text, char32_t letter) {
    std::array<utf8proc_uint8_t, 4> bytes{};
    const auto length = utf8proc_encode_char(static_cast<utf8proc_int32_t>(letter), bytes.data());
    for (utf8proc_ssize_t i = 0; i < length; ++i)
        text += static_cast<char>(bytes[static_cast<std::size_t>(i)]);
}

std::string toUtf8(std::string_view bytes) {
    if (isAscii(bytes) || isUtf8(bytes))
        return std::string(bytes);
    std::string text;
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        const bool inTable = byte >= 0x80 && byte < 0xA0;
        appendCodePoint(text, inTable ? upperControls[byte - 0x80U] : char32_t{byte});
    }
    return text;
}

std::string replaceAll(std::string_view text, std::string_view what, std::string_view by) {
    std::string result;
    for (std::size_t at = 0;;) {
        const auto next = text.find(what, at);
        result += text.substr(at, next - at);
        if (next == std::string_view::npos)
            return result;
        result += by;
        at = next + what.size();
    }
}

std::vector<std::string> splitLines(std::string_view bytes) {
    const auto isLineEnd = [](char c) { return c == '\r' || c == '\n'; };
    std::vector<std::string> lines;
    lines.reserve(static_cast<std::size_t>(std::count(bytes.begin(), bytes.end(), '\n')) + 1);
    while (!bytes.empty()) {
        const auto end = static_cast<std::size_t>(
            std::find_if(bytes.begin(), bytes.end(), isLineEnd) - bytes.begin());
        lines.emplace_back(bytes.substr(0, end));
        if (end == bytes.size())
            break;
        const bool pair = bytes.substr(end, 2) == lineBreak;
        bytes.remove_prefix(end + (pair ? 2 : 1));
    }
    return lines;
}

std::string shownList(const std::vector<std::string>& names) {
    constexpr std::size_t most = 20;
    auto text = joinLines(std::span(names).first(std::min(most, names.size())));
    if (names.size() > most)
        text.append("...").append(lineBreak);
    return text;
}

std::string withSeparators(std::uint64_t number) {
    auto text = std::to_string(number);
    for (auto at = text.size(); at > 3;) {
        at -= 3;
        text.insert(at, ",");
    }
    return text;
}

std::string inOneLine(std::string_view text) {
    return replaceAll(replaceAll(text, "\r\n\r\n", " "), lineBreak, " ");
}

std::string withLineBreaks(std::string_view bytes) {
    return joinLines(splitLines(bytes));
}

} // namespace platform
