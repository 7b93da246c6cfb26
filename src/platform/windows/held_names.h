// Names that Windows' own programs cannot use, though its file systems would take some of them.
#pragma once

#include <string_view>
#include <system_error>

namespace platform::windows {

/// Why no entry of such a name is made: invalid_argument with the reason as its message; none for a
/// name that is as good as any.
std::error_code whyRefused(std::string_view name);

} // namespace platform::windows
