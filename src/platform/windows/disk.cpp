// The disk of Windows, which ignores case by itself.
#include "platform/disk.h"

#include <algorithm>
#include <exception>
#include <filesystem>
#include <utility>

#include <windows.h>

#include "platform/failure.h"
#include "platform/paths.h"
#include "platform/text.h"
#include "system_text.h"

namespace platform {
namespace {

using windows::narrow;
using windows::wide;

constexpr auto partSuffix = ".vexillum-part";

[[noreturn]] void fail(std::string_view call, std::string_view path, DWORD error = GetLastError()) {
    throw Failure(call, path, windows::messageOf(error));
}

class Handle {
  public:
    explicit Handle(HANDLE handle) : handle_(handle) {}
    Handle(Handle&& other) noexcept : handle_(std::exchange(other.handle_, INVALID_HANDLE_VALUE)) {}
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    ~Handle() {
        if (handle_ != INVALID_HANDLE_VALUE)
            CloseHandle(handle_);
    }
    HANDLE get() const { return handle_; }
    explicit operator bool() const { return handle_ != INVALID_HANDLE_VALUE; }

  private:
    HANDLE handle_;
};

void writeAll(HANDLE file, std::string_view bytes, std::string_view path) {
    while (!bytes.empty()) {
        DWORD written = 0;
        const auto count = static_cast<DWORD>(std::min<std::size_t>(bytes.size(), 1U << 20U));
        if (WriteFile(file, bytes.data(), count, &written, nullptr) == 0)
            fail("write", path);
        bytes.remove_prefix(written);
    }
}

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

class WindowsDisk final : public Disk {
  public:
    void setGameDirectory(const std::string& folder) override { gameDirectory_ = folder; }

    bool isInside(std::string_view path) const override {
        return isPlainPathBelow(path, gameDirectory_);
    }

    std::string systemPath(const std::string& path) override { return path; }

    EntryKind kindOf(const std::string& path) override {
        try {
            const auto attributes = GetFileAttributesW(nameOf(path).c_str());
            if (attributes == INVALID_FILE_ATTRIBUTES)
                return EntryKind::none;
            return isFolder(attributes) ? EntryKind::folder : EntryKind::file;
        } catch (const Failure&) {
            return EntryKind::none;
        }
    }

    std::vector<std::string> folderNames(const std::string& path) override {
        return namesOf(path, true);
    }

    std::vector<std::string> fileNames(const std::string& path) override {
        return namesOf(path, false);
    }

    std::string readFile(const std::string& path) override {
        const auto file = open(path, GENERIC_READ, OPEN_EXISTING, "read");
        LARGE_INTEGER size{};
        if (GetFileSizeEx(file.get(), &size) == 0)
            fail("read", path);
        std::string bytes(static_cast<std::size_t>(size.QuadPart), '\0');
        std::size_t done = 0;
        while (done < bytes.size()) {
            DWORD count = 0;
            const auto wanted =
                static_cast<DWORD>(std::min<std::size_t>(bytes.size() - done, 1U << 20U));
            if (::ReadFile(file.get(), bytes.data() + done, wanted, &count, nullptr) == 0)
                fail("read", path);
            if (count == 0)
                break;
            done += count;
        }
        bytes.resize(done);
        return bytes;
    }

    std::unique_ptr<FileView> mapFile(const std::string& path) override {
        const auto file = open(path, GENERIC_READ, OPEN_EXISTING, "map");
        LARGE_INTEGER size{};
        if (GetFileSizeEx(file.get(), &size) == 0)
            fail("map", path);
        if (size.QuadPart == 0)
            return std::make_unique<Mapping>(nullptr, 0);
        const HANDLE mapping =
            CreateFileMappingW(file.get(), nullptr, PAGE_READONLY, 0, 0, nullptr);
        if (mapping == nullptr)
            fail("map", path);
        const void* start = MapViewOfFile(mapping, FILE_MAP_READ, 0, 0, 0);
        const auto error = GetLastError();
        CloseHandle(mapping);
        if (start == nullptr)
            fail("map", path, error);
        return std::make_unique<Mapping>(start, static_cast<std::size_t>(size.QuadPart));
    }

    void writePieces(const std::string& path,
                     const std::function<void(const PieceSink&)>& produce) override {
        checkChange(path, "write");
        if (kindOf(path) == EntryKind::folder)
            fail("write", path, ERROR_ACCESS_DENIED);
        const auto part = path + partSuffix;
        try {
            const auto file = open(part, GENERIC_WRITE, CREATE_ALWAYS, "write");
            produce([&](std::string_view piece) { writeAll(file.get(), piece, path); });
        } catch (const Failure&) {
            DeleteFileW(nameOf(part).c_str());
            throw;
        }
        putInPlace(part, path, "write");
    }

