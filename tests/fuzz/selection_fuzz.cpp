// Any text as a selection file of each type, as the modifier's, and as codes: what was read is
// written so that it reads the same.
#include <cstdint>
#include <cstdlib>

#include "cycle/selection.h"
#include "formats/codes.h"
#include "releases/release_types.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    cycle::Selection selection;
    for (const auto* info : releases::typesByTab()) {
        selection.readText(info->type, text);
        const auto written = selection.textOf(info->type);
        cycle::Selection again;
        again.readText(info->type, written);
        if (again.textOf(info->type) != written ||
            again.countOf(info->type) != selection.countOf(info->type))
            std::abort();
        for (const auto& name : selection.namesOf(info->type))
            if (name.find_first_of("\r\n") != std::string::npos || !again.has(info->type, name))
                std::abort();
    }
    selection.readModifierText(text);
    const auto written = selection.modifierText();
    selection.readModifierText(written);
    if (selection.modifierText() != written)
        std::abort();

    const auto codes = formats::readCodes(text);
    if (!codes.empty() && !formats::areCompatible(codes, codes))
        std::abort();
    formats::shownCodes(codes);
    formats::readCodes(formats::codesText(text));
    return 0;
}
