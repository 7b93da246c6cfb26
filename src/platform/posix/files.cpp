// Files: opening, reading, writing, what is told of them.
#include <fcntl.h>
#include <sys/mman.h>

#include "entry.h"
#include "platform/disk.h"
#include "posix_disk.h"

namespace platform::posix {
namespace {

class Mapping final : public FileView {
  public:
    Mapping(void* start, std::size_t size) : start_(start), size_(size) {}
    ~Mapping() override {
        if (start_ != nullptr)
            ::munmap(start_, size_);
    }
    std::span<const std::uint8_t> bytes() const override {
        return {static_cast<const std::uint8_t*>(start_), size_};
    }

  private:
    void* start_;
    std::size_t size_;
};

std::error_code openAt(RawFolder& in, const std::string& name, int flags, std::uint32_t mode,
                       std::unique_ptr<RawFile>& file) {
    Descriptor descriptor(::openat(numberOf(in), name.c_str(), flags | O_CLOEXEC | O_NONBLOCK,
                                   static_cast<mode_t>(mode)));
    if (!descriptor)
        return lastError();
    file = std::make_unique<PosixFile>(std::move(descriptor));
    return {};
}

} // namespace

RawDisk::Error PosixDisk::openFile(RawFolder& in, const std::string& name, Links links,
                                   std::unique_ptr<RawFile>& file) {
    return openAt(in, name, O_RDONLY | (links == Links::kept ? O_NOFOLLOW : 0), 0, file);
}

RawDisk::Error PosixDisk::createFile(RawFolder& in, const std::string& name, std::uint32_t mode,
                                     std::unique_ptr<RawFile>& file) {
    return openAt(in, name, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW, mode, file);
}

RawDisk::Error PosixDisk::emptyFile(RawFolder& in, const std::string& name,
                                    std::unique_ptr<RawFile>& file) {
    return openAt(in, name, O_WRONLY | O_TRUNC | O_NOFOLLOW, 0, file);
}

RawDisk::Error PosixDisk::lookAt(RawFile& file, RawEntry& entry) {
    struct stat found {};
    if (::fstat(numberOf(file), &found) != 0)
        return lastError();
    entry = entryOf(found);
    return {};
}

RawDisk::Error PosixDisk::read(RawFile& file, std::span<std::uint8_t> into, std::size_t& count) {
    for (;;) {
        const auto got = ::read(numberOf(file), into.data(), into.size());
        if (got >= 0) {
            count = static_cast<std::size_t>(got);
            return {};
        }
        if (errno != EINTR)
            return lastError();
    }
}

RawDisk::Error PosixDisk::write(RawFile& file, std::string_view bytes) {
    while (!bytes.empty()) {
        const auto count = ::write(numberOf(file), bytes.data(), bytes.size());
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return lastError();
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    return {};
}

RawDisk::Error PosixDisk::seek(RawFile& file, std::uint64_t offset) {
    return ::lseek(numberOf(file), static_cast<off_t>(offset), SEEK_SET) < 0 ? lastError()
                                                                             : Error();
}

RawDisk::Error PosixDisk::map(RawFile& file, std::unique_ptr<FileView>& view) {
    struct stat found {};
    if (::fstat(numberOf(file), &found) != 0)
        return lastError();
    const auto size = static_cast<std::size_t>(found.st_size);
    void* start =
        size == 0 ? nullptr : ::mmap(nullptr, size, PROT_READ, MAP_PRIVATE, numberOf(file), 0);
    if (start == MAP_FAILED)
        return lastError();
    view = std::make_unique<Mapping>(start, size);
    return {};
}

RawDisk::Error PosixDisk::setLike(RawFile& file, const RawEntry& model) {
    return setLikeModel(numberOf(file), model);
}

RawDisk::Error PosixDisk::sync(RawFile& file) {
    return errorOf(::fsync(numberOf(file)));
}

} // namespace platform::posix
