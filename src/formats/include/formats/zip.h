// Reading zip archives as people pack them. A zip archive is hostile input: its names are held
// against the rules for paths before they are given out.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>

#include "platform/disk.h"

namespace formats {

/// Goes through one archive, entry by entry. Bytes must outlive it.
class ZipReader {
  public:
    /// What the archive says of a file or folder. Entries come in the archive's order; a folder may
    /// be missing, or follow what is in it.
    struct Entry {
        /// Parts set off by backslashes. As it was packed where it cannot be trusted.
        std::string path;
        bool isFolder = false;
        /// Whether it is a file or folder whose path stays below the one it is unpacked to.
        bool isTrusted = false;
        std::uint64_t size = 0; ///< as the archive claims; 0 where it says nothing
    };

    /// Throws Failure if the bytes are no zip archive.
    explicit ZipReader(std::span<const std::uint8_t> bytes);
    /// Reads a file piece by piece: it may be cut short by others meanwhile. Throws Failure if it
    /// is no zip archive.
    explicit ZipReader(std::unique_ptr<platform::FileReader> file);
    ~ZipReader();
    ZipReader(const ZipReader&) = delete;
    ZipReader& operator=(const ZipReader&) = delete;

    /// The next entry, or nothing at the end. Throws Failure where the archive is damaged.
    std::optional<Entry> next();

    /// Unpacks the entry that `next` gave last, at most once. Throws Failure where its data is
    /// damaged or encrypted, or has another length than it says; pieces may have been given out by
    /// then.
    void extract(const platform::PieceSink& sink);

  private:
    struct Handle;
    std::unique_ptr<Handle> handle_;
};

} // namespace formats
