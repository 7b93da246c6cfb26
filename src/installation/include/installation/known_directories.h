// The game directories that this user has worked in, in a text file of his settings.
#pragma once

#include <string>
#include <vector>

#include "platform/disk.h"

namespace installation {

/// Directories are in the system's form. The file has a line for each, the one used last first;
/// what is no absolute path in it is passed over. It is read at every call: another copy of the
/// program may have changed it.
class KnownDirectories {
  public:
    /// `folder` holds the file, and is made when it is first written.
    KnownDirectories(platform::Disk& disk, std::string folder)
        : disk_(disk), folder_(std::move(folder)) {}

    /// Without the file there are none. Throws Failure for one that cannot be read.
    std::vector<std::string> all() const;
    bool has(const std::string& directory) const;

    /// Each leaves the old or the new file, whole. Throws Failure, also where the system tells of
    /// no place for settings.
    void use(const std::string& directory);
    void add(const std::string& directory);
    void forget(const std::string& directory);

  private:
    std::string file() const { return folder_ + "\\directories.txt"; }
    void write(const std::vector<std::string>& directories);

    platform::Disk& disk_;
    std::string folder_;
};

} // namespace installation
