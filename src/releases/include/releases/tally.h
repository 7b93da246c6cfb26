// How much there is of a release: counted a piece at a time, so that nobody has to wait for it.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/disk.h"

namespace releases {

/// A size for people, such as "5.6 MB".
std::string sizeText(std::uint64_t bytes);

/// Goes through folders with all that is in them. The disk must outlive it.
class Tally {
  public:
    /// By absolute paths, of files or folders.
    Tally(platform::Disk& disk, std::vector<std::string> paths);

    /// Looks at so many entries. False once there are no more.
    bool step(int entries);

    std::uint64_t files() const { return files_; }
    std::uint64_t bytes() const { return bytes_; }
    /// When the newest file was changed last, in seconds since 1970; 0 without a file.
    std::int64_t newest() const { return newest_; }

    /// The figures for people, such as "1,234 files, 5.6 MB, 2004-05-06".
    std::string text() const;

  private:
    void look();

    platform::Disk* disk_;
    std::vector<std::string> left_;
    std::uint64_t files_ = 0;
    std::uint64_t bytes_ = 0;
    std::int64_t newest_ = 0;
};

} // namespace releases
