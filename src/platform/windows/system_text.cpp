// The system converts; only what it refuses is taken letter by letter.
#include "system_text.h"

#include <cstdint>

#include <windows.h>

namespace platform::windows {
namespace {

constexpr std::uint32_t firstSurrogate = 0xD800;
constexpr std::uint32_t lastSurrogate = 0xDFFF;
/// A surrogate as if it were a letter: three bytes, the first of which is always the same.
constexpr unsigned char surrogateHead = 0xED;
constexpr std::size_t surrogateSize = 3;
constexpr std::uint32_t tailMark = 0x80;
constexpr std::uint32_t tailMask = 0x3F;
constexpr unsigned tailBits = 6;

bool isSurrogate(wchar_t letter) {
    return letter >= firstSurrogate && letter <= lastSurrogate;
}

std::optional<std::wstring> convert(std::string_view utf8, DWORD flags) {
    if (utf8.empty())
        return std::wstring();
    const int size = static_cast<int>(utf8.size());
    const int length = MultiByteToWideChar(CP_UTF8, flags, utf8.data(), size, nullptr, 0);
    if (length <= 0)
        return std::nullopt;
    std::wstring text(static_cast<std::size_t>(length), L'\0');
    MultiByteToWideChar(CP_UTF8, flags, utf8.data(), size, text.data(), length);
    return text;
}

std::string convert(std::wstring_view text) {
    if (text.empty())
        return {};
    const int size = static_cast<int>(text.size());
    const int length =
        WideCharToMultiByte(CP_UTF8, 0, text.data(), size, nullptr, 0, nullptr, nullptr);
    std::string utf8(static_cast<std::size_t>(length), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), size, utf8.data(), length, nullptr, nullptr);
    return utf8;
}

/// The surrogate that three bytes stand for; 0 if it is none.
wchar_t surrogateIn(std::string_view bytes) {
    if (bytes.size() < surrogateSize || static_cast<unsigned char>(bytes[0]) != surrogateHead)
        return 0;
    const auto second = static_cast<unsigned char>(bytes[1]);
    const auto third = static_cast<unsigned char>(bytes[2]);
    if ((second & ~tailMask & 0xFFU) != tailMark || (third & ~tailMask & 0xFFU) != tailMark)
        return 0;
    const auto letter = static_cast<wchar_t>((surrogateHead & 0xFU) << (2 * tailBits) |
                                             (second & tailMask) << tailBits | (third & tailMask));
    return isSurrogate(letter) ? letter : L'\0';
}

} // namespace

std::optional<std::wstring> toWide(std::string_view utf8) {
    if (auto text = convert(utf8, MB_ERR_INVALID_CHARS))
        return text;
    std::wstring text;
    std::size_t start = 0;
    for (std::size_t i = 0; i <= utf8.size(); ++i) {
        const auto letter = surrogateIn(utf8.substr(i));
        if (letter == 0 && i < utf8.size())
            continue;
        const auto part = convert(utf8.substr(start, i - start), MB_ERR_INVALID_CHARS);
        if (!part)
            return std::nullopt;
        text += *part;
        if (letter != 0) {
            text += letter;
            i += surrogateSize - 1;
        }
        start = i + 1;
    }
    return text;
}

std::wstring wide(std::string_view utf8) {
    return toWide(utf8).value_or(convert(utf8, 0).value_or(std::wstring()));
}

std::string narrow(std::wstring_view text) {
    std::string utf8;
    std::size_t start = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (!isSurrogate(text[i]))
            continue;
        if (i + 1 < text.size() && IS_SURROGATE_PAIR(text[i], text[i + 1])) {
            ++i;
            continue;
        }
        utf8 += convert(text.substr(start, i - start));
        utf8 += static_cast<char>(surrogateHead);
        utf8 += static_cast<char>(tailMark | (text[i] >> tailBits & tailMask));
        utf8 += static_cast<char>(tailMark | (text[i] & tailMask));
        start = i + 1;
    }
    return utf8 + convert(text.substr(start));
}

std::string messageOf(unsigned long error) {
    constexpr std::size_t longest = 512;
    std::wstring text(longest, L'\0');
    text.resize(FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                               error, 0, text.data(), static_cast<DWORD>(text.size()), nullptr));
    while (!text.empty() && (text.back() == L'\n' || text.back() == L'\r' || text.back() == L' '))
        text.pop_back();
    return text.empty() ? "error " + std::to_string(error) : narrow(text);
}

} // namespace platform::windows
