// Any text as the settings of a map and of a unit: what comes out is fit to be shown.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "formats/map_info.h"
#include "formats/unit_file.h"

namespace {

void check(std::string_view text, std::size_t most) {
    const auto isControl = [](char c) { return static_cast<unsigned char>(c) < ' '; };
    if (text.size() > most || std::ranges::any_of(text, isControl))
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    if (const auto info = formats::readMapInfo(text)) {
        for (const auto* shown : {&info->name, &info->planet, &info->memory})
            check(*shown, 255);
        check(info->description, 4096);
        if (!std::ranges::is_sorted(info->players) || info->players.size() > 64 ||
            info->size.width < 0 || info->size.width > 1000)
            std::abort();
        formats::playersText(*info);
    }
    if (const auto info = formats::readUnitInfo(text))
        for (const auto* shown : {&info->unitName, &info->name, &info->description, &info->side})
            check(*shown, 255);
    formats::unitNameIn(text);
    return 0;
}
