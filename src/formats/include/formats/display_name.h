// Which characters the name of a release may have.
#pragma once

#include <string>
#include <string_view>

namespace formats {

/// The name without the characters that are not permitted: letters, digits, the blank and "()-./_"
/// stay.
std::string permittedPart(std::string_view name);

} // namespace formats
