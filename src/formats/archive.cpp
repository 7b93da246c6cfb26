// The format of the archives is told in docs/archives.md.
#include "formats/archive.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <optional>
#include <unordered_set>

#include <libdeflate.h>

#include "formats/lz77.h"
#include "platform/failure.h"
#include "platform/relative_path.h"

namespace formats {
namespace {

constexpr std::uint32_t marker = 0x49504148; // "HAPI"
constexpr std::uint32_t version = 0x00010000;
constexpr std::uint32_t chunkMarker = 0x48535153; // "SQSH"
constexpr std::size_t headerSize = 20;
constexpr std::size_t entrySize = 9;
constexpr std::size_t recordSize = 9;
constexpr std::size_t folderRecordSize = 8;
constexpr std::size_t chunkHeaderSize = 19;
constexpr std::size_t pieceSize = Archive::pieceSize;
constexpr std::size_t longestName = 255;

constexpr std::uint8_t stored = 0;
constexpr std::uint8_t lz77 = 1;
constexpr std::uint8_t zlib = 2;

[[noreturn]] void damaged(const std::string& reason) {
    throw platform::Failure("extract", "an entry", reason);
}

struct DeflateDeleter {
    void operator()(libdeflate_decompressor* d) const { libdeflate_free_decompressor(d); }
};

bool unpackZlib(std::span<const std::uint8_t> from, std::span<std::uint8_t> to) {
    thread_local const std::unique_ptr<libdeflate_decompressor, DeflateDeleter> decompressor(
        libdeflate_alloc_decompressor());
    std::size_t length = 0;
    return decompressor &&
           libdeflate_zlib_decompress(decompressor.get(), from.data(), from.size(), to.data(),
                                      to.size(), &length) == LIBDEFLATE_SUCCESS &&
           length == to.size();
}

std::string_view asText(std::span<const std::uint8_t> bytes) {
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

std::uint32_t wordIn(std::span<const std::uint8_t> bytes, std::size_t at) {
    return bytes[at] | static_cast<std::uint32_t>(bytes[at + 1]) << 8U |
           static_cast<std::uint32_t>(bytes[at + 2]) << 16U |
           static_cast<std::uint32_t>(bytes[at + 3]) << 24U;
}

/// Bytes of the table of chunks ahead of a packed file's data.
std::uint64_t tableSize(std::uint32_t fileSize) {
    return (fileSize + std::uint64_t{pieceSize} - 1) / pieceSize * 4;
}

/// Undoes a whole chunk into `to`, which has the length that the piece must have.
void unpackChunk(std::span<std::uint8_t> chunk, std::span<std::uint8_t> to) {
    if (chunk.size() < chunkHeaderSize || wordIn(chunk, 0) != chunkMarker)
        damaged("no chunk where one should be");
    const auto compression = chunk[5];
    const bool encrypted = chunk[6] != 0;
    const auto packed = wordIn(chunk, 7);
    if (packed > chunk.size() - chunkHeaderSize || wordIn(chunk, 11) != to.size())
        damaged("a chunk's sizes are wrong");
    const auto data = chunk.subspan(chunkHeaderSize, packed);
    std::uint32_t sum = 0;
    for (const auto byte : data)
        sum += byte;
    if (sum != wordIn(chunk, 15))
        damaged("a chunk's checksum is wrong");
    if (encrypted)
        for (std::size_t i = 0; i < data.size(); ++i)
            data[i] = static_cast<std::uint8_t>((data[i] - i) ^ i);
    const bool worked = compression == lz77   ? unpackLz77(data, to)
                        : compression == zlib ? unpackZlib(data, to)
                                              : false;
    if (!worked)
        damaged("a chunk cannot be unpacked");
}

} // namespace

Archive::Archive(Bytes bytes, std::uint32_t headerKey)
    : bytes_(bytes), encrypted_(headerKey != 0),
      key_(static_cast<std::uint8_t>(~((headerKey << 2U) | (headerKey >> 6U)))) {}

std::unique_ptr<Archive> Archive::open(Bytes bytes) {
    if (bytes.size() < headerSize || wordIn(bytes, 0) != marker || wordIn(bytes, 4) != version)
        return nullptr;
    // Offsets have 32 bits, so nothing behind that many bytes can be meant.
    std::unique_ptr<Archive> archive(new Archive(
        bytes.first(std::min<std::size_t>(bytes.size(), 0xFFFFFFFF)), wordIn(bytes, 12)));
    const auto root = wordIn(bytes, 16);
    if (root < headerSize || !archive->has(root, folderRecordSize))
        return nullptr;
    archive->listAll(root);
    return archive;
}

std::uint8_t Archive::byteAt(std::uint64_t offset) const {
    const auto byte = bytes_[offset];
    if (!encrypted_ || offset < headerSize)
        return byte;
    return static_cast<std::uint8_t>((static_cast<std::uint8_t>(offset) ^ key_) ^ ~byte);
}

std::uint32_t Archive::wordAt(std::uint64_t offset) const {
    std::array<std::uint8_t, 4> word{};
    plain(offset, word);
    return wordIn(word, 0);
}

void Archive::plain(std::uint64_t offset, std::span<std::uint8_t> to) const {
    if (offset < headerSize) {
        for (std::size_t i = 0; i < to.size(); ++i)
            to[i] = byteAt(offset + i);
        return;
    }
    if (!to.empty())
        std::memcpy(to.data(), bytes_.data() + offset, to.size());
    if (!encrypted_)
        return;
    const auto start = static_cast<std::uint8_t>(offset);
    for (std::size_t i = 0; i < to.size(); ++i)
        to[i] = static_cast<std::uint8_t>((static_cast<std::uint8_t>(start + i) ^ key_) ^ ~to[i]);
}

/// False for a name that no honest packer writes.
bool Archive::nameAt(std::uint32_t offset, std::string& name) const {
    name.clear();
    for (std::uint64_t at = offset; at < bytes_.size(); ++at) {
        const auto letter = static_cast<char>(byteAt(at));
        if (letter == '\0')
            return platform::isPlainName(name) && name.find(':') == std::string::npos;
        if (name.size() == longestName || static_cast<unsigned char>(letter) < ' ')
            return false;
        name += letter;
    }
    return false;
}

void Archive::listAll(std::uint32_t root) {
    std::vector<Folder> open{{root, -1, 0}};
    std::unordered_set<std::uint32_t> seen{root};
    while (!open.empty()) {
        const auto folder = open.back();
        open.pop_back();
        const auto known = open.size();
        listFolder(folder, open);
        // A folder that was met before would be listed without end.
        open.erase(std::remove_if(open.begin() + static_cast<std::ptrdiff_t>(known), open.end(),
                                  [&](const Folder& f) { return !seen.insert(f.record).second; }),
                   open.end());
        std::reverse(open.begin() + static_cast<std::ptrdiff_t>(known), open.end());
    }
}

void Archive::listFolder(const Folder& folder, std::vector<Folder>& open) {
    const std::uint64_t count = wordAt(folder.record);
    const std::uint64_t list = wordAt(folder.record + 4ULL);
    const std::uint64_t mostEntries = bytes_.size() / entrySize;
    std::string name;
    std::uint64_t i = 0;
    for (; i < count && has(list + i * entrySize, entrySize); ++i) {
        if (entries_.size() >= mostEntries)
            break;
        const auto at = list + i * entrySize;
        const auto nameOffset = wordAt(at);
        const auto record = wordAt(at + 4);
        const auto kind = byteAt(at + 8);
        const bool isFolder = kind == 1;
        const bool isPlain = kind <= 1 && has(record, isFolder ? folderRecordSize : recordSize) &&
                             nameAt(nameOffset, name);
        const auto pathLength = folder.pathLength + (folder.entry == -1 ? 0 : 1) + name.size();
        if (!isPlain || pathLength > longestPath) {
            isWhole_ = false;
            continue;
        }
        entries_.push_back(
            {folder.entry, nameOffset, record, static_cast<std::uint8_t>(name.size()), isFolder});
        if (isFolder)
            open.push_back({record, static_cast<std::int32_t>(entries_.size() - 1), pathLength});
    }
    isWhole_ = isWhole_ && i == count;
}

std::string Archive::pathOf(std::size_t entry) const {
    std::vector<std::string> names;
    std::string name;
    for (auto at = static_cast<std::int32_t>(entry); at != -1;
         at = entries_[static_cast<std::size_t>(at)].parent) {
        nameAt(entries_[static_cast<std::size_t>(at)].name, name);
        names.push_back(name);
    }
    std::string path;
    for (auto at = names.rbegin(); at != names.rend(); ++at)
        path += (path.empty() ? "" : "\\") + *at;
    return path;
}

std::uint32_t Archive::sizeOf(std::size_t entry) const {
    return wordAt(entries_.at(entry).record + 4ULL);
}

std::vector<std::size_t> Archive::cutFiles() const {
    std::vector<std::size_t> cut;
    std::optional<std::size_t> last;
    std::uint32_t lastOffset = 0;
    for (std::size_t i = 0; i < entries_.size(); ++i) {
        if (entries_[i].isFolder)
            continue;
        const auto offset = wordAt(entries_[i].record);
        const auto size = sizeOf(i);
        const bool isPacked = byteAt(entries_[i].record + 8ULL) != stored;
        if (!has(offset, isPacked ? tableSize(size) : size))
            cut.push_back(i);
        else if (isPacked && size > 0 && offset >= lastOffset) {
            last = i;
            lastOffset = offset;
        }
    }
    if (last && !hasChunks(lastOffset, sizeOf(*last)))
        cut.push_back(*last);
    return cut;
}

bool Archive::hasChunks(std::uint64_t offset, std::uint32_t size) const {
    auto end = offset + tableSize(size);
    for (auto at = offset; at < offset + tableSize(size); at += 4)
        end += wordAt(at);
    return end <= bytes_.size();
}

void Archive::extract(std::size_t entry, const platform::PieceSink& sink) const {
    auto pieces = piecesOf(entry);
    for (auto piece = pieces.next(); !piece.empty(); piece = pieces.next())
        sink(piece);
}

Archive::Pieces::Pieces(const Archive& archive, std::size_t entry)
    : archive_(&archive), size_(archive.sizeOf(entry)) {
    const auto& found = archive.entries_.at(entry);
    if (found.isFolder)
        damaged("it is a folder");
    table_ = at_ = archive.wordAt(found.record);
    const auto compression = archive.byteAt(found.record + 8ULL);
    if (compression > zlib)
        damaged("its compression is unknown");
    isPacked_ = compression != stored;
    if (!archive.has(at_, isPacked_ ? tableSize(size_) : size_))
        damaged("its data lies outside the archive");
    if (isPacked_)
        at_ += tableSize(size_);
}

std::size_t Archive::Pieces::lengthOfNext() const {
    return std::min<std::size_t>(size_ - done_, pieceSize);
}

std::string_view Archive::Pieces::next() {
    piece_.resize(lengthOfNext());
    if (piece_.empty())
        return {};
    if (isPacked_) {
        readChunk();
    } else {
        archive_->plain(at_, piece_);
        at_ += piece_.size();
        spent_ += piece_.size();
    }
    done_ += piece_.size();
    return asText(piece_);
}

void Archive::Pieces::skip() {
    const auto length = lengthOfNext();
    if (length > 0)
        at_ += isPacked_ ? chunkLength() : length;
    done_ += length;
}

/// Of the chunk that comes next, which lies in the archive.
std::uint32_t Archive::Pieces::chunkLength() const {
    const auto length = archive_->wordAt(table_ + done_ / pieceSize * 4);
    if (!archive_->has(at_, length))
        damaged("a chunk lies outside the archive");
    return length;
}

void Archive::Pieces::readChunk() {
    const auto length = chunkLength();
    chunk_.resize(length);
    archive_->plain(at_, chunk_);
    at_ += length;
    spent_ += length;
    unpackChunk(chunk_, piece_);
}

} // namespace formats
