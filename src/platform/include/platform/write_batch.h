// Many files written as one: beside their places first, then synced all at once, then renamed.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "platform/disk.h"

namespace platform {

class PartFile;

/// While it lives, the files that its disk copies or writes in pieces come to lie under their names
/// only with `commit`, or when so many have gathered that some have to go ahead. Until then no call
/// of the disk sees them. Those that were not committed are gone with the batch.
class WriteBatch {
  public:
    explicit WriteBatch(Disk& disk);
    ~WriteBatch();
    WriteBatch(const WriteBatch&) = delete;
    WriteBatch& operator=(const WriteBatch&) = delete;

    /// A power cut from here on leaves each file whole, or not there yet. Throws Failure for a file
    /// that could not get its name; those behind it have none either.
    void commit();

  private:
    friend class Disk;

    struct Waiting {
        std::unique_ptr<PartFile> part;
        std::shared_ptr<Folder> folder;
        std::string leaf;
        bool isNew = false;
    };

    void add(Waiting waiting);

    Disk& disk_;
    std::vector<Waiting> waiting_;
    std::size_t folders_ = 0; ///< about as many are held open
};

} // namespace platform
