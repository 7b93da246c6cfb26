// The disk of a POSIX system. Names are looked up exactly first, which costs one call; a miss is
// answered from a listing of the folder that is read once and kept while the folder's time stands.
#include "platform/disk.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <optional>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include <dirent.h>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include "platform/failure.h"
#include "platform/paths.h"
#include "platform/text.h"

namespace platform {
namespace {

constexpr unsigned noReplace = 1; // RENAME_NOREPLACE, which not every C library names
/// Far more than any text that the program reads whole.
constexpr off_t largestText = off_t{1} << 28U;
constexpr std::size_t mostOpenFolders = 200;
constexpr auto handlesLast = std::chrono::milliseconds(250);
constexpr auto listingIsFresh = std::chrono::milliseconds(100);

[[noreturn]] void fail(std::string_view call, std::string_view path, int error = errno) {
    throw Failure(call, shownPath(path), std::strerror(error));
}

class Descriptor {
  public:
    explicit Descriptor(int number = -1) : number_(number) {}
    Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        std::swap(number_, other.number_);
        return *this;
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() {
        if (number_ >= 0)
            ::close(number_);
    }
    int get() const { return number_; }
    int release() { return std::exchange(number_, -1); }
    explicit operator bool() const { return number_ >= 0; }

  private:
    int number_;
};

bool sameTime(const timespec& a, const timespec& b) {
    return a.tv_sec == b.tv_sec && a.tv_nsec == b.tv_nsec;
}

bool isExpressible(std::string_view name) {
    return name.find_first_of("\\\r\n") == std::string_view::npos;
}

EntryKind kindOfMode(mode_t mode) {
    return S_ISDIR(mode) ? EntryKind::folder : EntryKind::file;
}

struct Entry {
    std::string name;
    EntryKind kind;
};

/// An open folder and, once a name was missed in it, the names it has by their folded form.
class Folder {
  public:
    explicit Folder(Descriptor handle) : handle_(std::move(handle)) {}

    int handle() const { return handle_.get(); }

