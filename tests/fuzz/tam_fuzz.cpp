// Any bytes as a TAM data file of any type: the steps stay in their folders and in their order.
#include <cstdint>
#include <cstdlib>

#include "formats/tam_release.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 2)
        return 0;
    constexpr const char* names[] = {"name.tc", "name.ai", "}{name.tam", "name.tam", "x", "a.pac"};
    const auto type = static_cast<formats::TamType>(data[0] % 5);
    const auto* name = names[data[1] % 6];
    const std::string_view text(reinterpret_cast<const char*>(data) + 2, size - 2);
    using Kind = formats::TamStep::Kind;
    bool hasFolder = false;
    bool hasFailed = false;
    for (const auto& step : formats::convertTam(type, name, text, "Mod")) {
        if (hasFailed)
            std::abort();
        hasFailed = step.kind == Kind::error;
        hasFolder = hasFolder || step.kind == Kind::makeFolder;
        const bool isCopy = step.kind == Kind::copy || step.kind == Kind::copyIfThere;
        if ((isCopy || step.kind == Kind::write) && !hasFolder)
            std::abort();
        if (isCopy && (!formats::staysBelow(step.from) || !formats::staysBelow(step.to) ||
                       step.to.find("..\\") == 0 || step.to.starts_with('\\')))
            std::abort();
    }
    return 0;
}
