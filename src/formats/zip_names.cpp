// Before zips could say that their names are UTF-8, they had those of the packer's own code page.
#include "formats/zip_names.h"

#include <algorithm>

#include "platform/text.h"

namespace formats {
namespace {

constexpr unsigned char firstHigh = 0x80;

/// Code page 437 from 0x80 on.
constexpr std::u16string_view highHalf = u"\u00C7\u00FC\u00E9\u00E2\u00E4\u00E0\u00E5\u00E7\u00EA"
                                         u"\u00EB\u00E8\u00EF\u00EE\u00EC\u00C4\u00C5"
                                         u"\u00C9\u00E6\u00C6\u00F4\u00F6\u00F2\u00FB\u00F9\u00FF"
                                         u"\u00D6\u00DC\u00A2\u00A3\u00A5\u20A7\u0192"
                                         u"\u00E1\u00ED\u00F3\u00FA\u00F1\u00D1\u00AA\u00BA\u00BF"
                                         u"\u2310\u00AC\u00BD\u00BC\u00A1\u00AB\u00BB"
                                         u"\u2591\u2592\u2593\u2502\u2524\u2561\u2562\u2556\u2555"
                                         u"\u2563\u2551\u2557\u255D\u255C\u255B\u2510"
                                         u"\u2514\u2534\u252C\u251C\u2500\u253C\u255E\u255F\u255A"
                                         u"\u2554\u2569\u2566\u2560\u2550\u256C\u2567"
                                         u"\u2568\u2564\u2565\u2559\u2558\u2552\u2553\u256B\u256A"
                                         u"\u2518\u250C\u2588\u2584\u258C\u2590\u2580"
                                         u"\u03B1\u00DF\u0393\u03C0\u03A3\u03C3\u00B5\u03C4\u03A6"
                                         u"\u0398\u03A9\u03B4\u221E\u03C6\u03B5\u2229"
                                         u"\u2261\u00B1\u2265\u2264\u2320\u2321\u00F7\u2248\u00B0"
                                         u"\u2219\u00B7\u221A\u207F\u00B2\u25A0\u00A0";

char16_t letterOf(char byte) {
    return highHalf[static_cast<unsigned char>(byte) - firstHigh];
}

bool isHigh(char byte) {
    return static_cast<unsigned char>(byte) >= firstHigh;
}

/// What other code pages have for letters are mostly lines and signs in this one.
bool isOldLetter(char byte) {
    constexpr unsigned char lastOfFirst = 0x9A;
    constexpr unsigned char firstVowel = 0xA0;
    constexpr unsigned char lastVowel = 0xA5;
    constexpr unsigned char sharpS = 0xE1;
    const auto value = static_cast<unsigned char>(byte);
    return value <= lastOfFirst || (value >= firstVowel && value <= lastVowel) || value == sharpS;
}

/// Empty if it has no byte for one of the letters.
std::string inOldCodePage(std::wstring_view text) {
    std::string bytes;
    for (const auto letter : text) {
        const auto at = highHalf.find(static_cast<char16_t>(letter));
        if (letter < firstHigh)
            bytes += static_cast<char>(letter);
        else if (at != std::wstring_view::npos)
            bytes += static_cast<char>(firstHigh + at);
        else
            return {};
    }
    return bytes;
}

std::string toUtf8(std::wstring_view text) {
    constexpr char32_t firstPair = 0xD800;
    constexpr char32_t firstSecond = 0xDC00;
    constexpr char32_t pairs = 0x10000;
    constexpr unsigned halfBits = 10;
    std::string utf8;
    for (std::size_t i = 0; i < text.size(); ++i) {
        auto letter = static_cast<char32_t>(text[i]);
        const bool isPair = letter >= firstPair && letter < firstSecond && i + 1 < text.size();
        if (isPair)
            letter = pairs + ((letter - firstPair) << halfBits) +
                     (static_cast<char32_t>(text[++i]) - firstSecond);
        platform::appendCodePoint(utf8, letter);
    }
    return utf8;
}

} // namespace

std::string readZipName(std::string_view name) {
    const bool isUtf8 = platform::toUtf8(name) == name;
    if (isUtf8 ||
        !std::all_of(name.begin(), name.end(), [](char c) { return !isHigh(c) || isOldLetter(c); }))
        return std::string(name);
    std::string text;
    for (const char c : name)
        if (isHigh(c))
            platform::appendCodePoint(text, letterOf(c));
        else
            text += c;
    return text;
}

std::string readWideZipName(std::wstring_view name) {
    const auto bytes = inOldCodePage(name);
    return !bytes.empty() && platform::toUtf8(bytes) == bytes ? bytes : toUtf8(name);
}

} // namespace formats
