// What many entries are, looked at ahead of work that takes them one after the other: a second
// thread looks while the first one works.
#pragma once

#include <atomic>
#include <cstddef>
#include <functional>
#include <string>
#include <thread>
#include <vector>

#include "platform/disk.h"

namespace platform {

class LookAhead {
  public:
    /// Gives out the paths by their numbers. The second thread calls it, so what it reads must not
    /// change.
    using PathOf = std::function<void(std::size_t number, std::string& path)>;

    /// Looks at so many entries, those of the highest numbers first. Where the disk allows one
    /// thread alone nothing is looked at ahead.
    LookAhead(const Disk& disk, std::size_t count, PathOf pathOf);
    /// What is not looked at by then is not looked at.
    ~LookAhead();
    LookAhead(const LookAhead&) = delete;
    LookAhead& operator=(const LookAhead&) = delete;

    /// What Disk::factsOf tells of an entry, as it was when it was looked at.
    EntryFacts factsOf(std::size_t number);

  private:
    void lookAtAll();

    Disk disk_; ///< knows its folders for itself
    PathOf pathOf_;
    std::vector<EntryFacts> facts_;
    std::atomic<std::size_t> left_; ///< the facts from this number on are known
    std::atomic<bool> isEnding_ = false;
    std::string path_;
    std::thread thread_;
};

} // namespace platform
