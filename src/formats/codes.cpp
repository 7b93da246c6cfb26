// Codes are compared as people would: whatever their case and whatever encoding a file is in.
#include "formats/codes.h"

#include <algorithm>

#include "platform/text.h"

namespace formats {
namespace {

bool isWildcard(const std::string& code) {
    return code == "*" || platform::equalIgnoringCase(code, "any");
}

/// Codes may be in one encoding in the conversion and in another in the release.
bool isSame(const std::string& code, const std::string& other) {
    return platform::equalIgnoringCase(platform::toUtf8(code), platform::toUtf8(other));
}

} // namespace

std::vector<std::string> readCodes(std::string_view bytes) {
    return platform::splitLines(bytes);
}

std::string shownCodes(const std::vector<std::string>& codes) {
    std::string text;
    for (const auto& code : codes)
        text += code + " ";
    return text;
}

std::string codesText(std::string_view typed) {
    return platform::replaceAll(typed, " ", platform::lineBreak) + std::string(platform::lineBreak);
}

bool areCompatible(const std::vector<std::string>& release,
                   const std::vector<std::string>& conversion) {
    const auto fits = [&](const std::string& code) {
        return code.empty() || isWildcard(code) ||
               std::any_of(conversion.begin(), conversion.end(),
                           [&](const auto& wanted) { return isSame(code, wanted); });
    };
    return conversion.empty() || std::any_of(release.begin(), release.end(), fits);
}

} // namespace formats
