// Files: opening, reading, writing, what is told of them.
#include <algorithm>

#include "platform/disk.h"
#include "system_error.h"
#include "windows_disk.h"

namespace platform::windows {
namespace {

constexpr std::size_t largestPiece = std::size_t{1} << 20U;

class Mapping final : public FileView {
  public:
    Mapping(const void* start, std::size_t size) : start_(start), size_(size) {}
    ~Mapping() override {
        if (start_ != nullptr)
            UnmapViewOfFile(start_);
    }
    std::span<const std::uint8_t> bytes() const override {
        return {static_cast<const std::uint8_t*>(start_), size_};
    }

  private:
    const void* start_;
    std::size_t size_;
};

std::error_code openAt(const std::wstring& path, DWORD access, DWORD sharing, DWORD creation,
                       std::unique_ptr<RawFile>& file, DWORD attributes = 0) {
    Handle handle(CreateFileW(path.c_str(), access, sharing, nullptr, creation,
                              attributes == 0 ? FILE_ATTRIBUTE_NORMAL : attributes, nullptr));
    if (!handle)
        return lastError();
    file = std::make_unique<WindowsFile>(std::move(handle));
    return {};
}

} // namespace

RawDisk::Error WindowsDisk::openFile(RawFolder& in, const std::string& name, Links links,
                                     std::unique_ptr<RawFile>& file) {
    RawEntry entry;
    std::wstring path;
    if (const auto error = look(in, name, links, entry))
        return error;
    if (entry.kind == RawKind::link)
        return codeOf(ERROR_CANT_ACCESS_FILE);
    if (entry.kind == RawKind::folder)
        return codeOf(errorIsFolder);
    if (const auto error = findPath(in, name, path))
        return error;
    constexpr DWORD sharing = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    return patience_.with([&] { return openAt(path, GENERIC_READ, sharing, OPEN_EXISTING, file); });
}

RawDisk::Error WindowsDisk::createFile(RawFolder& in, const std::string& name, std::uint32_t mode,
                                       std::unique_ptr<RawFile>& file) {
    std::wstring path;
    if (const auto error = newPath(in, name, path))
        return error;
    return openAt(path, GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_DELETE,
                  CREATE_NEW, file, attributesFor(mode));
}

RawDisk::Error WindowsDisk::emptyFile(RawFolder& in, const std::string& name,
                                      std::unique_ptr<RawFile>& file) {
    RawEntry entry;
    std::wstring path;
    if (const auto error = look(in, name, Links::kept, entry))
        return error;
    if (entry.kind != RawKind::file)
        return codeOf(ERROR_CANT_ACCESS_FILE);
    if (const auto error = findPath(in, name, path))
        return error;
    return patience_.with(
        [&] { return openAt(path, GENERIC_WRITE, FILE_SHARE_READ, TRUNCATE_EXISTING, file); });
}

RawDisk::Error WindowsDisk::lookAt(RawFile& file, RawEntry& entry) {
    return lookAtHandle(handleOf(file), entry);
}

RawDisk::Error WindowsDisk::read(RawFile& file, std::span<std::uint8_t> into, std::size_t& count) {
    DWORD got = 0;
    const auto wanted = static_cast<DWORD>(std::min<std::size_t>(into.size(), largestPiece));
    const auto error = errorOf(ReadFile(handleOf(file), into.data(), wanted, &got, nullptr));
    count = got;
    return error;
}

RawDisk::Error WindowsDisk::write(RawFile& file, std::string_view bytes) {
    while (!bytes.empty()) {
        DWORD written = 0;
        const auto wanted = static_cast<DWORD>(std::min<std::size_t>(bytes.size(), largestPiece));
        if (WriteFile(handleOf(file), bytes.data(), wanted, &written, nullptr) == 0)
            return lastError();
        bytes.remove_prefix(written);
    }
    return {};
}

RawDisk::Error WindowsDisk::seek(RawFile& file, std::uint64_t offset) {
    LARGE_INTEGER place{};
    place.QuadPart = static_cast<LONGLONG>(offset);
    return errorOf(SetFilePointerEx(handleOf(file), place, nullptr, FILE_BEGIN));
}

RawDisk::Error WindowsDisk::map(RawFile& file, std::unique_ptr<FileView>& view) {
    LARGE_INTEGER size{};
    if (GetFileSizeEx(handleOf(file), &size) == 0)
        return lastError();
    if (size.QuadPart == 0) {
        view = std::make_unique<Mapping>(nullptr, 0);
        return {};
    }
    const HANDLE mapping =
        CreateFileMappingW(handleOf(file), nullptr, PAGE_READONLY, 0, 0, nullptr);
    if (mapping == nullptr)
        return lastError();
    const void* start = MapViewOfFile(mapping, FILE_MAP_READ, 0, 0, 0);
    const auto error = start == nullptr ? lastError() : Error();
    CloseHandle(mapping);
    if (!error)
        view = std::make_unique<Mapping>(start, static_cast<std::size_t>(size.QuadPart));
    return error;
}

RawDisk::Error WindowsDisk::setLike(RawFile& file, const RawEntry& model) {
    return setHandleLike(handleOf(file), model);
}

RawDisk::Error WindowsDisk::sync(RawFile& file) {
    return errorOf(FlushFileBuffers(handleOf(file)));
}

} // namespace platform::windows