    void writeFile(const std::string& path, std::string_view bytes) override {
        checkChange(path, "write");
        const auto file = open(path, GENERIC_WRITE, CREATE_ALWAYS, "write");
        writeAll(file.get(), bytes, path);
    }

    void replaceFile(const std::string& path, std::string_view bytes) override {
        checkChange(path, "write");
        const auto part = path + partSuffix;
        {
            const auto file = open(part, GENERIC_WRITE, CREATE_ALWAYS, "write");
            writeAll(file.get(), bytes, path);
            if (FlushFileBuffers(file.get()) == 0)
                fail("write", path);
        }
        putInPlace(part, path, "write");
    }

    bool moveEntry(const std::string& from, const std::string& to) override {
        checkChange(from, "move");
        checkChange(to, "move");
        if (kindOf(from) == EntryKind::none || kindOf(to) != EntryKind::none)
            return false;
        if (isBelow(foldCase(to), foldCase(from)))
            fail("move", from, ERROR_SHARING_VIOLATION);
        const auto made = makeParents(to);
        // Without MOVEFILE_REPLACE_EXISTING the system never replaces.
        if (MoveFileExW(nameOf(from).c_str(), nameOf(to).c_str(),
                        MOVEFILE_COPY_ALLOWED | MOVEFILE_WRITE_THROUGH) != 0)
            return true;
        const auto error = GetLastError();
        for (auto at = made.rbegin(); at != made.rend(); ++at)
            RemoveDirectoryW(at->c_str());
        if (error == ERROR_ALREADY_EXISTS || error == ERROR_FILE_EXISTS ||
            error == ERROR_FILE_NOT_FOUND)
            return false;
        fail("move", to, error);
    }

    bool renameEntry(const std::string& path, const std::string& newName) override {
        checkChange(path, "rename");
        if (leadsAway(newName) || newName.find('\\') != std::string::npos)
            fail("rename", path, ERROR_INVALID_NAME);
        const auto target = path.substr(0, path.rfind('\\') + 1) + newName;
        const bool isSame = equalIgnoringCase(path, target);
        if (kindOf(path) == EntryKind::none || (!isSame && kindOf(target) != EntryKind::none))
            return false;
        if (MoveFileExW(nameOf(path).c_str(), nameOf(target).c_str(), 0) == 0)
            fail("rename", path);
        return true;
    }

    void copyFile(const std::string& from, const std::string& to,
                  const CopyProgress& onProgress) override {
        checkChange(to, "copy");
        makeParents(to);
        const auto part = to + partSuffix;
        CopyReport report{onProgress};
        if (CopyFileExW(nameOf(from).c_str(), nameOf(part).c_str(), CopyReport::tell, &report,
                        nullptr, 0) == 0) {
            if (report.thrown)
                std::rethrow_exception(report.thrown);
            fail("copy", from);
        }
        putInPlace(part, to, "copy");
    }

