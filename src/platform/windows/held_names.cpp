// By \\?\ such names could be made, and then neither the Explorer nor the game could open them.
#include "held_names.h"

#include <algorithm>
#include <array>
#include <string>

#include "platform/text.h"
#include "system_text.h"

namespace platform::windows {
namespace {

enum class Refusal { none, device, end, sign, bytes };

class RefusedNames final : public std::error_category {
  public:
    const char* name() const noexcept override { return "names on Windows"; }

    std::string message(int refusal) const override {
        switch (static_cast<Refusal>(refusal)) {
        case Refusal::device:
            return "Windows keeps this name for a device";
        case Refusal::end:
            return "A name on Windows cannot end in a dot or a blank";
        case Refusal::sign:
            return R"(A name on Windows cannot contain a control character or one of < > : " / \ | ? *)";
        case Refusal::bytes:
            return "The name is no text that Windows could hold";
        case Refusal::none:
            break;
        }
        return {};
    }

    std::error_condition default_error_condition(int /*refusal*/) const noexcept override {
        return std::errc::invalid_argument;
    }
};

bool isForbidden(char c) {
    constexpr std::string_view forbidden = R"(<>:"/\|?*)";
    return static_cast<unsigned char>(c) < ' ' || forbidden.find(c) != std::string_view::npos;
}

/// Whatever follows the first dot, and blanks ahead of it, the system passes over.
bool namesDevice(std::string_view name) {
    name = name.substr(0, name.find('.'));
    name = name.substr(0, name.find_last_not_of(' ') + 1);
    static constexpr std::array<std::string_view, 6> devices = {"con", "prn",    "aux",
                                                                "nul", "conin$", "conout$"};
    const auto folded = foldCase(name);
    if (std::find(devices.begin(), devices.end(), folded) != devices.end())
        return true;
    constexpr std::size_t headSize = 3;
    if (!folded.starts_with("com") && !folded.starts_with("lpt"))
        return false;
    static constexpr std::array<std::string_view, 13> numbers = {
        "0", "1", "2", "3", "4", "5", "6", "7", "8", "9", "\xC2\xB9", "\xC2\xB2", "\xC2\xB3"};
    return std::find(numbers.begin(), numbers.end(), folded.substr(headSize)) != numbers.end();
}

Refusal refusalOf(std::string_view name) {
    if (name.empty() || std::any_of(name.begin(), name.end(), isForbidden))
        return Refusal::sign;
    if (name.back() == '.' || name.back() == ' ')
        return Refusal::end;
    if (namesDevice(name))
        return Refusal::device;
    return toWide(name) ? Refusal::none : Refusal::bytes;
}

} // namespace

std::error_code whyRefused(std::string_view name) {
    static const RefusedNames category;
    const auto refusal = refusalOf(name);
    return refusal == Refusal::none ? std::error_code()
                                    : std::error_code(static_cast<int>(refusal), category);
}

} // namespace platform::windows
