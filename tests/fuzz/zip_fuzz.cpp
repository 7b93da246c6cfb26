// Any bytes as a zip archive: what is trusted stays below the folder it is unpacked to.
#include <cstdint>
#include <cstdlib>

#include "installers/member_import.h"
#include "platform/failure.h"
#include "platform/paths.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr std::uint64_t mostUnpacked = 1 << 22; // what a run has time for
    platform::attempt([&] {
        platform::ZipReader listing({data, size});
        const auto contents = installers::contentsOf(listing);
        for (const auto& member : contents.members) {
            const auto path = installers::belowTop(member.path, contents.topFolder);
            if (!path.empty() && !platform::isPlainPathBelow("/game\\" + path, "/game"))
                std::abort();
        }
    });
    std::uint64_t unpacked = 0;
    platform::attempt([&] {
        platform::ZipReader archive({data, size});
        while (archive.next())
            platform::attempt([&] {
                archive.extract([&](std::string_view piece) {
                    unpacked += piece.size();
                    if (unpacked > mostUnpacked)
                        throw platform::Failure("unpack", "the archive", "enough");
                });
            });
    });
    return 0;
}