    bool leadsThroughLink(const std::string& folder, const std::string& relative) override {
        auto path = folder;
        for (const auto& part : splitPath(relative)) {
            path += "\\" + part;
            const auto attributes = GetFileAttributesW(nameOf(path).c_str());
            if (attributes != INVALID_FILE_ATTRIBUTES &&
                (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0)
                return true;
        }
        return false;
    }

    void removeFile(const std::string& path) override {
        checkChange(path, "remove");
        if (DeleteFileW(nameOf(path).c_str()) == 0)
            fail("remove", path);
    }

    void makeFolder(const std::string& path) override {
        checkChange(path, "make folder");
        if (CreateDirectoryW(nameOf(path).c_str(), nullptr) == 0)
            fail("make folder", path);
    }

    void removeFolder(const std::string& path) override {
        checkChange(path, "remove");
        if (RemoveDirectoryW(nameOf(path).c_str()) == 0)
            fail("remove", path);
    }

    void removeTree(const std::string& path) override {
        checkChange(path, "remove");
        if (kindOf(path) != EntryKind::folder)
            fail("remove", path);
        std::error_code error;
        std::filesystem::remove_all(nameOf(path), error);
        if (error)
            fail("remove", path);
    }

    /// Moves are written through one by one; there is no call for a whole disk without an
    /// administrator's rights.
    void flush() override {}

  private:
    /// Passes the system's reports on. Nothing may be thrown through the system's frames.
    struct CopyReport {
        const CopyProgress& onProgress;
        std::uint64_t told = 0;
        std::exception_ptr thrown = nullptr;

        static DWORD CALLBACK tell(LARGE_INTEGER /*size*/, LARGE_INTEGER done,
                                   LARGE_INTEGER /*streamSize*/, LARGE_INTEGER /*streamDone*/,
                                   DWORD /*stream*/, DWORD /*reason*/, HANDLE /*from*/,
                                   HANDLE /*to*/, void* data) {
            auto& report = *static_cast<CopyReport*>(data);
            const auto bytes = static_cast<std::uint64_t>(done.QuadPart);
            try {
                if (report.onProgress)
                    report.onProgress(bytes - report.told);
                report.told = bytes;
                return PROGRESS_CONTINUE;
            } catch (...) {
                report.thrown = std::current_exception();
                return PROGRESS_CANCEL;
            }
        }
    };

    static bool isFolder(DWORD attributes) {
        return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0 &&
               (attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0;
    }

    /// The long form of a path, which has no limit of 260 characters.
    std::wstring nameOf(std::string_view path) const {
        if (path.find('\0') != std::string_view::npos || path.size() < 3 || path[1] != ':')
            fail("find", path, ERROR_INVALID_NAME);
        std::string plain(path.substr(0, 2));
        for (const auto& part : splitPath(replaceAll(path.substr(2), "/", "\\"))) {
            if (leadsAway(part))
                fail("find", path, ERROR_INVALID_NAME);
            plain += "\\" + part;
            checkNoLink(plain, path);
        }
        return L"\\\\?\\" + wide(plain.size() == 2 ? plain + "\\" : plain);
    }

    /// No folder between the game directory and an entry of it may be a link.
    void checkNoLink(const std::string& folder, std::string_view path) const {
        if (folder.size() <= gameDirectory_.size() || folder.size() >= path.size() ||
            !isBelow(folder, gameDirectory_))
            return;
        const auto attributes = GetFileAttributesW((L"\\\\?\\" + wide(folder)).c_str());
        if (attributes != INVALID_FILE_ATTRIBUTES &&
            (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0)
            fail("find", path, ERROR_ACCESS_DENIED);
    }

    void checkChange(const std::string& path, std::string_view call) const {
        if (!isBelow(path, gameDirectory_) || path.size() <= gameDirectory_.size() + 1)
            fail(call, path, ERROR_ACCESS_DENIED);
    }

    Handle open(const std::string& path, DWORD access, DWORD creation, std::string_view call) {
        Handle file(CreateFileW(nameOf(path).c_str(), access, FILE_SHARE_READ, nullptr, creation,
                                FILE_ATTRIBUTE_NORMAL, nullptr));
        if (!file)
            fail(call, path);
        return file;
    }

    void putInPlace(const std::string& part, const std::string& path, std::string_view call) {
        if (MoveFileExW(nameOf(part).c_str(), nameOf(path).c_str(),
                        MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0)
            return;
        const auto error = GetLastError();
        DeleteFileW(nameOf(part).c_str());
        fail(call, path, error);
    }

    /// Makes missing folders on the way to a path and tells which.
    std::vector<std::wstring> makeParents(const std::string& path) const {
        std::vector<std::wstring> made;
        for (auto at = path.find('\\', gameDirectory_.size() + 1); at != std::string::npos;
             at = path.find('\\', at + 1)) {
            const auto folder = nameOf(path.substr(0, at));
            if (CreateDirectoryW(folder.c_str(), nullptr) != 0)
                made.push_back(folder);
        }
        return made;
    }

    std::vector<std::string> namesOf(const std::string& path, bool folders) const {
        WIN32_FIND_DATAW found{};
        const HANDLE search = FindFirstFileW((nameOf(path) + L"\\*").c_str(), &found);
        if (search == INVALID_HANDLE_VALUE)
            fail("list", path);
        std::vector<std::string> names;
        do {
            const bool hidden =
                (found.dwFileAttributes & (FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM)) != 0;
            auto name = narrow(found.cFileName);
            if (name != "." && name != ".." && isFolder(found.dwFileAttributes) == folders &&
                (folders || !hidden))
                names.push_back(std::move(name));
        } while (FindNextFileW(search, &found) != 0);
        FindClose(search);
        std::sort(names.begin(), names.end(), lessIgnoringCase);
        return names;
    }

    std::string gameDirectory_;
};

} // namespace

std::unique_ptr<Disk> makeDisk() {
    return std::make_unique<WindowsDisk>();
}

std::string shownPath(std::string_view path) {
    return std::string(path);
}

namespace {

std::wstring programPath() {
    std::wstring path(32768, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    return path;
}

} // namespace

std::string programFolder() {
    const auto path = programPath();
    return narrow(path.substr(0, path.rfind(L'\\')));
}

std::string programName() {
    const auto path = programPath();
    return narrow(path.substr(path.rfind(L'\\') + 1));
}

std::string absoluteFolder(const std::string& folder) {
    std::wstring path(32768, L'\0');
    path.resize(GetFullPathNameW(wide(folder).c_str(), static_cast<DWORD>(path.size()), path.data(),
                                 nullptr));
    while (path.size() > 3 && path.back() == L'\\')
        path.pop_back();
    return narrow(path);
}

} // namespace platform
