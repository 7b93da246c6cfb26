// Packs archives of the game's kind, for tests, the sample game and benchmarks.
#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace packing {

enum class Packing : std::uint8_t { stored = 0, lz77 = 1, zlib = 2 };

struct PackOptions {
    Packing packing = Packing::zlib;
    bool encryptChunks = false;
    std::uint32_t headerKey = 0;
};

/// Paths with backslashes and contents, in the order in which they are to stand.
using PackedFiles = std::vector<std::pair<std::string, std::string>>;

std::string packArchive(const PackedFiles& files, const PackOptions& options = {});

/// One chunk with its header.
std::string packChunk(const std::string& data, const PackOptions& options);

} // namespace packing
