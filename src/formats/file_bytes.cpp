// Every read is held against the file's size once, here.
#include "formats/file_bytes.h"

#include <algorithm>
#include <cstring>

#include "platform/failure.h"

namespace formats {

void FileBytes::read(std::uint64_t offset, std::span<std::uint8_t> into) {
    if (offset > size() || into.size() > size() - offset)
        throw platform::Failure("read", "a file", "it ends too early");
    if (!into.empty())
        readInside(offset, into);
}

std::uint32_t FileBytes::wordAt(std::uint64_t offset) {
    std::array<std::uint8_t, 4> word{};
    read(offset, word);
    return word[0] | static_cast<std::uint32_t>(word[1]) << 8U |
           static_cast<std::uint32_t>(word[2]) << 16U | static_cast<std::uint32_t>(word[3]) << 24U;
}

std::vector<std::uint8_t> FileBytes::all(std::uint64_t most) {
    if (size() > most)
        throw platform::Failure("read", "a file", "it is too large");
    std::vector<std::uint8_t> bytes(size());
    read(0, bytes);
    return bytes;
}

void BytesInMemory::readInside(std::uint64_t offset, std::span<std::uint8_t> into) {
    std::memcpy(into.data(), bytes_.data() + offset, into.size());
}

BytesInArchive::BytesInArchive(const Archive& archive, std::size_t entry, std::uint64_t mostSpent)
    : archive_(archive), entry_(entry), mostSpent_(mostSpent), pieces_(archive.piecesOf(entry)) {}

void BytesInArchive::readInside(std::uint64_t offset, std::span<std::uint8_t> into) {
    while (!into.empty()) {
        const auto piece = pieceAt(offset / Archive::pieceSize).substr(offset % Archive::pieceSize);
        const auto part = piece.substr(0, into.size());
        std::memcpy(into.data(), part.data(), part.size());
        into = into.subspan(part.size());
        offset += part.size();
    }
}

std::string_view BytesInArchive::pieceAt(std::uint64_t number) {
    if (number + 1 == next_ && !piece_.empty())
        return piece_;
    piece_ = {};
    if (number < next_) {
        spent_ += pieces_.spent();
        pieces_ = archive_.piecesOf(entry_);
        next_ = 0;
    }
    for (; next_ < number; ++next_)
        pieces_.skip();
    if (spent() > mostSpent_)
        throw platform::Failure("read", "a file", "it lies over other files");
    const auto piece = pieces_.next();
    ++next_;
    return piece_ = piece;
}

} // namespace formats
