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

/// A change that the disk is about to ask of the system: the number of the change, the call by its
/// name in RawDisk, and the entry's name; for calls about an open file or folder it is empty.
struct RawChange {
    int number;
    std::string_view call;
    const std::string& name;
};

/// Forwards all calls, and lets the hook step in before each that changes or syncs something. The
/// error it gives back is the call's; what it throws is the end: nothing changes any more.
class FaultyRawDisk final : public platform::RawDisk {
  public:
    using BeforeChange = std::function<std::error_code(const RawChange& change)>;

    FaultyRawDisk(std::shared_ptr<RawDisk> disk, BeforeChange beforeChange)
        : disk_(std::move(disk)), beforeChange_(std::move(beforeChange)) {}

    int changes() const { return changes_; }

    bool ignoresCase() const override { return disk_->ignoresCase(); }
    bool syncsAllContents() const override { return disk_->syncsAllContents(); }
    Error openRoot(const std::string& path, std::unique_ptr<platform::RawFolder>& folder) override {
        return disk_->openRoot(path, folder);
    }
    Error openFolder(platform::RawFolder& in, const std::string& name, platform::Links links,
                     std::unique_ptr<platform::RawFolder>& folder) override {
        return disk_->openFolder(in, name, links, folder);
    }
    Error list(platform::RawFolder& folder, std::vector<platform::RawName>& names) override {
        return disk_->list(folder, names);
    }
    Error look(platform::RawFolder& in, const std::string& name, platform::Links links,
               platform::RawEntry& entry) override {
        return disk_->look(in, name, links, entry);
    }
    Error lookAt(platform::RawFolder& folder, platform::RawEntry& entry) override {
        return disk_->lookAt(folder, entry);
    }
    Error lookAt(platform::RawFile& file, platform::RawEntry& entry) override {
        return disk_->lookAt(file, entry);
    }
    Error openFile(platform::RawFolder& in, const std::string& name, platform::Links links,
                   std::unique_ptr<platform::RawFile>& file) override {
        return disk_->openFile(in, name, links, file);
    }
    Error read(platform::RawFile& file, std::span<std::uint8_t> into, std::size_t& count) override {
        return disk_->read(file, into, count);
    }
    Error seek(platform::RawFile& file, std::uint64_t offset) override {
        return disk_->seek(file, offset);
    }
    Error map(platform::RawFile& file, std::unique_ptr<platform::FileView>& view) override {
        return disk_->map(file, view);
    }
    Error readLink(platform::RawFolder& in, const std::string& name, std::string& target) override {
        return disk_->readLink(in, name, target);
    }

    Error createFile(platform::RawFolder& in, const std::string& name, std::uint32_t mode,
                     std::unique_ptr<platform::RawFile>& file) override {
        return change("createFile", name, [&] { return disk_->createFile(in, name, mode, file); });
    }
    Error emptyFile(platform::RawFolder& in, const std::string& name,
                    std::unique_ptr<platform::RawFile>& file) override {
        return change("emptyFile", name, [&] { return disk_->emptyFile(in, name, file); });
    }
    Error write(platform::RawFile& file, std::string_view bytes) override {
        return change("write", {}, [&] { return disk_->write(file, bytes); });
    }
    Error setLike(platform::RawFile& file, const platform::RawEntry& model) override {
        return change("setLike", {}, [&] { return disk_->setLike(file, model); });
    }
    Error setLike(platform::RawFolder& folder, const platform::RawEntry& model) override {
        return change("setLike", {}, [&] { return disk_->setLike(folder, model); });
    }
    Error sync(platform::RawFile& file) override {
        return change("sync", {}, [&] { return disk_->sync(file); });
    }
    Error sync(platform::RawFolder& folder) override {
        return change("sync", {}, [&] { return disk_->sync(folder); });
    }
    Error syncAll(platform::RawFolder& folder) override {
        return change("syncAll", {}, [&] { return disk_->syncAll(folder); });
    }
    Error renameNew(platform::RawFolder& from, const std::string& name, platform::RawFolder& to,
                    const std::string& newName) override {
        return change("renameNew", name, [&] { return disk_->renameNew(from, name, to, newName); });
    }
    Error renameOver(platform::RawFolder& from, const std::string& name, platform::RawFolder& to,
                     const std::string& newName) override {
        return change("renameOver", name,
                      [&] { return disk_->renameOver(from, name, to, newName); });
    }
    Error hardLink(platform::RawFolder& from, const std::string& name, platform::RawFolder& to,
                   const std::string& newName) override {
        return change("hardLink", name, [&] { return disk_->hardLink(from, name, to, newName); });
    }
    Error makeLink(platform::RawFolder& in, const std::string& name,
                   const std::string& target) override {
        return change("makeLink", name, [&] { return disk_->makeLink(in, name, target); });
    }
    Error unlink(platform::RawFolder& in, const std::string& name) override {
        return change("unlink", name, [&] { return disk_->unlink(in, name); });
    }
    Error makeFolder(platform::RawFolder& in, const std::string& name) override {
        return change("makeFolder", name, [&] { return disk_->makeFolder(in, name); });
    }
    Error removeFolder(platform::RawFolder& in, const std::string& name) override {
        return change("removeFolder", name, [&] { return disk_->removeFolder(in, name); });
    }

  private:
    template <typename Call>
    Error change(std::string_view call, const std::string& name, Call&& make) {
        if (isOver_)
            return std::make_error_code(std::errc::io_error);
        isOver_ = true;
        const auto error = beforeChange_({++changes_, call, name});
        isOver_ = false;
        return error ? error : make();
    }

    std::shared_ptr<RawDisk> disk_;
    BeforeChange beforeChange_;
    int changes_ = 0;
    bool isOver_ = false;
};

/// The disk's promises over a system that a hook makes fail.
inline std::unique_ptr<platform::Disk> faultyDisk(std::shared_ptr<platform::RawDisk> disk,
                                                  FaultyRawDisk::BeforeChange beforeChange) {
    return std::make_unique<platform::Disk>(
        std::make_shared<FaultyRawDisk>(std::move(disk), std::move(beforeChange)));
}

} // namespace test
