// Any bytes as a map, in memory and in an archive: its picture, in the game's colours and drawn
// from its heights, has sides that it may have and all its pixels.
#include <cstdint>
#include <cstdlib>

#include "formats/map_picture.h"
#include "platform/failure.h"

namespace {

void look(formats::FileBytes& file, const std::optional<formats::Colours>& colours) {
    platform::attempt([&] {
        const auto picture = formats::readMapPicture(file, formats::readMapHeader(file), colours);
        constexpr auto longest = static_cast<int>(formats::Picture::longestSide);
        if (picture.width < 1 || picture.height < 1 || picture.width > longest ||
            picture.height > longest ||
            picture.pixels.size() !=
                static_cast<std::size_t>(picture.width) * static_cast<std::size_t>(picture.height))
            std::abort();
    });
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    formats::BytesInMemory file({data, size});
    look(file, formats::Colours());
    look(file, std::nullopt);
    return 0;
}
