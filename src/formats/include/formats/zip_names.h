// Names in zip archives that do not say how they are written.
#pragma once

#include <string>
#include <string_view>

namespace formats {

/// A name as UTF-8 where it is that already, or where its letters are those that old packers of
/// Windows wrote (code page 437). Any other comes back as it is.
std::string readZipName(std::string_view name);

/// The same of a name that was read as code page 437 if it did not say how it is written; one that
/// said so comes back as it is.
std::string readWideZipName(std::wstring_view name);

} // namespace formats
