// Raw paths are taken by the letter: nothing in them may be relative.
#include "paths.h"

#include <algorithm>

#include <windows.h>

#include "system_text.h"

namespace platform::windows {
namespace {

constexpr std::wstring_view rawHead = LR"(\\?\)";
constexpr std::wstring_view rawShareHead = LR"(\\?\UNC\)";
constexpr std::wstring_view shareHead = LR"(\\)";

} // namespace

std::wstring plainForm(std::wstring_view path) {
    if (path.starts_with(rawShareHead))
        return std::wstring(shareHead) + std::wstring(path.substr(rawShareHead.size()));
    return std::wstring(path.starts_with(rawHead) ? path.substr(rawHead.size()) : path);
}

std::wstring rawForm(std::string_view path) {
    auto text = toWide(path).value_or(std::wstring());
    std::replace(text.begin(), text.end(), L'/', L'\\');
    if (text.empty() || text.starts_with(rawHead))
        return text;
    if (text.starts_with(shareHead))
        return std::wstring(rawShareHead) + text.substr(shareHead.size());
    if (text.front() == L'\\') {
        wchar_t drive[MAX_PATH] = {};
        if (GetFullPathNameW(L"\\", MAX_PATH, drive, nullptr) == 0)
            return {};
        text = std::wstring(drive) + text.substr(1);
    }
    constexpr std::size_t driveLength = 2;
    if (text.size() == driveLength)
        text += L'\\';
    return std::wstring(rawHead) + text;
}

} // namespace platform::windows