    /// All entries in the order of the disk; a fifo, socket or device is of no kind.
    std::vector<Entry> read() const {
        Descriptor own(::openat(handle(), ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
        const std::unique_ptr<DIR, decltype([](DIR* d) { ::closedir(d); })> stream(
            own ? ::fdopendir(own.get()) : nullptr);
        if (!stream)
            fail("list", ".");
        own.release();
        std::vector<Entry> entries;
        while (const dirent* item = ::readdir(stream.get()))
            if (const std::string_view name = item->d_name; name != "." && name != "..")
                entries.push_back({std::string(name), kindOfItem(*item)});
        return entries;
    }

    /// The spelling of an entry, or nothing.
    std::optional<std::string> spelling(const std::string& name) {
        struct stat found {};
        if (::fstatat(handle(), name.c_str(), &found, AT_SYMLINK_NOFOLLOW) == 0)
            return name;
        return otherSpelling(name);
    }

    /// Whether the folder has an entry of that name in any case.
    bool hasAny(const std::string& name) {
        learnNames();
        return names_.contains(foldCase(name));
    }

    /// The spelling of an entry of which the one given was already missed.
    std::optional<std::string> otherSpelling(const std::string& name) {
        learnNames();
        const auto [first, last] = names_.equal_range(foldCase(name));
        if (first == last)
            return std::nullopt;
        return std::min_element(first, last,
                                [](const auto& a, const auto& b) { return a.second < b.second; })
            ->second;
    }

    /// Whether a handle of the entry may be kept.
    bool wasOpened(const std::string& name) const { return opened_.contains(name); }
    void noteOpened(const std::string& name) { opened_.insert(name); }

    void noteAdded(const std::string& name) {
        if (listed_)
            names_.emplace(foldCase(name), name);
    }

    void noteRemoved(const std::string& name) {
        if (!listed_)
            return;
        const auto [first, last] = names_.equal_range(foldCase(name));
        const auto at = std::find_if(first, last, [&](const auto& n) { return n.second == name; });
        if (at != last)
            names_.erase(at);
    }

  private:
    EntryKind kindOfItem(const dirent& item) const {
        auto type = item.d_type;
        if (type == DT_UNKNOWN) {
            struct stat found {};
            if (::fstatat(handle(), item.d_name, &found, AT_SYMLINK_NOFOLLOW) != 0)
                return EntryKind::none;
            type = static_cast<unsigned char>(IFTODT(found.st_mode));
        }
        if (type == DT_DIR)
            return EntryKind::folder;
        return type == DT_REG || type == DT_LNK ? EntryKind::file : EntryKind::none;
    }

    /// The listing follows this program's own changes. Those of others show in the folder's time,
    /// which is looked at again when the listing is no longer fresh.
    void learnNames() {
        const auto now = std::chrono::steady_clock::now();
        if (listed_ && now - checkedAt_ < listingIsFresh)
            return;
        struct stat found {};
        if (::fstat(handle(), &found) != 0)
            fail("list", ".");
        checkedAt_ = now;
        if (listed_ && sameTime(listedTime_, found.st_mtim))
            return;
        names_.clear();
        for (const auto& entry : read())
            names_.emplace(foldCase(entry.name), entry.name);
        listedTime_ = found.st_mtim;
        listed_ = true;
    }

    Descriptor handle_;
    bool listed_ = false;
    timespec listedTime_{};
    std::chrono::steady_clock::time_point checkedAt_;
    std::unordered_multimap<std::string, std::string> names_;
    std::unordered_set<std::string> opened_;
};

using FolderPtr = std::shared_ptr<Folder>;

/// Where a path leads: the folder to start from and the parts below it.
struct Place {
    std::string base;
    std::vector<std::string> parts;
    bool inside = false;
};

/// A folder and a name in it.
struct Spot {
    FolderPtr folder;
    std::string leaf;
};

/// Lets a map of strings be searched without making one.
struct TextHash {
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const {
        return std::hash<std::string_view>()(text);
    }
};

std::string readAll(int file, std::string_view path) {
    std::string bytes;
    struct stat found {};
    if (::fstat(file, &found) != 0)
        fail("read", path);
    if (!S_ISREG(found.st_mode))
        fail("read", path, EINVAL);
    if (found.st_size > largestText)
        fail("read", path, EFBIG);
    // One byte more than there should be, so that the end shows without another block.
    std::size_t done = 0;
    bytes.resize(static_cast<std::size_t>(found.st_size) + 1);
    for (;;) {
        const auto count = ::read(file, bytes.data() + done, bytes.size() - done);
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            fail("read", path);
        done += static_cast<std::size_t>(count);
        if (count == 0) {
            bytes.resize(done);
            return bytes;
        }
        if (done == bytes.size())
            bytes.resize(done * 2);
    }
}

void writeAll(int file, std::string_view bytes, std::string_view path) {
    while (!bytes.empty()) {
        const auto count = ::write(file, bytes.data(), bytes.size());
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            fail("write", path);
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
}

void copyBytes(int from, int to, std::string_view path, const CopyProgress& onProgress = {}) {
    std::string block;
    struct stat found {};
    ::fstat(from, &found);
    block.resize(std::clamp<std::size_t>(static_cast<std::size_t>(found.st_size), 512, 1U << 20U));
    for (;;) {
        const auto count = ::read(from, block.data(), block.size());
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            fail("copy", path);
        if (count == 0)
            return;
        writeAll(to, {block.data(), static_cast<std::size_t>(count)}, path);
        if (onProgress)
            onProgress(static_cast<std::uint64_t>(count));
    }
}

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

/// A file in the making, gone again unless it was finished.
class PartFile {
  public:
    /// Made beside its destination.
    PartFile(Folder& folder, std::string_view path, mode_t mode = 0666)
        : folder_(folder), path_(path) {
        makeBeside(mode);
    }
    /// Made in its destination where that is free, else beside it. A folder there is a failure.
    PartFile(Folder& folder, const std::string& leaf, std::string_view path, mode_t mode)
        : folder_(folder), path_(path) {
        if (make(leaf, mode))
            return;
        struct stat found {};
        if (errno != EEXIST)
            fail("write", path);
        if (::fstatat(folder.handle(), leaf.c_str(), &found, AT_SYMLINK_NOFOLLOW) == 0 &&
            S_ISDIR(found.st_mode))
            fail("write", path, EISDIR);
        makeBeside(mode);
    }
    PartFile(const PartFile&) = delete;
    PartFile& operator=(const PartFile&) = delete;
    ~PartFile() {
        if (!name_.empty())
            ::unlinkat(folder_.handle(), name_.c_str(), 0);
    }

    int handle() const { return file_.get(); }

    void sync() const {
        if (::fsync(handle()) != 0)
            fail("write", path_);
    }

    /// Finishes the file: it takes the place of an older one.
    void replace(const std::string& leaf) {
        if (name_ != leaf &&
            ::renameat(folder_.handle(), name_.c_str(), folder_.handle(), leaf.c_str()) != 0)
            fail("write", path_);
        name_.clear();
    }

    /// Puts the file in place unless that is taken.
    void place(const std::string& leaf) {
        if (::linkat(folder_.handle(), name_.c_str(), folder_.handle(), leaf.c_str(), 0) != 0)
            fail("move", path_);
        ::unlinkat(folder_.handle(), name_.c_str(), 0);
        name_.clear();
    }

  private:
    bool make(const std::string& name, mode_t mode) {
        file_ = Descriptor(::openat(folder_.handle(), name.c_str(),
                                    O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, mode));
        if (file_)
            name_ = name;
        return static_cast<bool>(file_);
    }

    void makeBeside(mode_t mode) {
        static std::atomic<unsigned> number = 0;
        // Hidden, so that one left behind by a crash is in no listing.
        while (!make(
            ".vexillum-part-" + std::to_string(::getpid()) + "-" + std::to_string(++number), mode))
            if (errno != EEXIST)
                fail("write", path_);
    }

    Folder& folder_;
    std::string name_;
    std::string_view path_;
    Descriptor file_;
};

class PosixDisk final : public Disk {
  public:
    void setGameDirectory(const std::string& folder) override {
        gameDirectory_ = folder;
        folders_.clear();
    }

    bool isInside(std::string_view path) const override {
        return isPlainPathBelow(path, gameDirectory_);
    }

    std::string systemPath(const std::string& path) override {
        refresh();
        const auto place = placeOf(path);
        std::string result = place.base == "/" ? "" : place.base;
        auto folder = tryOpen(place, 0);
        for (std::size_t i = 0; i < place.parts.size(); ++i) {
            const auto known = folder ? folder->spelling(place.parts[i]) : std::nullopt;
            result += "/" + known.value_or(place.parts[i]);
            folder = tryOpen(place, i + 1);
        }
        return result;
    }

    EntryKind kindOf(const std::string& path) override {
        refresh();
        try {
            const auto place = placeOf(path);
            if (place.parts.empty() || path.ends_with('\\'))
                return open(place, place.parts.size()) ? EntryKind::folder : EntryKind::none;
            return kindIn(*parentOf(place), place.parts.back(), place.inside);
        } catch (const Failure&) {
            return EntryKind::none;
        }
    }

    std::vector<std::string> folderNames(const std::string& path) override {
        return namesOf(path, EntryKind::folder);
    }

    std::vector<std::string> fileNames(const std::string& path) override {
        return namesOf(path, EntryKind::file);
    }

    std::string readFile(const std::string& path) override {
        refresh();
        const auto file = openFile(placeOf(path), path);
        return readAll(file.get(), path);
    }

    std::unique_ptr<FileView> mapFile(const std::string& path) override {
        refresh();
        const auto file = openFile(placeOf(path), path);
        struct stat found {};
        if (::fstat(file.get(), &found) != 0)
            fail("map", path);
        if (!S_ISREG(found.st_mode))
            fail("map", path, EINVAL);
        const auto size = static_cast<std::size_t>(found.st_size);
        void* start =
            size == 0 ? nullptr : ::mmap(nullptr, size, PROT_READ, MAP_PRIVATE, file.get(), 0);
        if (start == MAP_FAILED)
            fail("map", path);
        return std::make_unique<Mapping>(start, size);
    }

    void writePieces(const std::string& path,
                     const std::function<void(const PieceSink&)>& produce) override {
        const auto spot = spotToChange(path, "write");
        const auto leaf = spot.folder->spelling(spot.leaf).value_or(spot.leaf);
        PartFile part(*spot.folder, leaf, path, 0666);
        produce([&](std::string_view piece) { writeAll(part.handle(), piece, path); });
        part.replace(leaf);
        spot.folder->noteAdded(leaf);
    }

    void writeFile(const std::string& path, std::string_view bytes) override {
        const auto place = placeToChange(path, "write");
        const auto folder = parentOf(place);
        const auto leaf = folder->spelling(place.parts.back()).value_or(place.parts.back());
        const Descriptor file(
            ::openat(folder->handle(), leaf.c_str(),
                     O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, 0666));
        if (!file)
            fail("write", path);
        folder->noteAdded(leaf);
        writeAll(file.get(), bytes, path);
    }

    void replaceFile(const std::string& path, std::string_view bytes) override {
        const auto place = placeToChange(path, "write");
        const auto folder = parentOf(place);
        const auto leaf = folder->spelling(place.parts.back()).value_or(place.parts.back());
        if (!takesNewFiles(*folder)) {
            writeFile(path, bytes);
            return;
        }
        PartFile part(*folder, path);
        writeAll(part.handle(), bytes, path);
        part.sync();
        part.replace(leaf);
        folder->noteAdded(leaf);
        ::fsync(folder->handle());
    }

    bool moveEntry(const std::string& from, const std::string& to) override {
        if (equalIgnoringCase(from, to))
            return false;
        if (isBelowIgnoringCase(to, from)) {
            if (kindOf(to) != EntryKind::none || kindOf(from) == EntryKind::none)
                return false;
            fail("move", from, EINVAL);
        }
        Spot source;
        if (!attempt([&] { source = spotToChange(from, "move"); }))
            return false;
        NewFolders made;
        Spot target;
        try {
            target = spotToChange(to, "move", &made);
        } catch (const Failure&) {
            if (!source.folder->spelling(source.leaf))
                return false;
            throw;
        }
        if (target.folder->hasAny(target.leaf))
            return false;
        auto name = source.leaf;
        int error = rename(*source.folder, name, *target.folder, target.leaf, to);
        if (error == ENOENT) {
            const auto other = source.folder->otherSpelling(source.leaf);
            if (!other)
                return false;
            name = *other;
            error = rename(*source.folder, name, *target.folder, target.leaf, to);
        }
        if (error == EEXIST)
            return false;
        if (error != 0)
            fail("move", to, error);
        made.keep();
        const bool wasOpened = source.folder->wasOpened(name);
        source.folder->noteRemoved(name);
        target.folder->noteAdded(target.leaf);
        if (wasOpened)
            folders_.clear();
        return true;
    }

    bool renameEntry(const std::string& path, const std::string& newName) override {
        const auto spot = spotToChange(path, "rename");
        if (leadsAway(newName) || !isExpressible(newName))
            fail("rename", path, EINVAL);
        auto& folder = *spot.folder;
        const auto name = folder.spelling(spot.leaf);
        const auto taken = folder.spelling(newName);
        if (!name || (taken && *taken != *name))
            return false;
        if (*name == newName)
            return true;
        if (const int error = rename(folder, *name, folder, newName, path); error != 0)
            fail("rename", path, error);
        folder.noteRemoved(*name);
        folder.noteAdded(newName);
        folders_.clear();
        return true;
    }

    void copyFile(const std::string& from, const std::string& to,
                  const CopyProgress& onProgress) override {
        refresh();
        const auto source = openFile(placeOf(from), from);
        struct stat found {};
        if (::fstat(source.get(), &found) != 0 || !S_ISREG(found.st_mode))
            fail("copy", from, EINVAL);
        const auto target = placeToChange(to, "copy");
        NewFolders made;
        const auto folder = open(target, target.parts.size() - 1, &made);
        const auto leaf = folder->spelling(target.parts.back()).value_or(target.parts.back());
        PartFile part(*folder, leaf, to, found.st_mode & 0777U);
        copyBytes(source.get(), part.handle(), from, onProgress);
        const std::array<timespec, 2> times{found.st_atim, found.st_mtim};
        ::futimens(part.handle(), times.data());
        part.replace(leaf);
        made.keep();
        folder->noteAdded(leaf);
    }

    bool leadsThroughLink(const std::string& folder, const std::string& relative) override {
        refresh();
        auto path = folder;
        for (const auto& part : splitPath(relative)) {
            path += "\\" + part;
            const auto place = placeOf(path);
            const auto parent = tryOpen(place, place.parts.size() - 1);
            const auto name = parent ? parent->spelling(part) : std::nullopt;
            struct stat found {};
            if (name &&
                ::fstatat(parent->handle(), name->c_str(), &found, AT_SYMLINK_NOFOLLOW) == 0 &&
                S_ISLNK(found.st_mode))
                return true;
        }
        return false;
    }

    void removeFile(const std::string& path) override { remove(path, 0); }

    void makeFolder(const std::string& path) override {
        const auto place = placeToChange(path, "make folder");
        const auto folder = parentOf(place);
        const auto& leaf = place.parts.back();
        if (folder->spelling(leaf))
            fail("make folder", path, EEXIST);
        if (::mkdirat(folder->handle(), leaf.c_str(), 0777) != 0)
            fail("make folder", path);
        folder->noteAdded(leaf);
    }

    void removeFolder(const std::string& path) override {
        remove(path, AT_REMOVEDIR);
        folders_.clear();
    }

    void removeTree(const std::string& path) override {
        const auto place = placeToChange(path, "remove");
        const auto folder = parentOf(place);
        const auto& leaf = place.parts.back();
        const auto name = folder->spelling(leaf);
        if (!name || kindIn(*folder, *name, true) != EntryKind::folder)
            fail("remove", path, ENOENT);
        std::error_code error;
        std::filesystem::remove_all(systemPath(path), error);
        folders_.clear();
        if (error)
            fail("remove", path, error.value());
    }

    void flush() override {
        const Descriptor top(::open(gameDirectory_.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
        if (!top)
            fail("flush", gameDirectory_);
#ifdef __linux__
        if (::syncfs(top.get()) != 0)
            fail("flush", gameDirectory_);
#else
        ::sync();
#endif
    }

  private:
    /// Folders made on the way to a destination, taken away again where the move then failed.
    class NewFolders {
      public:
        NewFolders() = default;
        NewFolders(const NewFolders&) = delete;
        NewFolders& operator=(const NewFolders&) = delete;
        ~NewFolders() {
            for (auto at = made_.rbegin(); at != made_.rend(); ++at)
                if (::unlinkat(at->first->handle(), at->second.c_str(), AT_REMOVEDIR) == 0)
                    at->first->noteRemoved(at->second);
        }
        void add(FolderPtr folder, std::string name) {
            made_.emplace_back(std::move(folder), std::move(name));
        }
        void keep() { made_.clear(); }
        bool empty() const { return made_.empty(); }

      private:
        std::vector<std::pair<FolderPtr, std::string>> made_;
    };

    /// A handle outlives a rename of its folder by another program, so handles serve only while
    /// one call follows another.
    void refresh() {
        const auto now = std::chrono::steady_clock::now();
        if (now - lastCall_ > handlesLast || folders_.size() > mostOpenFolders)
            folders_.clear();
        lastCall_ = now;
    }

    Place placeOf(std::string_view path) const {
        if (path.find('\0') != std::string_view::npos)
            fail("find", path, EINVAL);
        if (!isBelow(path, gameDirectory_)) {
            if (!path.starts_with('/'))
                fail("find", path, ENOENT);
            return {"/", splitPath(replaceAll(path, "/", "\\")), false};
        }
        Place place{gameDirectory_, splitPath(path.substr(gameDirectory_.size())), true};
        if (std::any_of(place.parts.begin(), place.parts.end(), leadsAway))
            fail("find", path, EACCES);
        return place;
    }

    Place placeToChange(const std::string& path, std::string_view call) {
        refresh();
        auto place = placeOf(path);
        if (!place.inside || place.parts.empty())
            fail(call, path, EACCES);
        return place;
    }

    /// The parent of an entry that is to be changed, and the entry's name.
    Spot spotToChange(const std::string& path, std::string_view call, NewFolders* made = nullptr) {
        const auto cut = path.rfind('\\');
        if (cut != std::string::npos && cut + 1 < path.size() && isBelow(path, gameDirectory_)) {
            refresh();
            const auto leaf = std::string_view(path).substr(cut + 1);
            const auto known = folders_.find(std::string_view(path).substr(0, cut));
            if (known != folders_.end() && !leadsAway(leaf))
                return {known->second, std::string(leaf)};
        }
        const auto place = placeToChange(path, call);
        return {open(place, place.parts.size() - 1, made), place.parts.back()};
    }

    FolderPtr parentOf(const Place& place) {
        return open(place, place.parts.size() - 1);
    }

    FolderPtr tryOpen(const Place& place, std::size_t depth) {
        try {
            return open(place, depth);
        } catch (const Failure&) {
            return nullptr;
        }
    }

    /// Opens the folder `depth` parts below the base, making missing ones if `made` is given.
    FolderPtr open(const Place& place, std::size_t depth, NewFolders* made = nullptr) {
        std::string key = place.base;
        for (std::size_t i = 0; i < depth; ++i)
            key += "\\" + place.parts[i];
        if (const auto known = folders_.find(key); known != folders_.end())
            return known->second;
        FolderPtr folder;
        if (depth == 0) {
            folder = openAt(AT_FDCWD, place.base, false);
        } else {
            const auto parent = open(place, depth - 1, made);
            const auto name = nameIn(parent, place.parts[depth - 1], made);
            folder = openAt(parent->handle(), name, place.inside);
            parent->noteOpened(name);
        }
        // An undone folder must not be found again by its handle.
        if (made == nullptr || made->empty())
            folders_.emplace(std::move(key), folder);
        return folder;
    }

    static std::string nameIn(const FolderPtr& parent, const std::string& part, NewFolders* made) {
        if (const auto known = parent->spelling(part))
            return *known;
        if (made != nullptr) {
            if (::mkdirat(parent->handle(), part.c_str(), 0777) != 0)
                fail("make folder", part);
            parent->noteAdded(part);
            made->add(parent, part);
        }
        return part;
    }

    static FolderPtr openAt(int parent, const std::string& name, bool inside) {
        const int links = inside ? O_NOFOLLOW : 0;
        Descriptor handle(
            ::openat(parent, name.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC | links));
        if (!handle)
            fail("open folder", name);
        return std::make_shared<Folder>(std::move(handle));
    }

    static EntryKind kindIn(Folder& folder, const std::string& name, bool inside) {
        const int links = inside ? AT_SYMLINK_NOFOLLOW : 0;
        struct stat found {};
        if (::fstatat(folder.handle(), name.c_str(), &found, links) == 0)
            return kindOfMode(found.st_mode);
        const auto other = folder.otherSpelling(name);
        if (!other || ::fstatat(folder.handle(), other->c_str(), &found, links) != 0)
            return EntryKind::none;
        return kindOfMode(found.st_mode);
    }

    Descriptor openFile(const Place& place, std::string_view path) {
        if (place.parts.empty())
            fail("read", path, EISDIR);
        const auto folder = parentOf(place);
        const auto name = folder->spelling(place.parts.back());
        if (!name)
            fail("read", path, ENOENT);
        const int links = place.inside ? O_NOFOLLOW : 0;
        Descriptor file(
            ::openat(folder->handle(), name->c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | links));
        if (!file)
            fail("read", path);
        return file;
    }

    std::vector<std::string> namesOf(const std::string& path, EntryKind kind) {
        refresh();
        const auto place = placeOf(path);
        std::vector<std::string> names;
        for (auto& entry : open(place, place.parts.size())->read()) {
            const bool hidden = kind == EntryKind::file && entry.name.starts_with('.');
            if (entry.kind == kind && !hidden && isExpressible(entry.name))
                names.push_back(std::move(entry.name));
        }
        std::sort(names.begin(), names.end(), lessIgnoringCase);
        return names;
    }

    void remove(const std::string& path, int flags) {
        const auto place = placeToChange(path, "remove");
        const auto folder = parentOf(place);
        const auto name = folder->spelling(place.parts.back());
        if (!name)
            fail("remove", path, ENOENT);
        if (::unlinkat(folder->handle(), name->c_str(), flags) != 0)
            fail("remove", path);
        folder->noteRemoved(*name);
    }

    /// In a folder that is read-only a file may still be written over.
    static bool takesNewFiles(const Folder& folder) {
        return ::faccessat(folder.handle(), ".", W_OK, AT_EACCESS) == 0;
    }

    static bool isBelowIgnoringCase(std::string_view path, std::string_view folder) {
        return path.size() > folder.size() && path[folder.size()] == '\\' &&
               equalIgnoringCase(path.substr(0, folder.size()), folder);
    }

    /// Moves without replacing anything. Returns the system's error number, or 0.
    static int rename(Folder& from, const std::string& name, Folder& to, const std::string& leaf,
                      std::string_view path) {
#ifdef SYS_renameat2
        if (::syscall(SYS_renameat2, from.handle(), name.c_str(), to.handle(), leaf.c_str(),
                      noReplace) == 0)
            return 0;
#else
        errno = ENOSYS;
#endif
        if (errno == EXDEV) {
            moveAcross(from, name, to, leaf, path);
            return 0;
        }
        return errno == ENOSYS || errno == EINVAL ? moveByLink(from, name, to, leaf) : errno;
    }

    /// For file systems that cannot refuse to replace: a hard link never replaces. A folder has no
    /// links, but a rename onto a file or a filled folder fails by itself.
    static int moveByLink(Folder& from, const std::string& name, Folder& to,
                          const std::string& leaf) {
        if (kindIn(from, name, true) == EntryKind::folder)
            return ::renameat(from.handle(), name.c_str(), to.handle(), leaf.c_str()) == 0 ? 0
                                                                                           : errno;
        if (::linkat(from.handle(), name.c_str(), to.handle(), leaf.c_str(), 0) != 0)
            return errno;
        if (::unlinkat(from.handle(), name.c_str(), 0) == 0)
            return 0;
        const int error = errno;
        ::unlinkat(to.handle(), leaf.c_str(), 0);
        return error;
    }

    /// Between two disks: the copy is whole and on its disk before the original goes.
    static void moveAcross(Folder& from, const std::string& name, Folder& to,
                           const std::string& leaf, std::string_view path) {
        struct stat found {};
        if (::fstatat(from.handle(), name.c_str(), &found, AT_SYMLINK_NOFOLLOW) != 0)
            fail("move", path);
        if (S_ISDIR(found.st_mode))
            return moveFolderAcross(from, name, to, leaf, path);
        if (!S_ISREG(found.st_mode))
            fail("move", path, EXDEV);
        const Descriptor source(
            ::openat(from.handle(), name.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW));
        if (!source)
            fail("move", path);
        PartFile part(to, path, found.st_mode & 0777U);
        copyBytes(source.get(), part.handle(), path);
        const std::array<timespec, 2> times{found.st_atim, found.st_mtim};
        ::futimens(part.handle(), times.data());
        part.sync();
        part.place(leaf);
        ::fsync(to.handle());
        if (::unlinkat(from.handle(), name.c_str(), 0) != 0) {
            const int error = errno;
            ::unlinkat(to.handle(), leaf.c_str(), 0);
            fail("move", path, error);
        }
    }

    static void moveFolderAcross(Folder& from, const std::string& name, Folder& to,
                                 const std::string& leaf, std::string_view path) {
        if (::mkdirat(to.handle(), leaf.c_str(), 0777) != 0)
            fail("move", path);
        const auto source = openAt(from.handle(), name, true);
        const auto target = openAt(to.handle(), leaf, true);
        for (const auto& entry : source->read())
            moveAcross(*source, entry.name, *target, entry.name, path);
        if (::unlinkat(from.handle(), name.c_str(), AT_REMOVEDIR) != 0)
            fail("move", path);
    }

    std::string gameDirectory_;
    /// Open folders by their paths as they were given.
    std::unordered_map<std::string, FolderPtr, TextHash, std::equal_to<>> folders_;
    std::chrono::steady_clock::time_point lastCall_;
};

} // namespace

std::unique_ptr<Disk> makeDisk() {
    return std::make_unique<PosixDisk>();
}

std::string shownPath(std::string_view path) {
    return replaceAll(path, "\\", "/");
}

std::string programFolder() {
    std::error_code error;
    const auto program = std::filesystem::read_symlink("/proc/self/exe", error);
    return error ? absoluteFolder(".") : program.parent_path().string();
}

std::string programName() {
    std::error_code error;
    // Said of a program whose file was replaced while it runs.
    constexpr std::string_view gone = " (deleted)";
    auto name = std::filesystem::read_symlink("/proc/self/exe", error).filename().string();
    if (name.ends_with(gone))
        name.resize(name.size() - gone.size());
    return name;
}

std::string absoluteFolder(const std::string& folder) {
    std::error_code error;
    auto path =
        std::filesystem::absolute(folder.empty() ? "." : folder, error).lexically_normal().string();
    if (error)
        return folder;
    while (path.size() > 1 && path.ends_with('/'))
        path.pop_back();
    return path;
}

} // namespace platform
