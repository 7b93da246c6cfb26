// Records are laid folder by folder: record, list, names, then what is below; the data comes last.
#include "packing/archive_writer.h"

#include <algorithm>
#include <map>
#include <memory>

#include <libdeflate.h>

namespace packing {
namespace {

constexpr std::size_t pieceSize = 65536;

void putWord(std::string& bytes, std::size_t at, std::uint64_t value) {
    for (unsigned i = 0; i < 4; ++i)
        bytes[at + i] = static_cast<char>(value >> (8 * i));
}

void addWord(std::string& bytes, std::uint64_t value) {
    bytes.append(4, '\0');
    putWord(bytes, bytes.size() - 4, value);
}

std::string packZlib(const std::string& data) {
    const std::unique_ptr<libdeflate_compressor, decltype(&libdeflate_free_compressor)> packer(
        libdeflate_alloc_compressor(6), libdeflate_free_compressor);
    std::string packed(libdeflate_zlib_compress_bound(packer.get(), data.size()), '\0');
    packed.resize(libdeflate_zlib_compress(packer.get(), data.data(), data.size(), packed.data(),
                                           packed.size()));
    return packed;
}

/// The longest earlier stretch, found by the places at which each pair of bytes was last seen.
class Lz77Packer {
  public:
    explicit Lz77Packer(const std::string& data) : data_(data), lastAt_(65536, -1) {}

    std::string pack() {
        while (at_ < data_.size())
            addItem();
        beginItem(true);
        packed_.append(2, '\0');
        return packed_;
    }

  private:
    void beginItem(bool isCopy) {
        if (items_ == 8)
            items_ = 0;
        if (items_ == 0) {
            tagAt_ = packed_.size();
            packed_ += '\0';
        }
        if (isCopy)
            packed_[tagAt_] = static_cast<char>(packed_[tagAt_] | 1 << items_);
        ++items_;
    }

    unsigned pairAt(std::size_t at) const {
        return static_cast<unsigned char>(data_[at]) |
               static_cast<unsigned>(static_cast<unsigned char>(data_[at + 1])) << 8U;
    }

    void addItem() {
        std::size_t length = 0;
        std::int64_t source = -1;
        if (at_ + 1 < data_.size() && (source = lastAt_[pairAt(at_)]) >= 0 &&
            at_ - static_cast<std::size_t>(source) < 4096 && (source + 1) % 4096 != 0)
            while (length < 17 && at_ + length < data_.size() &&
                   data_[static_cast<std::size_t>(source) + length] == data_[at_ + length])
                ++length;
        beginItem(length >= 2);
        if (length < 2) {
            packed_ += data_[at_];
            length = 1;
        } else {
            const auto word = static_cast<unsigned>((source + 1) % 4096) << 4U |
                              static_cast<unsigned>(length - 2);
            packed_ += static_cast<char>(word);
            packed_ += static_cast<char>(word >> 8U);
        }
        for (; length > 0; --length, ++at_)
            if (at_ + 1 < data_.size())
                lastAt_[pairAt(at_)] = static_cast<std::int64_t>(at_);
    }

    const std::string& data_;
    std::vector<std::int64_t> lastAt_;
    std::string packed_;
    std::size_t at_ = 0;
    std::size_t tagAt_ = 0;
    int items_ = 0;
};

struct Node {
    std::string name;
    const std::string* content = nullptr;
    std::map<std::string, std::size_t> index;
    std::vector<Node> children;
};

Node& childOf(Node& node, const std::string& name) {
    const auto [at, isNew] = node.index.emplace(name, node.children.size());
    if (isNew)
        node.children.push_back({name, nullptr, {}, {}});
    return node.children[at->second];
}

struct DataAt {
    std::size_t record;
    const std::string* content;
};

std::size_t layFolder(std::string& bytes, const Node& node, const PackOptions& options,
                      std::vector<DataAt>& data) {
    const auto record = bytes.size();
    addWord(bytes, node.children.size());
    addWord(bytes, record + 8);
    const auto list = bytes.size();
    bytes.append(node.children.size() * 9, '\0');
    for (std::size_t i = 0; i < node.children.size(); ++i) {
        const auto& child = node.children[i];
        putWord(bytes, list + i * 9, bytes.size());
        bytes += child.name + '\0';
        if (child.content == nullptr) {
            bytes[list + i * 9 + 8] = 1;
            putWord(bytes, list + i * 9 + 4, layFolder(bytes, child, options, data));
            continue;
        }
        putWord(bytes, list + i * 9 + 4, bytes.size());
        data.push_back({bytes.size(), child.content});
        addWord(bytes, 0);
        addWord(bytes, child.content->size());
        bytes += static_cast<char>(options.packing);
    }
    return record;
}

void layData(std::string& bytes, const std::string& content, const PackOptions& options) {
    if (options.packing == Packing::stored) {
        bytes += content;
        return;
    }
    const auto pieces = (content.size() + pieceSize - 1) / pieceSize;
    const auto table = bytes.size();
    bytes.append(pieces * 4, '\0');
    for (std::size_t i = 0; i < pieces; ++i) {
        const auto chunk = packChunk(content.substr(i * pieceSize, pieceSize), options);
        putWord(bytes, table + i * 4, chunk.size());
        bytes += chunk;
    }
}

} // namespace

std::string packChunk(const std::string& data, const PackOptions& options) {
    auto packed = options.packing == Packing::lz77 ? Lz77Packer(data).pack() : packZlib(data);
    std::uint32_t sum = 0;
    for (std::size_t i = 0; i < packed.size(); ++i) {
        auto byte = static_cast<unsigned char>(packed[i]);
        if (options.encryptChunks)
            byte = static_cast<unsigned char>((byte ^ i) + i);
        packed[i] = static_cast<char>(byte);
        sum += byte;
    }
    std::string chunk = "SQSH";
    chunk += '\2';
    chunk += static_cast<char>(options.packing);
    chunk += options.encryptChunks ? '\1' : '\0';
    addWord(chunk, packed.size());
    addWord(chunk, data.size());
    addWord(chunk, sum);
    return chunk + packed;
}

std::string packArchive(const PackedFiles& files, const PackOptions& options) {
    Node root{};
    for (const auto& [path, content] : files) {
        auto* node = &root;
        for (std::size_t at = 0; at != std::string::npos;) {
            const auto end = path.find('\\', at);
            node = &childOf(*node, path.substr(at, end - at));
            at = end == std::string::npos ? end : end + 1;
        }
        node->content = &content;
    }
    std::string bytes = "HAPI";
    addWord(bytes, 0x00010000);
    addWord(bytes, 0);
    addWord(bytes, options.headerKey);
    addWord(bytes, 20);
    std::vector<DataAt> data;
    layFolder(bytes, root, options, data);
    putWord(bytes, 8, bytes.size());
    for (const auto& each : data) {
        putWord(bytes, each.record, bytes.size());
        layData(bytes, *each.content, options);
    }
    const auto key =
        static_cast<unsigned char>(~(options.headerKey << 2U | options.headerKey >> 6U));
    for (std::size_t at = 20; options.headerKey != 0 && at < bytes.size(); ++at)
        bytes[at] = static_cast<char>((static_cast<unsigned char>(at) ^ key) ^
                                      ~static_cast<unsigned char>(bytes[at]));
    return bytes;
}

} // namespace packing
