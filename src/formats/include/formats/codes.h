// Compatibility codes: a release and a total conversion that share one are meant for each other.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace formats {

/// The codes of a file: every line is one, nothing is trimmed or left out, so a blank line is an
/// empty code. An empty file has none.
std::vector<std::string> readCodes(std::string_view bytes);

/// What a file of codes shows as in one line: a blank behind each.
std::string shownCodes(const std::vector<std::string>& codes);

/// A file for codes that a person has typed, set off by blanks. Two blanks in a row make an empty
/// code, and so does a blank at either end.
std::string codesText(std::string_view typed);

/// Whether a release with codes fits a total conversion with codes, as sets, case ignored. "*" and
/// "any" fit all, but only where a release has them. A conversion without codes takes everything;
/// an empty code of a release fits any conversion. A release with an empty file
/// fits none that has some; one without a file is not to be asked about here.
bool areCompatible(const std::vector<std::string>& release,
                   const std::vector<std::string>& conversion);

} // namespace formats
