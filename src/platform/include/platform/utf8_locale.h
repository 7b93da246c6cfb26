// For libraries that go by the locale of the C library: names as UTF-8.
#pragma once

#include <locale.h>

namespace platform {

/// While it lives, this thread's locale has UTF-8 for its encoding. In the plainest one most names
/// would not come through at all. Without effect on Windows, where those libraries have calls for
/// wide names.
class Utf8Locale {
  public:
#ifdef _WIN32
    Utf8Locale() = default;
#else
    Utf8Locale() {
        if (const auto own = shared())
            before_ = ::uselocale(own);
    }
    ~Utf8Locale() {
        if (before_ != nullptr)
            ::uselocale(before_);
    }
#endif
    Utf8Locale(const Utf8Locale&) = delete;
    Utf8Locale& operator=(const Utf8Locale&) = delete;

  private:
#ifndef _WIN32
    /// Made once: it is read out of files.
    static locale_t shared() {
        static const auto own = ::newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
        return own;
    }

    locale_t before_ = nullptr;
#endif
};

} // namespace platform
