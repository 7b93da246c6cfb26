// Reading: whole texts, mappings, pieces.
#include <algorithm>

#include "check.h"
#include "folder_cache.h"
#include "platform/disk.h"
#include "platform/raw_disk.h"

namespace platform {
namespace {

/// Far more than any text that the program reads whole.
constexpr std::uint64_t largestText = std::uint64_t{1} << 28U;

constexpr std::size_t largestBlock = std::size_t{1} << 18U;

class RawReader final : public FileReader {
  public:
    RawReader(std::shared_ptr<RawDisk> disk, std::unique_ptr<RawFile> file, std::string path,
              std::uint64_t size)
        : disk_(std::move(disk)), file_(std::move(file)), path_(std::move(path)), size_(size) {}

    std::uint64_t size() const override { return size_; }

    std::size_t read(std::span<std::uint8_t> into) override {
        std::size_t count = 0;
        check(disk_->read(*file_, into, count), "read", path_);
        return count;
    }

    void seek(std::uint64_t offset) override {
        check(disk_->seek(*file_, std::min(offset, size_)), "read", path_);
    }

  private:
    std::shared_ptr<RawDisk> disk_;
    std::unique_ptr<RawFile> file_;
    std::string path_;
    std::uint64_t size_;
};

} // namespace

std::unique_ptr<RawFile> Disk::openToRead(const std::string& path, std::string_view call,
                                          RawEntry& entry) {
    folders_->beginCall();
    const auto spot = folders_->spotOf(path, call);
    const auto name = spot.folder->spelling(spot.leaf);
    if (!name)
        fail(call, path, std::errc::no_such_file_or_directory);
    std::unique_ptr<RawFile> file;
    check(raw_->openFile(spot.folder->raw(), *name, spot.links, file), call, path);
    check(raw_->lookAt(*file, entry), call, path);
    if (entry.kind != RawKind::file)
        fail(call, path,
             entry.kind == RawKind::folder ? std::errc::is_a_directory
                                           : std::errc::invalid_argument);
    return file;
}

/// Two paths of one file may be two entries, which are hard links, or two spellings of one.
bool Disk::isOneEntry(const std::string& one, const std::string& other) {
    folders_->beginCall();
    const auto spot = folders_->spotOf(one, "look at");
    const auto otherSpot = folders_->spotOf(other, "look at");
    return spot.folder == otherSpot.folder &&
           spot.folder->spelling(spot.leaf) == otherSpot.folder->spelling(otherSpot.leaf);
}

bool Disk::holdSame(const std::string& one, const std::string& other) {
    RawEntry entry;
    RawEntry otherEntry;
    const auto file = openToRead(one, "read", entry);
    const auto otherFile = openToRead(other, "read", otherEntry);
    if (entry.size != otherEntry.size)
        return false;
    if (entry.identity == otherEntry.identity)
        return !isOneEntry(one, other);
    std::vector<std::uint8_t> block(largestBlock);
    std::vector<std::uint8_t> otherBlock(largestBlock);
    for (;;) {
        std::size_t count = 0;
        std::size_t otherCount = 0;
        check(raw_->read(*file, block, count), "read", one);
        check(raw_->read(*otherFile, otherBlock, otherCount), "read", other);
        if (count != otherCount ||
            !std::equal(block.begin(), block.begin() + static_cast<std::ptrdiff_t>(count),
                        otherBlock.begin()))
            return false;
        if (count == 0)
            return true;
    }
}

std::uint64_t Disk::sizeOf(const std::string& path) {
    folders_->beginCall();
    const auto spot = folders_->spotOf(path, "look at");
    const auto name = spot.folder->spelling(spot.leaf);
    RawEntry entry;
    if (!name)
        fail("look at", path, std::errc::no_such_file_or_directory);
    check(raw_->look(spot.folder->raw(), *name, spot.links, entry), "look at", path);
    if (entry.kind == RawKind::folder)
        fail("look at", path, std::errc::is_a_directory);
    return entry.size;
}

std::string Disk::readFile(const std::string& path) {
    RawEntry entry;
    const auto file = openToRead(path, "read", entry);
    if (entry.size > largestText)
        fail("read", path, std::errc::file_too_large);
    // One byte more than there should be, so that the end shows without another block.
    std::string bytes(static_cast<std::size_t>(entry.size) + 1, '\0');
    for (std::size_t done = 0;;) {
        std::size_t count = 0;
        auto* start = reinterpret_cast<std::uint8_t*>(bytes.data());
        check(raw_->read(*file, {start + done, bytes.size() - done}, count), "read", path);
        done += count;
        if (count == 0) {
            bytes.resize(done);
            return bytes;
        }
        if (done == bytes.size())
            bytes.resize(done * 2);
    }
}

std::unique_ptr<FileView> Disk::mapFile(const std::string& path) {
    RawEntry entry;
    const auto file = openToRead(path, "map", entry);
    std::unique_ptr<FileView> view;
    check(raw_->map(*file, view), "map", path);
    return view;
}

std::unique_ptr<FileReader> Disk::openFile(const std::string& path) {
    RawEntry entry;
    auto file = openToRead(path, "read", entry);
    return std::make_unique<RawReader>(raw_, std::move(file), path, entry.size);
}

} // namespace platform
