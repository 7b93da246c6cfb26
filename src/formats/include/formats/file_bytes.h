// Bytes of one file of the game, in any order, wherever it lies: for readers that need a few places
// of a large file alone.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "formats/archive.h"

namespace formats {

class FileBytes {
  public:
    FileBytes() = default;
    virtual ~FileBytes() = default;
    FileBytes(const FileBytes&) = delete;
    FileBytes& operator=(const FileBytes&) = delete;

    /// What the file claims to hold, in bytes.
    virtual std::uint64_t size() const = 0;
    /// Fills `into` with what stands from `offset` on. Throws Failure where that lies outside the
    /// file, or cannot be read or trusted.
    void read(std::uint64_t offset, std::span<std::uint8_t> into);
    /// A little-endian word of 32 bits, under the same rule.
    std::uint32_t wordAt(std::uint64_t offset);
    /// All of it. Throws Failure for more than `most` bytes.
    std::vector<std::uint8_t> all(std::uint64_t most);

  protected:
    /// `into` is never empty and lies in the file.
    virtual void readInside(std::uint64_t offset, std::span<std::uint8_t> into) = 0;
};

/// In memory. The bytes must outlive it.
class BytesInMemory final : public FileBytes {
  public:
    explicit BytesInMemory(Bytes bytes) : bytes_(bytes) {}
    std::uint64_t size() const override { return bytes_.size(); }

  protected:
    void readInside(std::uint64_t offset, std::span<std::uint8_t> into) override;

  private:
    Bytes bytes_;
};

/// In an archive: only the pieces that are asked for are unpacked, and the last one is kept. The
/// archive must outlive it.
class BytesInArchive final : public FileBytes {
  public:
    /// Where more than `mostSpent` bytes of the archive would be read for it, a read fails: an
    /// archive whose files lie over one another could keep the program busy for ever.
    BytesInArchive(const Archive& archive, std::size_t entry, std::uint64_t mostSpent);
    std::uint64_t size() const override { return archive_.sizeOf(entry_); }
    /// How much of the archive has been read for it, in bytes.
    std::uint64_t spent() const { return spent_ + pieces_.spent(); }

  protected:
    void readInside(std::uint64_t offset, std::span<std::uint8_t> into) override;

  private:
    std::string_view pieceAt(std::uint64_t number);

    const Archive& archive_;
    std::size_t entry_;
    std::uint64_t mostSpent_;
    Archive::Pieces pieces_;
    std::uint64_t next_ = 0;  ///< the number of the piece that `pieces_` gives next
    std::uint64_t spent_ = 0; ///< by earlier pieces
    std::string_view piece_;  ///< the one ahead of it; empty where it was passed over
};

} // namespace formats
