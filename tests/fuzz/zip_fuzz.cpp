// Any bytes as a zip archive: what is trusted stays below the folder it is unpacked to.
#include <cstdint>
#include <cstdlib>

#include "platform/failure.h"
#include "platform/relative_path.h"
#include "releases/member_import.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr std::uint64_t mostUnpacked = 1 << 22; // what a run has time for
    platform::attempt([&] {
        formats::ZipReader listing({data, size});
        const auto contents = releases::contentsOf(listing);
        for (const auto& member : contents.members) {
            const auto path = releases::belowTop(member.path, contents.topFolder);
            if (!path.empty() && !platform::RelativePath::accepts(path, platform::PathRules::own()))
                std::abort();
        }
    });
    std::uint64_t unpacked = 0;
    platform::attempt([&] {
        formats::ZipReader archive({data, size});
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
