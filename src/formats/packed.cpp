// Fast rather than small: it is done while somebody looks at pictures.
#include "formats/packed.h"

#include <memory>

#include <libdeflate.h>

#include <new>

namespace formats {
namespace {

constexpr int level = 4;

} // namespace

std::string packed(std::string_view bytes) {
    const std::unique_ptr<libdeflate_compressor, decltype(&libdeflate_free_compressor)> packer(
        libdeflate_alloc_compressor(level), libdeflate_free_compressor);
    if (!packer)
        throw std::bad_alloc();
    std::string stream(libdeflate_zlib_compress_bound(packer.get(), bytes.size()), '\0');
    stream.resize(libdeflate_zlib_compress(packer.get(), bytes.data(), bytes.size(), stream.data(),
                                           stream.size()));
    return stream;
}

std::optional<std::string> unpacked(std::string_view stream, std::size_t length) {
    const std::unique_ptr<libdeflate_decompressor, decltype(&libdeflate_free_decompressor)>
        unpacker(libdeflate_alloc_decompressor(), libdeflate_free_decompressor);
    std::string bytes(length, '\0');
    std::size_t got = 0;
    const bool worked =
        unpacker && libdeflate_zlib_decompress(unpacker.get(), stream.data(), stream.size(),
                                               bytes.data(), length, &got) == LIBDEFLATE_SUCCESS;
    return worked && got == length ? std::optional(std::move(bytes)) : std::nullopt;
}

} // namespace formats
