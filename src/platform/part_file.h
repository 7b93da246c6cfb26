// A file or folder in the making, under a hidden name beside its destination.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "folder.h"
#include "platform/failure.h"
#include "platform/raw_disk.h"

namespace platform {

/// Hidden, so that one left behind by a crash is in no listing; never given out twice.
std::string nextPartName();

/// Whether a name is that of a part, whoever made it.
bool isPart(std::string_view name);

/// Whether a name is that of a part whose process runs no more.
bool isLeftOver(std::string_view name);

/// A new file that takes no one's place before it is whole.
class PartFile {
  public:
    /// Throws Failure where the folder takes no new file.
    PartFile(RawDisk& disk, Folder& folder, std::string_view path, std::uint32_t mode);

    RawFile& raw() { return *file_; }
    void write(std::string_view bytes);
    void sync();
    /// As far as the disk can hold them.
    void takeTimes(const RawEntry& model);
    /// All is written; what follows needs no open file.
    void close() { file_.reset(); }
    /// Syncs all of the disk that the file lies on, unless that is among those synced already, by
    /// their numbers.
    void syncDisk(std::vector<std::uint64_t>& synced);
    /// Takes its name, or the place of an older file.
    void replace(const std::string& leaf);
    /// Takes the file away again, or as much of it as is there.
    void discard();

  private:
    RawDisk& disk_;
    Folder& folder_;
    std::string path_;
    std::string name_;
    std::unique_ptr<RawFile> file_;
};

} // namespace platform
