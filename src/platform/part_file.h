// A file or folder in the making, under a hidden name beside its destination.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "folder.h"
#include "platform/failure.h"
#include "platform/raw_disk.h"

namespace platform {

/// Hidden, so that one left behind by a crash is in no listing; never given out twice.
std::string nextPartName();

/// A new file that takes no one's place before it is whole.
class PartFile {
  public:
    /// The folder takes no new file.
    struct Refused : Failure {
        using Failure::Failure;
    };

    /// Throws Refused.
    PartFile(RawDisk& disk, Folder& folder, std::string_view path, std::uint32_t mode);

    RawFile& raw() { return *file_; }
    void write(std::string_view bytes);
    void sync();
    /// As far as the disk can hold them.
    void takeTimes(const RawEntry& model);
    /// Takes its name, or the place of an older file.
    void replace(const std::string& leaf);
    /// Takes the file away again, or as much of it as is there.
    void discard();

  private:
    RawDisk& disk_;
    Folder& folder_;
    std::string_view path_;
    std::string name_;
    std::unique_ptr<RawFile> file_;
};

} // namespace platform
