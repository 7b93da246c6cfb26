// Text conversion by the system.
#include "system_text.h"

#include <windows.h>

namespace platform::windows {

std::wstring wide(std::string_view utf8) {
    const int size = static_cast<int>(utf8.size());
    std::wstring text(
        static_cast<std::size_t>(MultiByteToWideChar(CP_UTF8, 0, utf8.data(), size, nullptr, 0)),
        L'\0');
    MultiByteToWideChar(CP_UTF8, 0, utf8.data(), size, text.data(), static_cast<int>(text.size()));
    return text;
}

std::string narrow(std::wstring_view text) {
    const int size = static_cast<int>(text.size());
    std::string utf8(static_cast<std::size_t>(WideCharToMultiByte(CP_UTF8, 0, text.data(), size,
                                                                  nullptr, 0, nullptr, nullptr)),
                     '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), size, utf8.data(), static_cast<int>(utf8.size()),
                        nullptr, nullptr);
    return utf8;
}

std::string messageOf(unsigned long error) {
    std::wstring text(512, L'\0');
    text.resize(FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                               error, 0, text.data(), static_cast<DWORD>(text.size()), nullptr));
    while (!text.empty() && (text.back() == L'\n' || text.back() == L'\r' || text.back() == L' '))
        text.pop_back();
    return text.empty() ? "error " + std::to_string(error) : narrow(text);
}

} // namespace platform::windows
