// Any bytes as a picture of a unit, and as the game's colours.
#include <cstdint>
#include <cstdlib>

#include "formats/picture.h"
#include "platform/failure.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    platform::attempt([&] {
        const auto picture = formats::readPcx({data, size});
        constexpr auto longest = static_cast<int>(formats::Picture::longestSide);
        if (picture.width < 1 || picture.height < 1 || picture.width > longest ||
            picture.height > longest ||
            picture.pixels.size() !=
                static_cast<std::size_t>(picture.width) * static_cast<std::size_t>(picture.height))
            std::abort();
    });
    if (formats::readPalette({data, size}).has_value() != (size >= 1024))
        std::abort();
    return 0;
}
