// The characters that every disk and every tool around the game can live with.
#include "formats/display_name.h"

#include <algorithm>
#include <iterator>

namespace formats {
namespace {

bool isPermitted(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') ||
           std::string_view(" ()-./_").find(c) != std::string_view::npos;
}

} // namespace

std::string permittedPart(std::string_view name) {
    std::string part;
    std::copy_if(name.begin(), name.end(), std::back_inserter(part), isPermitted);
    return part;
}

} // namespace formats
