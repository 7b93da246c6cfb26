// Any bytes as an archive: listing and unpacking must neither crash nor take more than the bytes
// are good for.
#include <cstdint>
#include <cstdlib>

#include "formats/archive.h"
#include "platform/failure.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto archive = formats::Archive::open({data, size});
    if (!archive)
        return 0;
    if (archive->entries().size() > size / 9)
        std::abort();
    const auto cut = archive->cutFiles();
    for (std::size_t i = 0; i < cut.size() && i < 200; ++i)
        if (platform::attempt([&] { archive->extract(cut[i], [](std::string_view) {}); }))
            std::abort();
    std::size_t total = 0;
    for (std::size_t i = 0; i < archive->entries().size() && i < 200; ++i) {
        if (archive->pathOf(i).size() > formats::Archive::longestPath)
            std::abort();
        if (!archive->entries()[i].isFolder && total < (1U << 24U))
            platform::attempt([&] {
                archive->extract(i, [&](std::string_view piece) { total += piece.size(); });
            });
    }
    return 0;
}
