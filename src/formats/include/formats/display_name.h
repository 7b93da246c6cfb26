// Which characters the name of a release may have.
#pragma once

#include <string>
#include <string_view>

namespace formats {

/// The name without the characters that are not permitted: ASCII letters, digits, the blank and
/// "()-./_" stay, every other byte goes. What is left may be empty, or a name like "..".
std::string permittedPart(std::string_view name);

} // namespace formats
