// Reading the game's archives. An archive is hostile input: every offset, count and size is held
// against the file's real length before it is used.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/disk.h"

namespace formats {

using Bytes = std::span<const std::uint8_t>;

/// One archive in memory or mapped. The bytes must outlive it.
class Archive {
  public:
    /// Where an entry stands in the archive. Offsets are in bytes from its start, and lie in it.
    struct Entry {
        std::int32_t parent;  ///< index of the folder it lies in, -1 for the root
        std::uint32_t name;   ///< offset of the name
        std::uint32_t record; ///< offset of the entry's record
        std::uint8_t nameLength;
        bool isFolder;
    };

    /// The longest path that is listed, in characters.
    static constexpr std::size_t longestPath = 254;

    /// Null if the bytes are no archive. Costs the directory alone. Of a damaged directory what can
    /// be trusted is listed: no folder twice, no more entries than the file has room for, no name
    /// that is empty, too long, leads away or has no end.
    static std::unique_ptr<Archive> open(Bytes bytes);

    /// A folder comes ahead of what is in it. Two entries may have one path: which of them counts
    /// is for the caller to say.
    const std::vector<Entry>& entries() const { return entries_; }

    /// The names from the root down, joined by backslashes, in the bytes that the archive has. Put
    /// together anew at each call: a listing holds no names.
    std::string pathOf(std::size_t entry) const;

    /// What the directory claims a file's size to be, in bytes. Any record may be asked.
    std::uint32_t sizeOf(std::size_t entry) const;

    /// Whether all of the directory could be listed: nothing of it lies outside the file, and no
    /// entry was passed over.
    bool isWhole() const { return isWhole_; }

    /// The files that lie outside the archive, as behind a download that broke off. Looks at the
    /// directory, and into the file that lies last, for those ahead of it end before it.
    std::vector<std::size_t> cutFiles() const;

    /// A file that is unpacked bit by bit, for whoever reads several side by side or not to the
    /// end. The archive must outlive it. Memory stays below a few chunks.
    class Pieces {
      public:
        /// What comes next: 64 KiB, less at the end and nothing behind it. It lives until the next
        /// call. Throws Failure where the data cannot be trusted.
        std::string_view next();
        /// Passes over what comes next without unpacking it, under the same rules.
        void skip();
        /// How much of the archive has been read for it, in bytes.
        std::uint64_t spent() const { return spent_; }

      private:
        friend class Archive;
        Pieces(const Archive& archive, std::size_t entry);
        std::size_t lengthOfNext() const;
        void readChunk();
        std::uint32_t chunkLength() const;

        const Archive* archive_;
        std::uint32_t size_;
        bool isPacked_;
        std::uint64_t table_; ///< of the lengths of chunks, where it is packed
        std::uint64_t at_;
        std::uint64_t done_ = 0;
        std::uint64_t spent_ = 0;
        std::vector<std::uint8_t> chunk_;
        std::vector<std::uint8_t> piece_;
    };

    /// Throws Failure for a folder, and where data lies outside the archive.
    Pieces piecesOf(std::size_t entry) const { return {*this, entry}; }
    /// How much of a file one piece holds, in bytes; the last one less.
    static constexpr std::size_t pieceSize = 65536;

    /// Unpacks a file, by its place in `entries`. Throws Failure where its data cannot be trusted,
    /// and for a folder; pieces may have been given out by then, so they go into something that
    /// can be dropped.
    void extract(std::size_t entry, const platform::PieceSink& sink) const;

  private:
    explicit Archive(Bytes bytes, std::uint32_t headerKey);

    struct Folder {
        std::uint32_t record;
        std::int32_t entry;
        std::size_t pathLength;
    };

    bool has(std::uint64_t offset, std::uint64_t size) const {
        return offset <= bytes_.size() && size <= bytes_.size() - offset;
    }
    std::uint8_t byteAt(std::uint64_t offset) const;
    std::uint32_t wordAt(std::uint64_t offset) const;
    /// A piece of the file with the position encryption undone.
    void plain(std::uint64_t offset, std::span<std::uint8_t> to) const;
    bool nameAt(std::uint32_t offset, std::string& name) const;
    void listAll(std::uint32_t root);
    void listFolder(const Folder& folder, std::vector<Folder>& open);
    bool hasChunks(std::uint64_t offset, std::uint32_t size) const;

    Bytes bytes_;
    bool encrypted_;
    std::uint8_t key_;
    std::vector<Entry> entries_;
    bool isWhole_ = true;
};

} // namespace formats
