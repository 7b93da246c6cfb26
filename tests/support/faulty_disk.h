// Disks that let a test step in before each change, of the disk's calls or of the system's.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>

#include "platform/disk.h"
#include "platform/failure.h"
#include "platform/raw_disk.h"

namespace test {

/// Thrown where the power goes: nothing in the program catches it.
struct PowerCut {};

/// Counts the changes asked of a disk, each as one however many calls of the system it takes. What
/// the hook throws keeps the change from happening.
class FaultyDisk final : public platform::Disk {
  public:
    using BeforeChange = std::function<void(int number, const std::string& path)>;

    FaultyDisk(const platform::Disk& disk, BeforeChange beforeChange)
        : Disk(disk.raw()), beforeChange_(std::move(beforeChange)) {
        setGameDirectory(disk.gameDirectory());
    }

    int changes() const { return changes_; }

  private:
    void aboutToChange(const std::string& path) override { beforeChange_(++changes_, path); }

    BeforeChange beforeChange_;
    int changes_ = 0;
};

} // namespace test
