// Any text as a selection file of each type, as the modifier's, as codes, as a set and as a list of
// releases: what was read is written so that it reads the same.
#include <cstdint>
#include <cstdlib>

#include "cycle/release_list.h"
#include "cycle/selection.h"
#include "cycle/sets.h"
#include "formats/codes.h"
#include "releases/release_types.h"

namespace {

void readAsSet(const std::string& text) {
    cycle::Set set;
    if (!cycle::readSet(text, set).empty())
        return;
    const auto written = cycle::textOf(set);
    cycle::Set again;
    if (!cycle::readSet(written, again).empty() || cycle::textOf(again) != written)
        std::abort();
}

void readAsList(const std::string& text) {
    cycle::ReleaseList list;
    if (!cycle::readReleaseList(text, list).empty())
        return;
    cycle::ReleaseList again;
    if (!cycle::readReleaseList(cycle::textOf(list), again).empty() || again != list)
        std::abort();
}

} // namespace

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

    // Nobody guesses a first line.
    readAsSet("Vexillum Set\n" + std::string(text));
    readAsSet("Vexillum Set\n[Releases]\nMap \"" + std::string(text));
    readAsList("Vexillum Release List\nMap \"A\"\n" + std::string(text) + "\nEnd");

    const auto codes = formats::readCodes(text);
    if (!codes.empty() && !formats::areCompatible(codes, codes))
        std::abort();
    formats::shownCodes(codes);
    formats::readCodes(formats::codesText(text));
    return 0;
}
